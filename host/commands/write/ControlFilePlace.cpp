#include "commands/write/ControlFilePlace.h"

#include <zorbi2/ControlFileFormat.h>

#include "handover/RunFolder.h"
#include "system/HostPlatform.h"
#include "system/Paths.h"

namespace host {

namespace {

namespace fs = std::filesystem;

/// Whether a file is named as those of a run, the recipe's or an earlier one, and stands with them.
bool IsOfRun(const fs::path& file, const Recipe& recipe) {
    const fs::path folder = PathOf(recipe.project.projectFolder);
    const std::string start = FileIdentity(folder / PathOf(recipe.project.projectName));
    const std::string name = FileIdentity(file);
    return name.starts_with(start) && name.size() > start.size() && name[start.size()] >= '0' &&
           name[start.size()] <= '9';
}

}  // namespace

bool IsControlFile(const std::string& text) {
    const std::string first = kControlFileLines[0].text;
    return text.starts_with(first + "\n") || text.starts_with(first + "\r\n");
}

ControlFilePlace LookAtControlFile(const fs::path& file, const Recipe& recipe, bool isRead,
                                   bool isForced) {
    const std::string name = Utf8Of(file) + ": ";
    ControlFilePlace there{LookAtPlace(file), {}};
    if (!there.reason.empty()) {
        Fail({}, name + "cannot be written: " + there.reason, ExitCode::fileTrouble);
    }
    if (isRead) {
        Fail(
            {},
            name + "is an input of this command (a recipe or a mapped mesh), so it is not replaced",
            ExitCode::fileTrouble);
    }
    there.text = there.isTaken ? StartOf(there) : std::string();
    if (!there.isTaken || IsControlFile(there.text)) {
        return there;
    }
    if (IsOfRun(file, recipe) || IsNamedAsOfARun(there.file)) {
        Fail({}, name + "is named like a file of a run, so it is not replaced; choose another name",
             ExitCode::fileTrouble);
    }
    if (!there.text.empty() && !isForced) {  // with an empty file nothing is lost
        Fail({}, name + "is not a control parameter file; use --force to replace it",
             ExitCode::fileTrouble);
    }
    return there;
}

}  // namespace host
