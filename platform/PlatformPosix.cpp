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

std::string NativePath(std::string path) {
    for (std::size_t at = 0; (at = path.find('\\', at)) != std::string::npos; ++at) {
        path[at] = '/';
    }
    return path;
}

namespace {

/// A path with slashes, on the stack: an engine tests many.
class PathWithSlashes {
public:
    explicit PathWithSlashes(const char* path) {
        const std::size_t size = std::strlen(path) + 1;
        fits_ = size <= text_.size();
        if (fits_) {
            std::memcpy(text_.data(), path, size);
            // Looked for in the original: a processor waits when it reads what it just wrote.
            for (const char* next = path; (next = std::strchr(next, '\\')) != nullptr; ++next) {
                text_[next - path] = '/';
            }
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

Calls SystemCalls() {
    return {PathExistsPosix, OpenFilePosix, std::fputs, std::fclose, OutputDebugStringW};
}

}  // namespace platform
