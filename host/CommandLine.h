// The command line: what the user asks for, and the help texts.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Problem.h"

namespace host {

/// Texts are UTF-8, paths as the user wrote them.
struct Options {
    std::string command;             ///< "init", "items", "write" or "check"
    std::vector<std::string> files;  ///< recipes, or control files to check
    std::string runFolder;
    std::optional<std::string> recipeFile;
    std::optional<std::string> solver;
    std::optional<std::string> mesh;
    std::optional<std::string> outFolder;
    std::vector<std::string> choices;  ///< "ITEM=CHOICE"
    bool force = false;
    bool solvers = false;
    bool matrix = false;
    bool dryRun = false;
    bool show = false;
    bool json = false;
    bool trace = false;
    bool quiet = false;
};

/// Fills `options`. An exit code means that all is done: help was asked for and printed, or the
/// command line is wrong, which was told on standard error.
std::optional<ExitCode> ParseCommandLine(std::vector<std::string> arguments, Options& options);

}  // namespace host
