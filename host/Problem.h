// What went wrong, where it was asked for, and the exit code that it leads to.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace host {

enum class ExitCode {
    done = 0,
    notAvailable = 1,  ///< something asked for is not available
    badUsage = 2,      ///< a command line or a recipe that cannot be read
    fileTrouble = 3,   ///< a file or folder that cannot be used
};

/// A position in a recipe. Line 0: the recipe as a whole; no file: the command line.
struct Place {
    std::string file;
    std::uint32_t line = 0;
    std::uint32_t column = 0;
};

/// Where a value comes from: its place, and its name there ("target.solver", "--solver").
struct Origin {
    Place place;
    std::string name;
};

/// Thrown where nobody nearer can report it.
struct Problem {
    Problem(Place where, std::string text, ExitCode leadsTo)
        : place(std::move(where)), message(std::move(text)), code(leadsTo) {}
    Problem(const Origin& origin, const std::string& text, ExitCode leadsTo)
        : Problem(origin.place, origin.name.empty() ? text : origin.name + ": " + text, leadsTo) {}

    Place place;
    std::string message;
    ExitCode code;
};

using Problems = std::vector<Problem>;

}  // namespace host
