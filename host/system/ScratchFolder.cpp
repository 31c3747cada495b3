#include "system/ScratchFolder.h"

#include <string>
#include <vector>

#include "problems/Problem.h"
#include "system/Paths.h"
#include "system/SafeFile.h"
#include "system/Signals.h"
#include "system/SystemFiles.h"

namespace host {

namespace fs = std::filesystem;

namespace {

bool IsOwnAndEmpty(const fs::path& folder) {
    std::vector<std::string> names;
    return IsOwn(folder) && !AddNamesIn(folder, "", names) && names.empty();
}

const ScratchFolder* current = nullptr;

}  // namespace

ScratchFolder::ScratchFolder() {
    KeepSignals();
    std::error_code error;
    start_ = fs::current_path(error);
    if (error) {
        Fail({}, "the current folder cannot be used: " + ReasonOf(error), ExitCode::fileTrouble);
    }
    if (start_ != PathOfAny(Utf8Of(start_))) {
        Fail({},
             "the current folder cannot be used: a backslash in its name would be taken for a "
             "separator",
             ExitCode::fileTrouble);
    }
    const fs::path temporary = fs::temp_directory_path(error);
    const fs::path parent = start_ / temporary;
    // Where all may rename, a folder can be another one by the time that it is used.
    const bool mayBeAnother = !error && MayAllRename(parent);
    if (!error) {
        if (!mayBeAnother) {
            RemoveLeftOvers(parent, fs::file_type::directory);
        }
        path_ = parent / TemporaryName();
        error = MakePrivateFolder(path_);
    }
    if (!error) {
        fs::current_path(path_, error);
    }
    if (!error && mayBeAnother && !IsOwnAndEmpty(".")) {
        fs::current_path(start_, error);
        Fail({}, "another folder has taken the place of " + Utf8Of(path_), ExitCode::fileTrouble);
    }
    if (error) {
        std::error_code ignored;
        fs::remove(path_, ignored);
        const std::string where = temporary.empty() ? "" : " in " + Utf8Of(parent);
        Fail({}, "cannot create a temporary folder" + where + ": " + ReasonOf(error),
             ExitCode::fileTrouble);
    }
    current = this;
}

ScratchFolder::~ScratchFolder() {
    Remove();
}

void ScratchFolder::RemoveCurrent() {
    if (current != nullptr) {
        current->Remove();
    }
}

void ScratchFolder::Remove() const {
    current = nullptr;
    RemoveFilesHere();  // in the folder itself, whatever has its path by now
    std::error_code ignored;
    fs::current_path(start_, ignored);
    fs::remove(path_, ignored);
}

}  // namespace host
