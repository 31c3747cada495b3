// Windows: paths are taken as they are (the runtime reads both separators), text files get
// CR LF line ends, and trace lines go to the debugger output.
#define WIN32_LEAN_AND_MEAN
#include <sys/stat.h>
#include <sys/types.h>
#include <windows.h>

#include <cstdio>
#include <string>

#include "platform/PlatformCalls.h"

namespace platform {

std::string NativePath(std::string path) {
    return path;
}

namespace {

bool PathExistsWindows(const char* path) {
    struct _stat64i32 status {};
    return _stat64i32(path, &status) == 0;
}

void TraceLineWindows(const wchar_t* line) {
    OutputDebugStringW(line);
}

}  // namespace

Calls SystemCalls() {
    return {PathExistsWindows, std::fopen, std::fputs, std::fclose, TraceLineWindows};
}

}  // namespace platform
