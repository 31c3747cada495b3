// The commands: one row each in Commands.cpp, from which the command line, its help and the choice
// of what runs come. A command has a file of its own.
#pragma once

#include <functional>
#include <span>

#include "console/Terminal.h"
#include "problems/Problem.h"

namespace CLI {
class App;
}

namespace host {

/// Prints what a command has to say and returns the exit code. Throws what is wrong.
using RunFunction = std::function<ExitCode(Terminal& terminal)>;

struct Command {
    const char* name;
    const char* purpose;
    const char* example;
    /// Adds arguments and options to the command line. Returns what runs the command with them
    /// once they are read.
    RunFunction (*add)(CLI::App& commandLine);
};

std::span<const Command> Commands();

RunFunction AddInit(CLI::App& commandLine);
RunFunction AddItems(CLI::App& commandLine);
RunFunction AddWrite(CLI::App& commandLine);
RunFunction AddCheck(CLI::App& commandLine);
RunFunction AddSchema(CLI::App& commandLine);

}  // namespace host
