#include "system/Paths.h"

#include <algorithm>
#include <cctype>

#include "system/HostPlatform.h"

namespace host {

namespace fs = std::filesystem;

namespace {

/// With ".." after a link as the system takes it: from where the link leads to. Windows goes by
/// the names.
fs::path WithoutLinksBeforeUp(const fs::path& path) {
    constexpr bool goesByNames = fs::path::preferred_separator != '/';
    if (goesByNames || std::ranges::find(path, "..") == path.end()) {
        return path;
    }
    fs::path walked;
    for (const fs::path& part : path) {
        std::error_code unknown;
        if (part != ".." && part != ".") {
            walked /= part;
        } else if (part == "..") {
            const fs::path target =
                fs::is_symlink(walked, unknown) ? fs::canonical(walked, unknown) : walked;
            walked = (unknown ? walked : target).parent_path();
        }
    }
    return walked;
}

}  // namespace

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

std::string ForEngine(const std::string& utf8) {
    const std::optional<std::string> text = ToEngineText(utf8);
    if (!text) {
        Fail({}, "\"" + utf8 + "\" contains characters that are not in the system code page",
             ExitCode::fileTrouble);
    }
    return *text;
}

}  // namespace host
