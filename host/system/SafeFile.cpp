#include "system/SafeFile.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "system/InputFiles.h"
#include "system/Paths.h"
#include "system/SystemFiles.h"

namespace host {

namespace fs = std::filesystem;

namespace {

/// What all temporary names of this machine start with; the process follows.
const std::string& TemporaryStart() {
    static const std::string start = "zorbi2-" + MachineMark() + "-";
    return start;
}

/// Whether the process that a temporary name tells of is gone. One with this process's own number
/// is: numbers of processes are used again, and nothing of this process is there while it looks.
bool IsLeftOver(std::string_view name) {
    name.remove_prefix(TemporaryStart().size());
    unsigned long process = 0;
    const auto end = std::from_chars(name.data(), name.data() + name.size(), process);
    return end.ec == std::errc() && process > 0 &&
           (process == ProcessNumber() || !IsRunning(process));
}

/// None when it cannot be read.
std::vector<std::string> NamesIn(const fs::path& folder, std::string_view start) {
    std::vector<std::string> names;
    AddNamesIn(folder, start, names);
    return names;
}

void RemoveFilesIn(const fs::path& folder) {
    std::error_code ignored;
    for (const std::string& name : NamesIn(folder, "")) {
        fs::remove(folder / PathOf(name), ignored);
    }
}

/// Why a folder takes no new file, if so.
std::string ReasonAgainstFolder(const fs::path& folder) {
    std::error_code error;
    const fs::file_status status = fs::status(folder, error);
    if (!fs::exists(status)) {
        return fs::status_known(status) ? "its folder does not exist, and is not created"
                                        : ReasonOf(error);
    }
    if (!fs::is_directory(status)) {
        return std::strerror(ENOTDIR);
    }
    if (fs::equivalent(folder, ".", error)) {
        return "the folder is zorbi2's temporary one, which is removed at the end";
    }
    error = CheckWritable(folder);
    return error ? ReasonOf(error) : std::string();
}

/// Why what is at the place cannot be replaced, if so.
std::string ReasonAgainstReplacing(const FilePlace& place, const fs::file_status& status) {
    if (fs::is_directory(status)) {
        return std::strerror(EISDIR);
    }
    if (!place.isTaken) {
        return "it is a pipe or a device, not a regular file";
    }
    const std::error_code error = CheckWritable(place.file);
    return error ? ReasonOf(error) : std::string();
}

/// Makes of a link the path that it leads to. Returns why it does not, if so.
std::string Follow(fs::path& file) {
    constexpr int most = 40;  // as the system
    for (int followed = 0; followed < most; ++followed) {
        const Link link = LookAtLink(file);
        if (!link.isThere) {
            std::error_code unknown;
            const bool leadsNowhere = followed > 0 && fs::symlink_status(file, unknown).type() ==
                                                          fs::file_type::not_found;
            return leadsNowhere ? "it is a symbolic link to a file that does not exist" : "";
        }
        if (link.error) {
            return ReasonOf(link.error);
        }
        if (!link.isTrusted) {
            return "it is a symbolic link of another user";
        }
        file = file.parent_path() / link.target;
    }
    return std::strerror(ELOOP);
}

}  // namespace

FilePlace LookAtPlace(const fs::path& file) {
    FilePlace place{file, false, {}, {}};
    place.reason = Follow(place.file);
    if (!place.reason.empty()) {
        return place;
    }
    std::error_code error;
    const fs::file_status status = fs::symlink_status(place.file, error);
    if (fs::exists(status)) {
        place.isTaken = fs::is_regular_file(status);
        place.reason = ReasonAgainstReplacing(place, status);
    } else if (!fs::status_known(status)) {
        place.reason = ReasonOf(error);
    }
    if (place.reason.empty()) {
        place.reason = ReasonAgainstFolder(place.file.parent_path());
    }
    return place;
}

std::string StartOf(FilePlace& place) {
    std::string start;
    place.read.emplace();
    if (const std::error_code error = ReadStart(place.file, largestFile, start, &*place.read)) {
        Fail({}, Utf8Of(place.file) + ": cannot be read: " + ReasonOf(error),
             ExitCode::fileTrouble);
    }
    return start;
}

std::string ReplaceFile(const Look& look, const std::string& bytes) {
    PutResult result;
    int triesLeft = 10;
    do {
        const std::optional<FilePlace> place = look();
        if (!place || !place->reason.empty()) {
            return place ? place->reason : std::string();
        }
        result = PutFile(place->file, TemporaryName(), bytes,
                         {place->isTaken && !place->read, place->read});
    } while (result.isAnotherThere && --triesLeft > 0);
    if (result.isAnotherThere) {
        return "another file has appeared there in the meantime";
    }
    const std::string reason = result.error ? ReasonOf(result.error) : std::string();
    return result.isInPlace && !reason.empty()
               ? "the new file is in place, but its folder could not be flushed to disk: " + reason
               : reason;
}

void FailToWrite(const Place& place, const std::string& reason) {
    Fail(place, "cannot be written: " + reason, ExitCode::fileTrouble);
}

std::string TemporaryName() {
    std::array<char, 2 * sizeof(std::uint64_t)> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), RandomNumber(), 16).ptr;
    return TemporaryStart() + std::to_string(ProcessNumber()) + '-' +
           std::string(digits.data(), end);
}

void RemoveLeftOvers(const fs::path& folder, fs::file_type type) {
    std::error_code ignored;
    for (const std::string& name : NamesIn(folder, TemporaryStart())) {
        const fs::path path = folder / PathOf(name);
        if (IsLeftOver(name) && IsOwn(path) && fs::symlink_status(path, ignored).type() == type) {
            if (type == fs::file_type::directory) {  // else a link in its place would be followed
                RemoveFilesIn(path);
            }
            fs::remove(path, ignored);
        }
    }
}

}  // namespace host
