// The runs that lie in a folder, as the names of their result files tell it.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "recipes/Recipe.h"
#include "system/SafeFile.h"

namespace host {

/// A run as its files tell it.
struct Run {
    std::string name;
    std::string number;             ///< as file names have it: at least two digits
    std::set<std::string> endings;  ///< what follows the number: ".k5f", "_vox.k5o"

    int Number() const { return std::stoi(number); }
};

/// What a folder holds, sorted. Throws a Failure at a place with the system's reason.
std::vector<std::filesystem::path> EntriesOf(const std::filesystem::path& folder,
                                             const Place& place);

/// The runs among a folder's entries, by name and number. Digits that can be read in several ways
/// are read as the number in which the folder's name ends, or else in each of these ways.
std::vector<Run> RunsAmong(const std::vector<std::filesystem::path>& entries);

/// Throws a Failure for a file that is named like the result files of a run: one that is there must
/// stay, and a new one would be taken for results. With a recipe, also for whatever is there with
/// the project's name and a number, in the folder of its run.
void RefuseNameOfRun(const FilePlace& file, const Place& place);
void RefuseNameOfRun(const FilePlace& file, const Recipe& recipe, const Place& place);

/// "Cover, run 2; Lid, run 11", without those of a long list; "none" when there is no run.
std::string Listed(const std::vector<Run>& runs);

/// What the names of a run's files start with: "Cover02".
std::string StartOfNames(const CZorbFEAInformation& project);
/// The same with the run's folder.
std::filesystem::path StartOfPaths(const CZorbFEAInformation& project);

/// Throws a Failure unless the recipe's folder can be listed and has a file of the recipe's run, or
/// the recipe says that there need be none.
void CheckRun(const Recipe& recipe);

/// Checks the files of a run that the engine opens before it does. Throws a Failure for one that is
/// not a regular file, is too large or cannot be read: the engine would take its results for
/// missing.
void CheckFilesOfRun(const Recipe& recipe);

/// The engine leaves the shot file open, by the number that was the next. Throws a Failure unless
/// it has read the file to its end: without, it would take the earlier shot's results for missing.
void CheckShotFileWasRead(const Recipe& recipe, int number);

/// Warns of earlier runs that cannot be looked into, if the recipe's has a shot file: the engine
/// would take results of an earlier shot there for missing. Reads the folder of all runs.
void WarnOfClosedRuns(const Recipe& recipe, Problems& problems);

/// Warns of files that are not found, because their names differ in case from those of the run.
void WarnOfCase(const Recipe& recipe, Problems& problems);

}  // namespace host
