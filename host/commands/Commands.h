// The commands: one row each in Commands.cpp, from which the command line, its help and the choice
// of what runs come. A command has a file of its own.
#pragma once

#include <functional>
#include <span>

#include "commands/Arguments.h"
#include "console/Terminal.h"
#include "problems/Problem.h"

namespace host {

/// Prints what a command has to say and returns the exit code. Throws what is wrong.
using RunFunction = std::function<ExitCode(Terminal& terminal)>;

struct Command {
    const char* name;
    const char* purpose;
    const char* example;
    /// Adds what the command takes. Returns what runs the command with it once it is read.
    RunFunction (*add)(Arguments& arguments);
};

std::span<const Command> Commands();

RunFunction AddInit(Arguments& arguments);
RunFunction AddItems(Arguments& arguments);
RunFunction AddWrite(Arguments& arguments);
RunFunction AddCheck(Arguments& arguments);
RunFunction AddReport(Arguments& arguments);
RunFunction AddSchema(Arguments& arguments);

}  // namespace host
