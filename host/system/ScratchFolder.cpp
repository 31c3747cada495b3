#include "system/ScratchFolder.h"

#include <string>

#include "problems/Problem.h"
#include "system/Paths.h"
#include "system/SafeFile.h"
#include "system/Signals.h"
#include "system/SystemFiles.h"

namespace host {

namespace fs = std::filesystem;

namespace {

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
    std::string reason = error ? ReasonOf(error) : std::string();
    if (!error) {
        // Elsewhere others may have put a folder with such a name there.
        if (IsSafeFromOthers(parent)) {
            RemoveLeftOvers(parent, fs::file_type::directory);
        }
        path_ = parent / TemporaryName();
        reason = EnterNewFolder(path_);
    }
    if (!reason.empty()) {
        const std::string where = temporary.empty() ? "" : " in " + Utf8Of(parent);
        Fail({}, "cannot create a temporary folder" + where + ": " + reason, ExitCode::fileTrouble);
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
