// The runtime calls through which the engine meets the system, in one table. Tests replace entries
// to watch them or to make them fail, and put the table back afterwards. Paths are composed with
// backslashes on every system; the real calls translate them where the system needs it.
#pragma once

#include <cstdio>
#include <string>

namespace platform {

struct Calls {
    /// Whether something (a file or a folder) exists at the path.
    bool (*pathExists)(const char* path);
    /// fopen: null when the file cannot be opened.
    std::FILE* (*openFile)(const char* path, const char* mode);
    /// fputs and fclose.
    int (*writeText)(const char* text, std::FILE* file);
    int (*closeFile)(std::FILE* file);
    /// Sends one line to the debugger output. Null where there is none.
    void (*traceLine)(const wchar_t* line);
};

/// The table in use. Not for use while an engine works on another thread.
Calls& CurrentCalls();

// Defined in the source of the system that is built for.

/// The system's own calls.
Calls SystemCalls();

/// The path as the system's file functions want it.
std::string NativePath(std::string path);

}  // namespace platform
