// Names and finds the files of the project's run. Reads none of them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <zorbi2/CZorbFEAInformation.h>

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

/// Looks for the result files of one run, whose record does not change meanwhile.
class ResultFiles {
public:
    explicit ResultFiles(CZorbFEAInformation& info) : info_(info) {}

    /// Looks for the file for an extension (with its dot, such as ".k5o"). Returns whether it
    /// exists.
    bool LookFor(std::string_view extension);

    /// The file's path, valid until the next call. The first call normalizes the record's folder.
    const std::string& PathOf(std::string_view suffix, std::string_view extension);

private:
    CZorbFEAInformation& info_;
    std::string path_;
    std::size_t baseSize_ = 0;  ///< of the base path in path_; 0: not made yet
};

/// Whether the file for an extension exists in the folder of a previous shot's run.
bool PreviousShotFileExists(const CZorbFEAInformation& info, std::int32_t previousRun,
                            const std::string& extension);

}  // namespace results
