// Recipes whole: with what the engine has to say about them.
#pragma once

#include <filesystem>
#include <string>

#include "recipes/Recipe.h"

namespace host {

/// Reads a recipe as ReadRecipe does. Throws a Failure when it is wrong, with all that can be known
/// to be wrong with it, also by asking the engine, in the order of the lines.
Recipe LoadRecipe(const std::string& file, const Overrides& overrides, const Names& names,
                  const std::filesystem::path& folder, Purpose purpose);

}  // namespace host
