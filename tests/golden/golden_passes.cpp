// Writes what the engine makes of every pass of the table, or the table, or all of the engine's
// finite decisions, so that scripts can compare them.
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/golden/DecisionTables.h"
#include "tests/golden/Passes.h"
#include "tests/golden/RunPass.h"

namespace {

const char* const usage =
    "golden_passes OUTPUT_DIRECTORY   the control parameter file of every pass\n"
    "golden_passes --passes FILE      the passes\n"
    "golden_passes --tables FILE      offered items, messages, slots, items and checks; the first\n"
    "                                 line is the number of the lines that follow\n";

/// Bytes as they are: "\n" line ends on every system.
void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

void WriteControlFiles(const std::filesystem::path& directory) {
    std::filesystem::create_directories(directory);
    for (const golden::Pass& pass : golden::Passes()) {
        WriteBytes(directory / (pass.name + ".cmi"), golden::RunPass(pass));
    }
}

std::string TablesAsText() {
    const std::vector<std::string> lines = golden::DecisionTables();
    std::string text = std::to_string(lines.size()) + "\n";
    for (const std::string& line : lines) {
        text += line + "\n";
    }
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    try {
        if (arguments.size() == 2 && arguments[0] == "--passes") {
            WriteBytes(arguments[1], golden::PassesAsText());
        } else if (arguments.size() == 2 && arguments[0] == "--tables") {
            WriteBytes(arguments[1], TablesAsText());
        } else if (arguments.size() == 1 && arguments[0].rfind("--", 0) != 0) {
            WriteControlFiles(arguments[0]);
        } else {
            std::cerr << usage;
            return 2;
        }
    } catch (const std::exception& error) {
        std::cerr << "golden_passes: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
