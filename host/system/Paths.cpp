#include "system/Paths.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <utility>

#include "system/HostPlatform.h"
#include "system/SystemFiles.h"

namespace host {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}

fs::path PathOfAny(std::string utf8) {
    std::ranges::replace(utf8, '\\', '/');
    return PathOf(utf8).make_preferred();
}

bool MayBeElsewhere(const std::string& path) {
    const bool hasDrive =
        path.size() > 1 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0])) != 0;
    return hasDrive || path.rfind("\\\\", 0) == 0;
}

/// With ".." after a link as the system takes it: from where the link leads to. Windows goes by
/// the names.
fs::path WithoutLinksBeforeUp(const fs::path& path) {
    constexpr bool goesByNames = fs::path::preferred_separator != '/';
    fs::path walked;
    for (const fs::path& part : path) {
        std::error_code unknown;
        if (goesByNames || (part != ".." && part != ".")) {
            walked /= part;
        } else if (part == "..") {
            const fs::path target =
                fs::is_symlink(walked, unknown) ? fs::canonical(walked, unknown) : walked;
            walked = (unknown ? walked : target).parent_path();
        }
    }
    return walked;
}

std::string AbsolutePath(const std::string& path, const fs::path& relativeTo) {
    const fs::path absolute = WithoutLinksBeforeUp(relativeTo / PathOfAny(path)).lexically_normal();
    return Utf8Of(absolute.has_filename() ? absolute : absolute.parent_path());
}

void CheckFolder(const std::string& folder, const Place& place) {
    std::error_code error;
    if (!fs::is_directory(PathOf(folder), error)) {
        Fail(place, folder + ": " + (error ? ReasonOf(error) : "not a folder"),
             ExitCode::fileTrouble);
    }
}

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

std::string ForEngine(const std::string& utf8) {
    const std::optional<std::string> text = ToEngineText(utf8);
    if (!text) {
        Fail({}, "\"" + utf8 + "\" contains characters that are not in the system code page",
             ExitCode::fileTrouble);
    }
    return *text;
}

}  // namespace host
