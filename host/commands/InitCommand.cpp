// The command "init": looks at the names of a run folder's files and writes a recipe from them.
#include <algorithm>
#include <array>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <string_view>

#include "commands/Commands.h"
#include "commands/RecipeCommand.h"
#include "console/Report.h"
#include "handover/RunFolder.h"
#include "handover/Session.h"
#include "problems/VisibleText.h"
#include "recipes/RecipeText.h"
#include "system/HostPlatform.h"
#include "system/SafeFile.h"
#include "system/Signals.h"

namespace host {

namespace {

namespace fs = std::filesystem;

struct InitOptions {
    std::string folder;
    std::optional<std::string> output;
    std::optional<std::string> name;
    std::optional<std::int32_t> number;
    bool all = false;
    bool force = false;
};

/// A run, where it lies, and the recipe that it gets.
struct FoundRun {
    Run run;
    fs::path folder;
    fs::path recipeFile;
};

// ---- Which run --------------------------------------------------------------------------------

/// The runs of a folder that are what the command line asks for.
std::vector<Run> FittingRuns(const std::vector<Run>& runs, const InitOptions& options) {
    std::vector<Run> fitting;
    std::ranges::copy_if(runs, std::back_inserter(fitting), [&](const Run& run) {
        return run.name == options.name.value_or(run.name) &&
               run.Number() == options.number.value_or(run.Number());
    });
    return fitting;
}

/// The only run of a folder that fits; nothing is guessed.
Run OnlyRun(const std::vector<Run>& runs, const fs::path& folder, const InitOptions& options) {
    const Place place{Utf8Of(folder)};
    const std::vector<Run> fitting = FittingRuns(runs, options);
    if (runs.empty()) {
        Fail(place,
             "no result files found; they have names like Cover02.k5o (project and run number)",
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

// ---- Its recipe -------------------------------------------------------------------------------

bool Has(const Run& run, std::initializer_list<const char*> wanted) {
    return std::ranges::any_of(wanted,
                               [&run](auto ending) { return run.endings.contains(ending); });
}

Recipe RecipeOf(const Run& run, const std::string& folder) {
    using Info = CZorbFEAInformation;
    Recipe recipe;
    Info& project = recipe.project;
    project.projectName = run.name;
    project.runNumber = run.Number();
    project.projectFolder = folder;
    const bool isShell = Has(run, {".rso", ".rsp", ".rsg", ".rsr", ".rsc"}) &&
                         !Has(run, {".k5o", "_vox.k5o", ".k5f", ".k5p", ".k5c", ".k5w"});
    project.solverType = isShell ? kShellProject : kSolidProject;
    project.voxelFlag = Has(run, {"_vox.k5o"}) ? 1 : 0;
    project.flags[Info::kHasFiber] = Has(run, {".o2w", ".k5o", "_vox.k5o", ".rso"}) ? 1 : 0;
    project.flags[Info::kHasInsertedPart] = Has(run, {".cmx"}) ? 1 : 0;
    recipe.meshKind = project.voxelFlag == 1 ? kMeshMapped : kMeshOriginal;
    return recipe;
}

/// Text of file names as TOML, which escapes quotes as JSON does. Throws a Failure
/// for what a recipe cannot hold.
std::string TomlText(const std::string& text) {
    if (std::ranges::any_of(text, IsControl)) {
        Fail({}, Quoted(text) + " contains control characters, which are not allowed in a recipe",
             ExitCode::fileTrouble);
    }
    if (text.find('\\') != std::string::npos) {
        Fail({}, Quoted(text) + " contains a backslash, which a recipe would take for a separator",
             ExitCode::fileTrouble);
    }
    try {
        return Json(text).dump();
    } catch (const Json::type_error&) {
        Fail({}, Quoted(text) + " is not valid UTF-8, so a recipe cannot contain it",
             ExitCode::fileTrouble);
    }
}

std::string TomlFlag(std::int32_t flag) {
    return flag != 0 ? "true" : "false";
}

/// The items as they are when the recipe says nothing about them.
std::string ChoicesText(const std::vector<OfferedItem>& items) {
    std::string text;
    for (const OfferedItem& offered : items) {
        const std::string name = "\n# " + NameOf(offered.item.itemId, shortNames);
        const std::string choice = offered.IsSwitch() ? "off" : offered.Label();
        text += offered.IsMissing() ? name + ": " + offered.Label() : name + " = " + Quoted(choice);
    }
    return text;
}

/// Where editors find the schema of recipes: installed beside the program.
std::string SchemaAddress() {
    const fs::path data = (ProgramFolder() / dataFolder).lexically_normal();
    const std::u8string path = (data / "zorbi2" / "recipe.schema.json").generic_u8string();
    std::string address = path.starts_with(u8'/') ? "file://" : "file:///";
    for (const char8_t character : path) {
        const std::string_view special = " #%";
        const std::size_t which = special.find(static_cast<char>(character));
        constexpr std::array<const char*, 3> encoded = {"%20", "%23", "%25"};
        address += which == std::string_view::npos ? std::string(1, static_cast<char>(character))
                                                   : encoded.at(which);
    }
    return address;
}

/// The path of a folder from that of a recipe, as both are called, or, where a link is in the way,
/// as they are.
std::string FromRecipe(const fs::path& folder, const fs::path& home) {
    fs::path path = folder.lexically_proximate(home);
    std::error_code unknown;
    if (AbsolutePath(Utf8Of(path), home) != Utf8Of(folder)) {
        path = fs::proximate(folder, home, unknown);
    }
    const std::u8string generic = path.generic_u8string();
    const std::string text(generic.begin(), generic.end());
    const bool isMisread = text.starts_with('~') || (path.is_relative() && MayBeElsewhere(text));
    return (isMisread ? "./" : "") + text;
}

std::string TextOf(const Recipe& recipe, const fs::path& home) {
    Session session(recipe);
    const CZorbFEAInformation& project = recipe.project;
    const std::map<std::string, std::string> values = {
        {"schema", SchemaAddress()},
        {"name", TomlText(project.projectName)},
        {"run", std::to_string(project.runNumber)},
        {"folder", TomlText(FromRecipe(PathOf(project.projectFolder), home))},
        {"analysis", project.solverType == kShellProject ? "\"shell\"" : "\"solid\""},
        {"voxel", TomlFlag(project.voxelFlag)},
        {"fiber", TomlFlag(project.flags[CZorbFEAInformation::kHasFiber])},
        {"insert", TomlFlag(project.flags[CZorbFEAInformation::kHasInsertedPart])},
        {"mesh", Quoted(NameOf(recipe.meshKind, meshKinds))},
        {"choices", ChoicesText(session.Offer(recipe.solver, recipe.meshKind))}};
    std::string text;
    std::string_view rest = recipeText;
    for (std::size_t brace = 0; (brace = rest.find('{')) != std::string_view::npos;) {
        const std::size_t end = rest.find('}', brace);
        text.append(rest.substr(0, brace))
            .append(values.at(std::string(rest.substr(brace + 1, end - brace - 1))));
        rest.remove_prefix(end + 1);
    }
    return text.append(rest);
}

void SaveRecipe(const fs::path& path, const std::string& text, bool mayReplace) {
    const std::string file = Utf8Of(path);
    std::error_code unknown;
    if (fs::is_directory(path, unknown)) {
        Fail({file}, "is a folder, not a recipe", ExitCode::fileTrouble);
    }
    const Look look = [&] {
        const FilePlace place = LookAtPlace(path);
        if (place.isTaken && !mayReplace) {
            Fail({file}, "already exists; use --force to replace it", ExitCode::fileTrouble);
        }
        RefuseNameOfRun(place, {file});
        return place;
    };
    const std::string reason = ReplaceFile(look, text);
    if (!reason.empty()) {
        Fail({file}, "cannot be written: " + reason, ExitCode::fileTrouble);
    }
}

Json WriteRecipe(const FoundRun& found, const InitOptions& options, Terminal& terminal) {
    const Run& run = found.run;
    if (!IsInFileNames(run.name)) {
        Fail({}, Quoted(run.name) + " is not " + fileNameRule, ExitCode::fileTrouble);
    }
    const Recipe recipe = RecipeOf(run, Utf8Of(found.folder));
    CheckRun(recipe);
    const std::string file = Utf8Of(found.recipeFile);
    SaveRecipe(found.recipeFile, TextOf(recipe, found.recipeFile.parent_path()), options.force);
    terminal.news << "wrote    " << Visible(file) << " for " << Visible(run.name) << ", run "
                  << run.Number() << std::endl;
    return {{"recipe", file}, {"project", run.name}, {"run", run.Number()}};
}

// ---- All runs below a folder ------------------------------------------------------------------

/// The run folders below a folder, itself included. Links are not followed: they could lead in a
/// circle.
std::vector<FoundRun> FindRuns(const fs::path& root, const InitOptions& options,
                               Problems& problems) {
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
            if (!FittingRuns(runs, options).empty()) {
                found.push_back({OnlyRun(runs, folder, options), folder, {}});
            }
        });
    }
    return found;
}

/// Gives each run a recipe "Cover02.toml"; with the path of its folder in front where several would
/// have the same.
void NameRecipes(const fs::path& root, const fs::path& output, std::vector<FoundRun>& found) {
    std::map<std::string, int> users;
    const auto nameOf = [](const Run& run) { return run.name + run.number + ".toml"; };
    for (const FoundRun& one : found) {
        ++users[nameOf(one.run)];
    }
    for (FoundRun& one : found) {
        std::string front;
        for (const fs::path& part : one.folder.lexically_relative(root)) {
            front += part == "." ? "" : Utf8Of(part) + "-";
        }
        const std::string name = nameOf(one.run);
        one.recipeFile = output / PathOf(users[name] > 1 ? front + name : name);
    }
}

ExitCode WriteAll(const fs::path& root, const fs::path& output, const InitOptions& options,
                  Terminal& terminal) {
    Problems problems;
    CheckFolder(Utf8Of(output), {});
    std::vector<FoundRun> found = FindRuns(root, options, problems);
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
            list.push_back(WriteRecipe(one, options, terminal));
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
    const auto absolute = [&](const std::string& path) {
        return PathOf(AbsolutePath(path, host.scratch.Start()));
    };
    const fs::path folder = absolute(options.folder);
    CheckFolder(Utf8Of(folder), {});
    if (options.all) {
        return WriteAll(folder, absolute(options.output.value_or(".")), options, terminal);
    }
    const Run run = OnlyRun(RunsAmong(EntriesOf(folder, {})), folder, options);
    const fs::path file = absolute(options.output.value_or(run.name + run.number + ".toml"));
    RemoveLeftOvers(file.parent_path(), fs::file_type::regular);
    return Report({}, terminal.options, WriteRecipe({run, folder, file}, options, terminal));
}

}  // namespace

RunFunction AddInit(Arguments& arguments) {
    const auto options = std::make_shared<InitOptions>();
    arguments.Word("RUN_FOLDER", options->folder, "Folder with the run's files");
    arguments.Value("-o,--output", "FILE", options->output,
                    "Recipe to write, by default named like\n"
                    "Cover02.toml; with --all, folder for the recipes");
    arguments.Value("--name", "NAME", options->name,
                    "Project name, if the folder has several projects");
    arguments.Value("--run", "NUMBER", options->number,
                    "Run number, if the folder has several runs");
    arguments.Flag("--all", options->all, "Write recipes for RUN_FOLDER and all runs below it");
    arguments.Flag("--force", options->force, "Replace an existing recipe");
    return [options](Terminal& terminal) { return RunInit(*options, terminal); };
}

}  // namespace host
