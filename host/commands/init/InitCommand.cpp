// The command "init": looks at the names of a run folder's files and writes a recipe from them.
#include <memory>
#include <set>

#include "commands/Commands.h"
#include "commands/Surroundings.h"
#include "commands/init/FindRuns.h"
#include "commands/init/NewRecipe.h"
#include "console/Report.h"
#include "problems/VisibleText.h"
#include "system/HostPlatform.h"
#include "system/SafeFile.h"
#include "system/Signals.h"

namespace host {

namespace {

namespace fs = std::filesystem;

struct InitOptions {
    std::string folder;
    std::optional<std::string> output;
    RunFilter wanted;
    bool all = false;
    bool force = false;
};

/// Returns false when a signal has come, which may have ended a call of the engine.
bool SaveRecipe(const fs::path& path, const std::string& text, bool mayReplace) {
    const std::string file = Utf8Of(path);
    std::error_code unknown;
    if (fs::is_directory(path, unknown)) {
        Fail({file}, "is a folder, not a recipe", ExitCode::fileTrouble);
    }
    bool isInTime = true;
    const Look look = [&]() -> std::optional<FilePlace> {
        FilePlace place = LookAtPlace(path);
        if (place.isTaken && !mayReplace) {
            Fail({file}, "already exists; use --force to replace it", ExitCode::fileTrouble);
        }
        RefuseNameOfRun(place, {file});
        isInTime = !IsInterrupted();
        if (place.file.parent_path() != path.parent_path()) {  // behind a link
            RemoveLeftOvers(place.file.parent_path(), fs::file_type::regular);
        }
        return isInTime ? std::optional(place) : std::nullopt;
    };
    const std::string reason = ReplaceFile(look, text);
    if (!reason.empty()) {
        FailToWrite({file}, reason);
    }
    return isInTime;
}

/// The document's entry; none when a signal has come.
std::optional<Json> WriteRecipe(const FoundRun& found, const InitOptions& options,
                                Terminal& terminal) {
    const Run& run = found.run;
    const std::string file = Utf8Of(found.recipeFile);
    if (!SaveRecipe(found.recipeFile, TextOfNewRecipe(found), options.force)) {
        return std::nullopt;
    }
    terminal.news << "wrote    " << Visible(file) << " for " << Visible(run.name) << ", run "
                  << run.Number() << std::endl;
    return Json{{"recipe", file}, {"project", run.name}, {"run", run.Number()}};
}

ExitCode WriteAll(const fs::path& root, const fs::path& output, const InitOptions& options,
                  Terminal& terminal) {
    Problems problems;
    CheckFolder(Utf8Of(output), {});
    std::vector<FoundRun> found = FindRuns(root, options.wanted, problems);
    if (found.empty() && problems.empty() && !IsInterrupted()) {
        Fail({Utf8Of(root)}, "no matching run in this folder or below it", ExitCode::fileTrouble);
    }
    CheckOpenFileLimit(found.size());
    RemoveLeftOvers(output, fs::file_type::regular);
    NameRecipes(root, output, found);
    std::set<std::string> written;
    Json list = Json::array();
    for (const FoundRun& one : found) {
        if (IsInterrupted()) {
            break;
        }
        Collect(problems, [&] {
            if (!written.insert(FileIdentity(one.recipeFile)).second) {
                Fail({Utf8Of(one.recipeFile)},
                     "already written for another run, so it was not written for " +
                         Utf8Of(one.folder),
                     ExitCode::fileTrouble);
            }
            if (const auto entry = WriteRecipe(one, options, terminal)) {
                list.push_back(*entry);
            }
        });
    }
    const std::string counts =
        std::to_string(list.size()) + " written, " + std::to_string(problems.size()) + " failed";
    if (IsInterrupted()) {
        problems.emplace_back(
            Place{}, "interrupted: " + counts + ", of " + std::to_string(found.size()) + " runs",
            ExitCode::fileTrouble);
    } else {
        terminal.news << counts << std::endl;
    }
    return Report(problems, terminal.options, {{"recipes", list}});
}

ExitCode RunInit(const InitOptions& options, Terminal& terminal) {
    const Surroundings host(terminal);
    const fs::path& start = host.scratch.Start();
    const fs::path folder = PathOf(AbsolutePath(options.folder, start));
    CheckFolder(Utf8Of(folder), {});
    if (options.all) {
        return WriteAll(folder, OutputPath(options.output.value_or("."), start), options, terminal);
    }
    const Run run = OnlyRun(RunsAmong(EntriesOf(folder, {})), folder, options.wanted);
    const fs::path file = OutputPath(options.output.value_or(RecipeNameOf(run)), start);
    RemoveLeftOvers(file.parent_path(), fs::file_type::regular);
    const std::optional<Json> entry = WriteRecipe({run, folder, file}, options, terminal);
    if (!entry) {
        Fail({}, "interrupted: no recipe was written", ExitCode::fileTrouble);
    }
    return Report({}, terminal.options, *entry);
}

}  // namespace

RunFunction AddInit(Arguments& arguments) {
    const auto options = std::make_shared<InitOptions>();
    arguments.Word("RUN_FOLDER", options->folder, "Folder with the run's files");
    arguments.Value("-o,--output", "FILE", options->output,
                    "Recipe to write, by default named like\n"
                    "Cover02.toml; with --all, folder for the recipes");
    arguments.Value("--name", "NAME", options->wanted.name,
                    "Project name, if the folder has several projects");
    arguments.Value("--run", "NUMBER", options->wanted.number,
                    "Run number, if the folder has several runs");
    arguments.Flag("--all", options->all, "Write a recipe for RUN_FOLDER and each below it");
    arguments.Flag("--force", options->force, "Replace an existing recipe");
    return [options](Terminal& terminal) { return RunInit(*options, terminal); };
}

}  // namespace host
