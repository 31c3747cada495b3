// Names and finds the files of the project's run. Reads none of them.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include <zorbi2/CZorbFEAInformation.h>

#include "platform/Text.h"

namespace results {

/// The text of a run number in file names: two digits below 10, as many as needed otherwise.
std::string RunTag(std::int32_t runNumber);

/// Appends one backslash to the folder, unless it ends in one.
void EndInBackslash(std::string& folder);

/// The full path of the control parameter file. Throws std::out_of_range("invalid string position")
/// for an empty folder.
std::string ControlFilePath(const std::string& folder, const std::string& name, std::int32_t run,
                            const std::string& extension);

/// Folder (as it is), project name and run tag: what the names of the run's files start with.
std::string ResultBasePath(const CZorbFEAInformation& info);

/// The extension of a result file with its dot, such as ".k5o", and what follows from it. Made by
/// the compiler, because an engine looks for many files.
struct ResultExtension {
    // Not explicit: a literal is one.
    consteval ResultExtension(const char (&extension)[5]) {
        std::copy_n(extension, text.size(), text.begin());
        std::ranges::transform(text, upper.begin(), platform::UpperCasedLetter);
        const std::string_view upperCased(upper.data(), upper.size());
        suffix = upperCased == ".CRP" ? "_medi" : "";
        voxelSuffix = upperCased == ".K5O" ? "_vox" : suffix;
    }

    using Characters = std::array<char, 4>;
    Characters text{};
    Characters upper{};
    std::string_view suffix;       ///< between run tag and extension
    std::string_view voxelSuffix;  ///< the same of voxel-mesh results
};

/// Looks for the result files of one run, whose record does not change meanwhile.
class ResultFiles {
public:
    explicit ResultFiles(CZorbFEAInformation& info) : info_(info) {}

    /// Looks for the file for an extension. Returns whether it exists.
    bool LookFor(const ResultExtension& extension);

    /// The file's path, valid until the next call. The first call normalizes the record's folder.
    const std::string& PathOf(std::string_view suffix,
                              const ResultExtension::Characters& extension);

private:
    CZorbFEAInformation& info_;
    std::string path_;
    std::size_t baseSize_ = 0;  ///< of the base path in path_; 0: not made yet
};

/// Whether the file for an extension exists in the folder of a previous shot's run.
bool PreviousShotFileExists(const CZorbFEAInformation& info, std::int32_t previousRun,
                            const std::string& extension);

}  // namespace results
