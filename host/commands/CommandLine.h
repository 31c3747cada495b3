// The command line: which command the user asks for, and the help texts.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "commands/Commands.h"

namespace host {

/// A command with its options.
struct CommandCall {
    GeneralOptions options;
    RunFunction run;
};

/// Fills `call` from arguments in UTF-8. An exit code means that all is done: help was asked for
/// and printed, or the command line is wrong, which was told on standard error.
std::optional<ExitCode> ParseCommandLine(std::vector<std::string> arguments, CommandCall& call);

}  // namespace host
