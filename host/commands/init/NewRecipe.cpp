#include "commands/init/NewRecipe.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <map>
#include <string_view>

#include "console/Report.h"
#include "handover/Session.h"
#include "problems/VisibleText.h"
#include "recipes/RecipeText.h"
#include "system/HostPlatform.h"
#include "system/Paths.h"

namespace host {

namespace {

namespace fs = std::filesystem;

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

std::string Filled(const Recipe& recipe, const fs::path& home) {
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

}  // namespace

std::string TextOfNewRecipe(const FoundRun& found) {
    if (!IsInFileNames(found.run.name)) {
        Fail({}, Quoted(found.run.name) + " is not " + fileNameRule, ExitCode::fileTrouble);
    }
    const Recipe recipe = RecipeOf(found.run, Utf8Of(found.folder));
    CheckRun(recipe);
    return Filled(recipe, found.recipeFile.parent_path());
}

}  // namespace host
