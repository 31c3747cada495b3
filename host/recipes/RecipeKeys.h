// The keys of a recipe as a list, for what describes recipes and does not read them.
#pragma once

#include <string_view>
#include <vector>

#include "recipes/Names.h"

namespace host {

/// What the value of a key looks like.
struct KeyForm {
    std::string_view type;  ///< of JSON, or "name": a text or number out of `words`
    double highest = 0.0;   ///< of numbers, which start at 0
    int count = 1;          ///< of values; more than one is a list
    Vocabulary (*words)(const Names& names) = nullptr;
};

struct KeyDescription {
    std::string_view name;  ///< with its section: "target.solver"
    bool isNeeded;          ///< otherwise it has a default
    KeyForm form;
    std::string_view description;
};

std::vector<KeyDescription> RecipeKeys();

}  // namespace host
