// What can stand next on a command line: asked for by the shells, whose scripts are in completion/.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace host {

/// What the last of the words after the program's name can become. Of files there is only their
/// kind, ":recipes", ":folders" or ":files": a shell knows better how to list them.
std::vector<std::string> Completions(const CLI::App& app, std::vector<std::string> words);

}  // namespace host
