// Values of a recipe, read as what they are meant for. A value that does not fit is refused, and
// read as nothing.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "problems/Problem.h"
#include "recipes/Names.h"
#include "recipes/Recipe.h"
#include "recipes/RecipeKeys.h"
#include "recipes/Toml.h"

namespace host {

/// For messages about strings in double quotes.
inline constexpr const char* singleQuotesHint =
    R"(; use single quotes to keep backslashes as they are: 'D:\x')";

/// A recipe that is being read, with what it is read by.
struct RecipeReading {
    Recipe& recipe;
    const std::filesystem::path& folder;  ///< relative paths start here
    const Names& names;

    /// Values of the command line have no line.
    Place PlaceOf(const toml::source_region& region, const std::string& name) const;

    void Refuse(const Place& place, const std::string& text,
                ExitCode code = ExitCode::badUsage) const;
};

class RecipeValue {
public:
    RecipeValue(const RecipeReading& reading, const toml::node& node, const std::string& name,
                const KeyForm& form = {});

    const Place& PlaceInRecipe() const { return place_; }

    /// Refuses the value: it "is not" what is wanted.
    void RefuseFor(const std::string& wanted) const;

    /// A text or a number as the text that it is; of others, their kind.
    std::string Word() const;

    bool Flag() const;
    std::int32_t Integer() const;
    double Number() const;
    std::vector<double> Numbers() const;
    std::vector<double> AscendingAngles() const;
    std::int32_t OneOf() const;
    std::string FileName() const;
    std::string Extension() const;
    std::string Path() const;

    /// Of a choice: an option's key or label, "on" or "off".
    std::optional<std::string> Chosen() const;

private:
    RecipeValue Element(const toml::node& element) const;
    std::string Shown() const;
    std::string Range() const;
    std::string Text(const char* hint = "") const;
    template <class Type, class Fits>
    std::optional<Type> Take(const std::string& wanted, const Fits& fits) const;

    const RecipeReading& reading_;
    const toml::node& node_;
    Place place_;
    KeyForm form_;
};

}  // namespace host
