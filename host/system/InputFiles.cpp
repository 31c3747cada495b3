#include "system/InputFiles.h"

#include <cerrno>
#include <cstdio>
#include <utility>

#include "system/HostPlatform.h"
#include "system/SystemFiles.h"

namespace host {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& file, const Place& place) {
    std::error_code unknown;
    const fs::file_status status = fs::status(file, unknown);
    const bool isFolder = fs::is_directory(status);
    if (fs::exists(status) && !isFolder && !fs::is_regular_file(status)) {
        Fail(place, "cannot be read: it is a pipe or a device, not a regular file",
             ExitCode::fileTrouble);
    }
    std::string bytes;
    std::error_code error = ReadStart(file, largestFile + 1, bytes);
    if (isFolder || bytes.size() > largestFile) {
        error = {isFolder ? EISDIR : EFBIG, std::generic_category()};
    }
    if (error) {
        Fail(place, "cannot be read: " + ReasonOf(error), ExitCode::fileTrouble);
    }
    return bytes;
}

std::string ReadStandardInput(const Place& place) {
    static bool isRead = false;
    if (std::exchange(isRead, true)) {
        Fail(place, "standard input can be read only once", ExitCode::badUsage);
    }
    std::string bytes(largestFile + 1, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), stdin));  // std::cin hides errors
    if (std::ferror(stdin) != 0 || bytes.size() > largestFile) {
        FailFor(bytes.size() > largestFile ? EFBIG : errno, place, "cannot be read");
    }
    return bytes;
}

void CheckRegularFile(const fs::path& file, std::uintmax_t largest, const Place& place) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (!fs::exists(status)) {
        return;
    }
    const std::string name = Utf8Of(file);
    if (!fs::is_regular_file(status)) {
        Fail(place,
             name + " is " + (fs::is_directory(status) ? "a folder" : "a pipe or a device") +
                 ", not a regular file",
             ExitCode::fileTrouble);
    }
    const std::uintmax_t size = fs::file_size(file, error);
    if (!error && size > largest) {
        Fail(place,
             name + ": " + std::to_string(size) + " bytes, but the limit is " +
                 std::to_string(largest),
             ExitCode::fileTrouble);
    }
    std::string start;
    if ((error = ReadStart(file, 1, start))) {
        Fail(place, name + ": cannot be read: " + ReasonOf(error), ExitCode::fileTrouble);
    }
}

}  // namespace host
