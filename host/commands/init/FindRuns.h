// The runs that "init" makes recipes for.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "handover/RunFolder.h"
#include "problems/Problem.h"

namespace host {

/// A run, where it lies, and the recipe that it gets.
struct FoundRun {
    Run run;
    std::filesystem::path folder;
    std::filesystem::path recipeFile;
};

/// Which runs the command line asks for.
struct RunFilter {
    std::optional<std::string> name;     ///< of the project
    std::optional<std::int32_t> number;  ///< of the run
};

/// The only run of a folder that is asked for; nothing is guessed. Throws a Failure otherwise.
Run OnlyRun(const std::vector<Run>& runs, const std::filesystem::path& folder,
            const RunFilter& wanted);

/// The run folders below a folder, itself included, until a signal comes. Links are not followed:
/// they could lead in a circle.
std::vector<FoundRun> FindRuns(const std::filesystem::path& root, const RunFilter& wanted,
                               Problems& problems);

/// "Cover02.toml".
std::string RecipeNameOf(const Run& run);

/// Gives each run a recipe so named; with the path of its folder in front where several would have
/// the same.
void NameRecipes(const std::filesystem::path& root, const std::filesystem::path& output,
                 std::vector<FoundRun>& found);

}  // namespace host
