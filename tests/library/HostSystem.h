// What a host meets differently on each system: the debugger output, the encoding of names, line
// ends. One source per system.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace host_system {

/// What a text file that the library writes has at the end of each line.
extern const std::string lineEnd;

/// Whether two names that differ only in case are the same file.
extern const bool ignoresCaseOfNames;

/// Locale in which the C library reads names as the system does.
extern const char* const localeOfNames;

/// The bytes by which narrow file functions know a name.
std::string NarrowName(const std::u8string& name);

/// What the debugger shows of a name that the library traces in a process of the C locale: on POSIX
/// each byte of the name is a character of its own.
std::wstring TracedName(const std::u8string& name);

/// What the process has in use on its heaps, in bytes.
std::size_t HeapBytesInUse();

/// Catches the debugger output of the process while it lives. One at a time.
class DebuggerOutput {
public:
    DebuggerOutput();
    ~DebuggerOutput();
    DebuggerOutput(const DebuggerOutput&) = delete;
    DebuggerOutput& operator=(const DebuggerOutput&) = delete;

    /// The lines caught so far, in order.
    std::vector<std::wstring> lines;
};

}  // namespace host_system
