// POSIX: the host process brings the debugger output itself, and names are UTF-8.
#include <malloc.h>

#include "tests/library/HostSystem.h"

namespace {

host_system::DebuggerOutput* catching = nullptr;

}  // namespace

extern "C" [[gnu::visibility("default")]] void OutputDebugStringW(const wchar_t* line) {
    if (catching != nullptr) {
        catching->lines.emplace_back(line);
    }
}

namespace host_system {

const std::string lineEnd = "\n";
const bool ignoresCaseOfNames = false;
const char* const localeOfNames = "C.UTF-8";

std::string NarrowName(const std::u8string& name) {
    return {name.begin(), name.end()};
}

std::wstring TracedName(const std::u8string& name) {
    return {name.begin(), name.end()};
}

std::size_t HeapBytesInUse() {
    return mallinfo2().uordblks;
}

DebuggerOutput::DebuggerOutput() {
    catching = this;
}

DebuggerOutput::~DebuggerOutput() {
    catching = nullptr;
}

}  // namespace host_system
