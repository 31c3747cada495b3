#include "system/ScratchFolder.h"

#include "problems/Problem.h"
#include "system/Paths.h"
#include "system/SafeFile.h"
#include "system/Signals.h"
#include "system/SystemFiles.h"

namespace host {

namespace fs = std::filesystem;

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
    if (!error) {
        RemoveLeftOvers(parent, fs::file_type::directory);
        path_ = parent / TemporaryName();
        error = MakePrivateFolder(path_);
    }
    if (!error) {
        fs::current_path(path_, error);
    }
    if (error) {
        std::error_code ignored;
        fs::remove(path_, ignored);
        const std::string where = temporary.empty() ? "" : " in " + Utf8Of(parent);
        Fail({}, "no temporary folder can be made" + where + ": " + ReasonOf(error),
             ExitCode::fileTrouble);
    }
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::current_path(start_, ignored);
    fs::remove_all(path_, ignored);
}

}  // namespace host
