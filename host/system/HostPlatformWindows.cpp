// Windows: the host speaks UTF-8, the engine the system code page, and trace lines are caught on
// their way to the debugger.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
// After windows.h.
#include <shellapi.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "system/HostPlatform.h"

namespace {

std::string Utf8Text(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                        static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

std::wstring Wide(const std::string& bytes, UINT codePage) {
    const int length = static_cast<int>(bytes.size());
    std::wstring text(MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), length, text.data(),
                        static_cast<int>(text.size()));
    return text;
}

bool showsTraceLines = false;

/// A wide trace line comes as an exception that ends here, or, from an older system, as one with
/// bytes of the code page.
LONG CALLBACK PrintTraceLine(EXCEPTION_POINTERS* exception) {
    constexpr DWORD wideLine = 0x4001000A;
    constexpr DWORD narrowLine = 0x40010006;
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    const auto* text = reinterpret_cast<const void*>(record.ExceptionInformation[1]);
    if (record.ExceptionCode != wideLine && record.ExceptionCode != narrowLine) {
        return EXCEPTION_CONTINUE_SEARCH;
    }
    if (!showsTraceLines) {
        return EXCEPTION_CONTINUE_EXECUTION;
    }
    const std::wstring line = record.ExceptionCode == wideLine
                                  ? static_cast<const wchar_t*>(text)
                                  : Wide(static_cast<const char*>(text), CP_ACP);
    std::fprintf(stderr, "%s\n", Utf8Text(line).c_str());
    return EXCEPTION_CONTINUE_EXECUTION;
}

}  // namespace

namespace host {

std::vector<std::string> PrepareProcess(int /*argc*/, char** /*argv*/) {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    static const UINT codePageBefore = GetConsoleOutputCP();  // the console keeps what is set
    SetConsoleOutputCP(CP_UTF8);
    std::atexit([] { SetConsoleOutputCP(codePageBefore); });
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int number = 1; number < count; ++number) {
        arguments.push_back(Utf8Text(wide[number]));
    }
    LocalFree(wide);
    return arguments;
}

std::filesystem::path ProgramFolder() {
    constexpr DWORD longestPath = 32767;
    std::wstring path(longestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), longestPath));
    return std::filesystem::path(path).parent_path();
}

std::string Utf8Of(const std::filesystem::path& path) {
    return Utf8Text(path.native());
}

std::optional<std::string> ToEngineText(const std::string& utf8) {
    if (GetACP() == CP_UTF8) {
        return utf8;
    }
    const std::wstring wide = Wide(utf8, CP_UTF8);
    const int length = static_cast<int>(wide.size());
    std::string bytes(4 * wide.size(), '\0');
    BOOL isReplaced = FALSE;
    bytes.resize(WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), length,
                                     bytes.data(), static_cast<int>(bytes.size()), nullptr,
                                     &isReplaced));
    return isReplaced == FALSE ? std::optional(bytes) : std::nullopt;
}

std::string FromEngineText(const std::string& text) {
    return Utf8Text(Wide(text, CP_ACP));
}

std::string FileIdentity(const std::filesystem::path& file) {
    std::error_code unknown;
    const std::filesystem::path known = std::filesystem::weakly_canonical(file, unknown);
    std::wstring name = (unknown ? file : known).wstring();
    CharLowerW(name.data());
    return Utf8Text(name);
}

std::size_t RaiseOpenFileLimit(std::size_t /*wanted*/) {
    constexpr int keptForTheHost = 16;
    constexpr int largest = 8192;        // the runtime's own limit
    constexpr int largestBefore = 2048;  // that of older runtimes
    if (_setmaxstdio(largest) == -1) {
        _setmaxstdio(largestBefore);
    }
    return static_cast<std::size_t>(_getmaxstdio() - keptForTheHost);
}

bool TakesOutput() {
    return true;  // a pipe cannot be asked
}

std::size_t TerminalColumns(Stream stream) {
    const HANDLE console =
        GetStdHandle(stream == Stream::output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (GetConsoleScreenBufferInfo(console, &info) == 0) {
        return 0;
    }
    DWORD mode = 0;
    GetConsoleMode(console, &mode);
    SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

NoTraceLines::NoTraceLines() : wereShown_(std::exchange(showsTraceLines, false)) {}

NoTraceLines::~NoTraceLines() {
    showsTraceLines = wereShown_;
}

void ShowTraceLines() {
    showsTraceLines = true;
    AddVectoredExceptionHandler(1, PrintTraceLine);
}

}  // namespace host
