// What each availability check must answer and do, as a table: the expectation that the tests hold
// the engine against. Shares nothing with the engine but the host's record.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <zorbi2/CZorbFEAInformation.h>

namespace expected {

/// Positions of the record's flags that a check may ask for.
constexpr std::array<std::size_t, 5> factFlags = {11, 12, 13, 14, 16};

/// All that tells one check of run 3 of the project "Cover" from another.
struct Situation {
    Situation();

    CZorbFEAInformation info;  ///< the folder is D:\Proj\Run03, with or without a last backslash
    /// ".k5o" is the result file of that extension, ".K5O" what is looked for after it.
    std::set<std::string> files;
    std::set<std::string> unwritableFiles;

    int beginResult = 0;  ///< of the result reader
    long long version = 1004;

    std::int32_t flagPrevShot = 0;  ///< before the check
    std::int32_t valueShotRunID = 0;
    bool hasShotFile = false;
    std::string shotFile;                ///< its bytes
    std::int32_t flagPrevShotAfter = 0;  ///< what both values become when the file is read
    std::int32_t valueShotRunIDAfter = 0;
    std::string previousRunTag = "00";  ///< of valueShotRunIDAfter
    bool previousRunHasK5o = false;
};

/// All paths that exist in the situation.
std::set<std::string> ExistingPaths(const Situation& situation);

/// Path of the run's shot file.
std::string ShotFilePath(const Situation& situation);

/// Extensions whose result files the check of the item may look for in a project of that kind.
std::set<std::string> ExtensionsLookedFor(std::int32_t itemId, std::int32_t solverType);

/// What happens, in order, one line for each event, and what is left in the end: the debug files'
/// contents, the folder, the shot file's values and the result code.
std::vector<std::string> Transcript(std::int32_t itemId, const Situation& situation);

/// The situation in words, for a test's failure.
std::string Described(const Situation& situation);

}  // namespace expected
