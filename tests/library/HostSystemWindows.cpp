// Windows: the debugger output is an exception that a debugger, or a vectored handler, takes; names
// are in the system code page.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <filesystem>
#include <stdexcept>

#include "tests/library/HostSystem.h"

namespace {

constexpr DWORD wideDebuggerText = 0x4001000A;    // DBG_PRINTEXCEPTION_WIDE_C
constexpr DWORD narrowDebuggerText = 0x40010006;  // DBG_PRINTEXCEPTION_C, as older systems send it

host_system::DebuggerOutput* catching = nullptr;
void* handler = nullptr;

std::wstring Widened(const char* text) {
    const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    std::wstring wide(length, L'\0');
    MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), length);
    wide.pop_back();  // the terminator, which was counted
    return wide;
}

LONG CALLBACK CatchDebuggerText(EXCEPTION_POINTERS* pointers) {
    const EXCEPTION_RECORD& exception = *pointers->ExceptionRecord;
    const ULONG_PTR text = exception.ExceptionInformation[1];
    switch (exception.ExceptionCode) {
        case wideDebuggerText:
            catching->lines.emplace_back(reinterpret_cast<const wchar_t*>(text));
            return EXCEPTION_CONTINUE_EXECUTION;
        case narrowDebuggerText:
            catching->lines.push_back(Widened(reinterpret_cast<const char*>(text)));
            return EXCEPTION_CONTINUE_EXECUTION;
        default:
            return EXCEPTION_CONTINUE_SEARCH;
    }
}

std::size_t BytesInUse(HANDLE heap) {
    std::size_t bytes = 0;
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry)) {
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) {
            bytes += entry.cbData;
        }
    }
    HeapUnlock(heap);
    return bytes;
}

}  // namespace

namespace host_system {

const std::string lineEnd = "\r\n";
const bool ignoresCaseOfNames = true;
const char* const localeOfNames = "";  // the user's, whose code page is the system's

std::string NarrowName(const std::u8string& name) {
    const std::wstring wide = TracedName(name);
    BOOL hasForeignLetters = FALSE;
    std::string narrow(2 * wide.size() + 1, '\0');
    const int length =
        WideCharToMultiByte(CP_ACP, 0, wide.c_str(), static_cast<int>(wide.size()), narrow.data(),
                            static_cast<int>(narrow.size()), nullptr, &hasForeignLetters);
    if (hasForeignLetters) {
        throw std::runtime_error("the system code page lacks a character of the name");
    }
    narrow.resize(length);
    return narrow;
}

std::wstring TracedName(const std::u8string& name) {
    return std::filesystem::path(name).wstring();
}

std::size_t HeapBytesInUse() {
    constexpr DWORD mostHeaps = 64;
    HANDLE heaps[mostHeaps];
    const DWORD count = GetProcessHeaps(mostHeaps, heaps);
    std::size_t bytes = 0;
    for (DWORD heap = 0; heap < count && heap < mostHeaps; ++heap) {
        bytes += BytesInUse(heaps[heap]);
    }
    return bytes;
}

DebuggerOutput::DebuggerOutput() {
    catching = this;
    handler = AddVectoredExceptionHandler(1, CatchDebuggerText);
}

DebuggerOutput::~DebuggerOutput() {
    RemoveVectoredExceptionHandler(handler);
    catching = nullptr;
}

}  // namespace host_system
