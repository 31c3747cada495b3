// POSIX: the separator is the slash, names are case-sensitive, and a debugger output exists only
// where the host process provides one.
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "platform/PlatformCalls.h"

// Weak: a host process may define it. Without one, trace lines go nowhere.
extern "C" [[gnu::weak]] void OutputDebugStringW(const wchar_t* line);

namespace platform {

std::string NativePath(const std::string& path) {
    std::string native = path;
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

namespace {

bool PathExistsPosix(const char* path) {
    struct stat status {};
    return stat(NativePath(path).c_str(), &status) == 0;
}

std::FILE* OpenFilePosix(const char* path, const char* mode) {
    return std::fopen(NativePath(path).c_str(), mode);
}

void TraceLinePosix(const wchar_t* line) {
    if (OutputDebugStringW != nullptr) {
        OutputDebugStringW(line);
    }
}

}  // namespace

Calls SystemCalls() {
    return {PathExistsPosix, OpenFilePosix, std::fputs, std::fclose, TraceLinePosix};
}

}  // namespace platform
