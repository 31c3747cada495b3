// What the commands that work on recipes and runs have in common.
#pragma once

#include <cstddef>

#include <zorbi2/CZorbI2EngineManager.h>

#include "commands/Arguments.h"
#include "console/Terminal.h"
#include "recipes/Names.h"
#include "recipes/Recipe.h"
#include "system/Paths.h"
#include "system/ScratchFolder.h"

namespace host {

/// Adds the flags that beat a recipe's solver, mesh kind and choices.
void AddOverrides(Arguments& arguments, Overrides& overrides);

/// The engine keeps the shot file of each run open until the process ends. Throws a Failure when
/// the system does not let it for as many recipes.
void CheckOpenFileLimit(std::size_t recipes);

/// The path that "-o" names. Throws a Failure for "-", by which others mean standard output.
std::filesystem::path OutputPath(const std::string& name, const std::filesystem::path& start);

/// Where such a command works.
struct Surroundings {
    /// The engine that is asked for names comes before the trace lines, which are of the runs.
    explicit Surroundings(Terminal& console);

    Terminal& terminal;
    const ScratchFolder scratch;
    CZorbI2EngineManager bareEngine;  ///< of no project
    Names names;
};

}  // namespace host
