#include "commands/write/ControlFilePlace.h"

#include "control_files/ControlFile.h"
#include "handover/RunFolder.h"
#include "system/HostPlatform.h"

namespace host {

namespace fs = std::filesystem;

Place PlaceOf(const fs::path& controlFile) {
    return {{}, 0, 0, Utf8Of(controlFile)};
}

ControlFilePlace LookAtControlFile(const fs::path& file, const Recipe& recipe, bool isRead,
                                   Replaces replaces) {
    const Place place = PlaceOf(file);
    ControlFilePlace there{LookAtPlace(file)};
    there.isKept = there.isTaken && replaces == Replaces::nothing;
    if (!there.isKept && !there.reason.empty()) {
        FailToWrite(place, there.reason);
    }
    if (isRead) {
        Fail(place,
             "is an input of this command (a recipe or a mapped mesh), so it is not replaced",
             ExitCode::fileTrouble);
    }
    if (there.isKept) {
        return there;
    }
    there.text = there.isTaken ? StartOf(there) : std::string();
    if (IsControlFile(there.text)) {
        return there;
    }
    RefuseNameOfRun(there, recipe, place);
    // With an empty file nothing is lost.
    if (!there.text.empty() && replaces != Replaces::anyFile) {
        Fail(place, "is not a control parameter file; use --force to replace it",
             ExitCode::fileTrouble);
    }
    return there;
}

}  // namespace host
