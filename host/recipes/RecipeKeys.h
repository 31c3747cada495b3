// The keys of a recipe: what each is called, what its value looks like, and where it goes.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "recipes/Names.h"

namespace host {

struct Recipe;
class RecipeValue;

/// What the value of a key looks like.
struct KeyForm {
    std::string_view type = {};      ///< of JSON, or "name": a text or number out of `words`
    std::string_view quantity = {};  ///< what a number is: "a fraction"
    std::int64_t highest = 0;        ///< of numbers, which start at 0
    std::size_t count = 1;           ///< of values; more than one is a list
    Vocabulary (*words)(const Names& names) = nullptr;
};

struct RecipeKey {
    std::string_view name;  ///< with its section: "target.solver"
    bool isNeeded;          ///< otherwise it has a default
    KeyForm form;
    void (*read)(Recipe& recipe, const RecipeValue& value);
    std::string_view description;
};

std::span<const RecipeKey> RecipeKeys();

}  // namespace host
