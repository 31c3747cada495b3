#include "commands/init/FindRuns.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "system/HostPlatform.h"
#include "system/Paths.h"
#include "system/Signals.h"

namespace host {

namespace {

namespace fs = std::filesystem;

/// The runs of a folder that are what the command line asks for.
std::vector<Run> FittingRuns(const std::vector<Run>& runs, const RunFilter& wanted) {
    std::vector<Run> fitting;
    std::ranges::copy_if(runs, std::back_inserter(fitting), [&](const Run& run) {
        return run.name == wanted.name.value_or(run.name) &&
               run.Number() == wanted.number.value_or(run.Number());
    });
    return fitting;
}

}  // namespace

Run OnlyRun(const std::vector<Run>& runs, const fs::path& folder, const RunFilter& wanted) {
    const Place place{Utf8Of(folder)};
    const std::vector<Run> fitting = FittingRuns(runs, wanted);
    if (runs.empty()) {
        Fail(place,
             "no result files found; they have names like Cover02.k5o (project and run number); "
             "for folders below this one, use --all",
             ExitCode::fileTrouble);
    }
    if (fitting.empty()) {
        Fail(place, "no such run; runs found: " + Listed(runs), ExitCode::fileTrouble);
    }
    if (fitting.size() > 1) {
        Fail(place, "several runs: " + Listed(fitting) + "; choose one with --name, --run or both",
             ExitCode::badUsage);
    }
    return fitting.front();
}

std::vector<FoundRun> FindRuns(const fs::path& root, const RunFilter& wanted, Problems& problems) {
    std::vector<FoundRun> found;
    std::vector<fs::path> folders = {root};
    while (!folders.empty() && !IsInterrupted()) {
        const fs::path folder = folders.back();
        folders.pop_back();
        Collect(problems, [&] {
            const std::vector<fs::path> entries = EntriesOf(folder, {});
            std::copy_if(
                entries.rbegin(), entries.rend(), std::back_inserter(folders),
                [](const fs::path& entry) { return fs::is_directory(fs::symlink_status(entry)); });
            const std::vector<Run> runs = RunsAmong(entries);
            if (!FittingRuns(runs, wanted).empty()) {
                found.push_back({OnlyRun(runs, folder, wanted), folder, {}});
            }
        });
    }
    return found;
}

std::string RecipeNameOf(const Run& run) {
    return run.name + run.number + ".toml";
}

void NameRecipes(const fs::path& root, const fs::path& output, std::vector<FoundRun>& found) {
    std::map<std::string, int> users;
    for (const FoundRun& one : found) {
        ++users[RecipeNameOf(one.run)];
    }
    for (FoundRun& one : found) {
        std::string front;
        for (const fs::path& part : one.folder.lexically_relative(root)) {
            front += part == "." ? "" : Utf8Of(part) + "-";
        }
        const std::string name = RecipeNameOf(one.run);
        one.recipeFile = output / PathOf(users[name] > 1 ? front + name : name);
    }
}

}  // namespace host
