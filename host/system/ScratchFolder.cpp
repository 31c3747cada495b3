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

/// The user's. Throws a Failure for one that the engine cannot be given.
fs::path CurrentFolder() {
    std::error_code error;
    fs::path folder = fs::current_path(error);
    if (error) {
        Fail({}, "the current folder cannot be used: " + ReasonOf(error), ExitCode::fileTrouble);
    }
    if (folder != PathOfAny(Utf8Of(folder))) {
        Fail({},
             "the current folder cannot be used: a backslash in its name would be taken for a "
             "separator",
             ExitCode::fileTrouble);
    }
    return folder;
}

const ScratchFolder* current = nullptr;

}  // namespace

ScratchFolder::ScratchFolder() {
    KeepSignals();
    start_ = CurrentFolder();
    std::error_code error;
    const fs::path temporary = fs::temp_directory_path(error);
    const fs::path parent = start_ / temporary;
    if (!error) {
        error = EnterNewFolderIn(parent);
    }
    if (error) {
        const std::string where = temporary.empty() ? "" : " in " + Utf8Of(parent);
        Fail({}, "cannot create a temporary folder" + where + ": " + ReasonOf(error),
             ExitCode::fileTrouble);
    }
    current = this;
}

std::error_code ScratchFolder::EnterNewFolderIn(const fs::path& parent) {
    // Where all may rename, a folder can be another one by the time that it is used.
    const bool mayBeAnother = MayAllRename(parent);
    if (!mayBeAnother) {
        RemoveLeftOvers(parent, fs::file_type::directory);
    }
    path_ = parent / TemporaryName();
    std::error_code error = MakePrivateFolder(path_);
    if (error) {
        return error;
    }
    fs::current_path(path_, error);
    std::error_code ignored;
    if (!error && mayBeAnother && !IsOwnAndEmpty(".")) {
        fs::current_path(start_, ignored);
        error = std::make_error_code(std::errc::operation_not_permitted);
    } else if (error) {
        fs::remove(path_, ignored);
    }
    return error;
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
