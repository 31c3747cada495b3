// A control file, held against what a recipe would write now.
#pragma once

#include <string>
#include <string_view>

#include "commands/Surroundings.h"
#include "problems/Problem.h"

namespace host {

/// The text that a recipe would write, in the host's character set. Throws what is wrong with the
/// recipe. The engine writes into the scratch folder.
std::string TextOfRecipe(const std::string& recipe, Surroundings& host);

/// Every line of a file that is not the one that should be there, whatever the lines end in.
Problems DifferencesFrom(std::string_view wanted, const std::string& name, std::string_view text);

}  // namespace host
