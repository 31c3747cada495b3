// POSIX: the separator is the slash, names are case-sensitive, and a debugger output exists only
// where the host process provides one.
#include <sys/stat.h>

#include <array>
#include <climits>
#include <cstdio>
#include <cstring>
#include <string>

#include "platform/PlatformCalls.h"

// Weak: a host process may define it. Without one, trace lines go nowhere.
extern "C" [[gnu::weak]] void OutputDebugStringW(const wchar_t* line);

namespace platform {

namespace {

void UseSlashes(char* path) {
    while ((path = std::strchr(path, '\\')) != nullptr) {
        *path = '/';
    }
}

/// A path with slashes, on the stack: an engine tests many.
class PathWithSlashes {
public:
    explicit PathWithSlashes(const char* path) {
        const std::size_t size = std::strlen(path) + 1;
        fits_ = size <= text_.size();
        if (fits_) {
            std::memcpy(text_.data(), path, size);
            UseSlashes(text_.data());
        }
    }

    /// Null for a path that is longer than the system takes.
    const char* Text() const { return fits_ ? text_.data() : nullptr; }

private:
    std::array<char, PATH_MAX> text_;
    bool fits_;
};

bool PathExistsPosix(const char* path) {
    const PathWithSlashes native(path);
    struct stat status;
    return native.Text() != nullptr && stat(native.Text(), &status) == 0;
}

std::FILE* OpenFilePosix(const char* path, const char* mode) {
    const PathWithSlashes native(path);
    return native.Text() != nullptr ? std::fopen(native.Text(), mode) : nullptr;
}

}  // namespace

std::string NativePath(std::string path) {
    UseSlashes(path.data());
    return path;
}

Calls SystemCalls() {
    return {PathExistsPosix, OpenFilePosix, std::fputs, std::fclose, OutputDebugStringW};
}

}  // namespace platform
