// The commands that work on runs. Each prints what it has to say and returns the exit code.
#pragma once

#include "CommandLine.h"
#include "Paths.h"
#include "Problem.h"
#include "Recipe.h"
#include "Terminal.h"

namespace host {

/// What every command is given.
struct Surroundings {
    const Options& options;
    const Names names;
    const ScratchFolder& scratch;
    Terminal& terminal;
};

/// Writes a recipe to start from.
ExitCode RunInit(const Surroundings& host);

/// Shows the dialog, the solvers or the matrix of a recipe.
ExitCode RunItems(const Surroundings& host);

/// Writes the control file of each recipe.
ExitCode RunWrite(const Surroundings& host);

/// Reads control files back.
ExitCode RunCheck(const Options& options, Terminal& terminal);

}  // namespace host
