#include "commands/write/ControlFilePlace.h"

#include <cerrno>
#include <fstream>

#include <zorbi2/ControlFileFormat.h>

#include "handover/RunFolder.h"
#include "system/HostPlatform.h"
#include "system/Paths.h"
#include "system/SafeFile.h"

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

std::string StartOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        FailFor(errno, {}, Utf8Of(file) + ": cannot be read");
    }
    return ReadBytes(stream, largestFile);
}

bool IsControlFile(const std::string& text) {
    const std::string first = kControlFileLines[0].text;
    return text.starts_with(first + "\n") || text.starts_with(first + "\r\n");
}

ControlFilePlace LookAtControlFile(const fs::path& file, const Recipe& recipe, bool isRead,
                                   bool isForced) {
    const std::string name = Utf8Of(file) + ": ";
    const FilePlace place = LookAtPlace(file);
    if (!place.reason.empty()) {
        Fail({}, name + "cannot be written: " + place.reason, ExitCode::fileTrouble);
    }
    if (isRead) {
        Fail({},
             name + "is a recipe or a file that a recipe of this call reads, and is not replaced",
             ExitCode::fileTrouble);
    }
    ControlFilePlace there{place.file.parent_path(), place.isTaken,
                           place.isTaken ? StartOf(place.file) : std::string()};
    if (!there.isTaken || IsControlFile(there.text)) {
        return there;
    }
    if (IsOfRun(file, recipe) || IsNamedAsOfARun(place.file)) {
        Fail({}, name + "is a file of a run, and is not replaced", ExitCode::fileTrouble);
    }
    if (!there.text.empty() && !isForced) {  // with an empty file nothing is lost
        Fail({}, name + "is not a control parameter file; --force replaces it",
             ExitCode::fileTrouble);
    }
    return there;
}

}  // namespace host
