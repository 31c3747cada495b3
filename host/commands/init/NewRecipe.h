// The text of a recipe for a run, filled in with what the names of the run's files tell.
#pragma once

#include <filesystem>
#include <string>

#include "commands/init/FindRuns.h"

namespace host {

/// Throws a Failure for a run that cannot be read, and for names that a recipe cannot hold.
std::string TextOfNewRecipe(const FoundRun& found);

}  // namespace host
