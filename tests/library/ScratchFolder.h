// A folder in which a test has files to itself.
#pragma once

#include <filesystem>
#include <string>

namespace library_tests {

/// A folder of the running test's name, empty at first, and the current folder while the object
/// lives. It stays on disk afterwards: it shows what a failed test left, and the library keeps
/// shot files open.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
};

/// Creates a file with its folders, relative to the current folder.
void AddFile(const std::filesystem::path& path, const std::string& bytes = "");

/// All bytes of a file.
std::string BytesOf(const std::filesystem::path& path);

}  // namespace library_tests
