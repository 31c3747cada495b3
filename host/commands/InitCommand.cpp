// The command "init": looks at the names of a run folder's files and writes a recipe from them.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <string_view>

#include "commands/Commands.h"
#include "commands/RecipeCommand.h"
#include "console/Report.h"
#include "handover/Session.h"
#include "recipes/RecipeText.h"
#include "system/SafeFile.h"

namespace host {

namespace {

namespace fs = std::filesystem;

struct InitOptions {
    std::string runFolder;
    std::optional<std::string> recipeFile;
    bool force = false;
};

/// A run as its files tell it.
struct Run {
    std::string name;
    std::string number;             ///< as file names have it
    std::set<std::string> endings;  ///< what follows the number: ".k5f", "_vox.k5o"

    bool Has(std::initializer_list<const char*> wanted) const {
        return std::ranges::any_of(wanted,
                                   [this](auto ending) { return endings.contains(ending); });
    }
};

/// The runs of a folder whose numbers match a pattern, by name and number.
std::map<std::string, Run> RunsIn(const fs::path& folder, const std::string& number) {
    const std::regex pattern("(.+)(" + number + ")((_medi|_vox)?\\.[^.]+)");
    std::map<std::string, Run> runs;
    std::smatch match;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        const std::string file = Utf8Of(entry.path().filename());
        if (std::regex_match(file, match, pattern)) {
            Run& run = runs[match.str(1) + match.str(2)];
            run.name = match.str(1);
            run.number = match.str(2);
            run.endings.insert(match.str(3));
        }
    }
    return runs;
}

/// The run that most files of a folder belong to. Its number is the one in which the folder's name
/// ends, or else has two digits.
Run FindRun(const fs::path& folder) {
    std::smatch match;
    std::vector<std::string> numbers = {"[0-9]{2}"};
    const std::string folderName = Utf8Of(folder.filename());
    if (std::regex_search(folderName, match, std::regex("[0-9]{2,9}$"))) {
        numbers.insert(numbers.begin(), match.str());
    }
    for (const std::string& number : numbers) {
        const std::map<std::string, Run> runs = RunsIn(folder, number);
        if (!runs.empty()) {
            return std::ranges::max_element(
                       runs, {}, [](const auto& entry) { return entry.second.endings.size(); })
                ->second;
        }
    }
    Fail({Utf8Of(folder)}, "no file is named after a project and a run, as Cover02.k5o is",
         ExitCode::fileTrouble);
}

Recipe RecipeOf(const Run& run, const std::string& folder) {
    using Info = CZorbFEAInformation;
    Recipe recipe;
    Info& project = recipe.project;
    project.projectName = run.name;
    project.runNumber = std::stoi(run.number);
    project.projectFolder = folder;
    const bool isShell = run.Has({".rso", ".rsp", ".rsg", ".rsr", ".rsc"}) &&
                         !run.Has({".k5o", "_vox.k5o", ".k5f", ".k5p", ".k5c", ".k5w"});
    project.solverType = isShell ? kShellProject : kSolidProject;
    project.voxelFlag = run.Has({"_vox.k5o"}) ? 1 : 0;
    project.flags[Info::kHasFiber] = run.Has({".o2w", ".k5o", "_vox.k5o", ".rso"}) ? 1 : 0;
    project.flags[Info::kHasInsertedPart] = run.Has({".cmx"}) ? 1 : 0;
    recipe.meshKind = project.voxelFlag == 1 ? kMeshMapped : kMeshOriginal;
    return recipe;
}

std::string TomlText(const std::string& text) {
    return Quoted(std::regex_replace(text, std::regex(R"([\\"])"), "\\$&"));
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

std::string TextOf(const Recipe& recipe, const fs::path& home) {
    Session session(recipe);
    const CZorbFEAInformation& project = recipe.project;
    const fs::path folder = PathOf(project.projectFolder).lexically_proximate(home);
    const std::u8string generic = folder.generic_u8string();
    const std::map<std::string, std::string> values = {
        {"name", TomlText(project.projectName)},
        {"run", std::to_string(project.runNumber)},
        {"folder", TomlText({generic.begin(), generic.end()})},
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

ExitCode RunInit(const InitOptions& options, Terminal& terminal) {
    const Surroundings host(terminal);
    const std::string folder = AbsolutePath(options.runFolder, host.scratch.Start());
    CheckFolder(folder, {});
    const Run run = FindRun(PathOf(folder));
    const Recipe recipe = RecipeOf(run, folder);
    CheckFilesOfRun(recipe);
    const std::string file = AbsolutePath(
        options.recipeFile.value_or(run.name + run.number + ".toml"), host.scratch.Start());
    const fs::path path = PathOf(file);
    if (fs::exists(path) && !options.force) {
        Fail({file}, "already exists; --force replaces it", ExitCode::fileTrouble);
    }
    const std::string reason = ReplaceFile(path, TextOf(recipe, path.parent_path()));
    if (!reason.empty()) {
        Fail({file}, "cannot be written: " + reason, ExitCode::fileTrouble);
    }
    terminal.news << "wrote    " << file << " for " << run.name << ", run "
                  << recipe.project.runNumber << '\n';
    return Report({}, terminal.options,
                  {{"recipe", file}, {"project", run.name}, {"run", recipe.project.runNumber}});
}

}  // namespace

RunFunction AddInit(CLI::App& commandLine) {
    const auto options = std::make_shared<InitOptions>();
    commandLine.add_option("RUN_FOLDER", options->runFolder, "Folder with the run's files")
        ->required();
    commandLine.add_option("-o,--output", options->recipeFile, "Recipe to write, else NAME.toml")
        ->type_name("FILE");
    commandLine.add_flag("--force", options->force, "Replace an existing recipe");
    return [options](Terminal& terminal) { return RunInit(*options, terminal); };
}

}  // namespace host
