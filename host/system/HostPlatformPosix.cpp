// POSIX: texts are bytes, taken as UTF-8; trace lines reach the host because it defines the
// function that the engine looks for.
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string_view>
#include <utility>

#include "problems/VisibleText.h"
#include "system/HostPlatform.h"

namespace {

bool showsTraceLines = false;

}  // namespace

extern "C" [[gnu::visibility("default")]] void OutputDebugStringW(const wchar_t* line) noexcept {
    if (!showsTraceLines) {
        return;
    }
    std::string text;
    std::mbstate_t state{};
    for (const wchar_t character : std::wstring_view(line)) {
        std::array<char, MB_LEN_MAX> bytes{};
        const std::size_t size = std::wcrtomb(bytes.data(), character, &state);
        text.append(size <= bytes.size() ? std::string_view(bytes.data(), size) : "?");
    }
    std::fprintf(stderr, "%s\n", host::Visible(text).c_str());  // paths may have any characters
}

namespace host {

std::vector<std::string> PrepareProcess(int argc, char** argv) {
    // A stream that was closed would lend its number to the next file that the engine opens. A
    // file that is open the wrong way round keeps the place, and reading or printing still fails.
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        const int wrongWay = stream == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        if (fcntl(stream, F_GETFD) == -1 && open("/dev/null", wrongWay) != stream) {
            std::_Exit(3);
        }
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    return {argv + std::min(argc, 1), argv + argc};
}

std::filesystem::path ProgramFolder() {
    std::error_code unknown;
    return std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path();
}

std::string Utf8Of(const std::filesystem::path& path) {
    return path.string();
}

std::optional<std::string> ToEngineText(const std::string& utf8) {
    return utf8;
}

std::string FromEngineText(const std::string& text) {
    return text;
}

std::string FileIdentity(const std::filesystem::path& file) {
    constexpr int mostLinks = 40;
    std::filesystem::path known = file;
    std::error_code error;
    for (int i = 0; i < mostLinks && !error; ++i) {
        const std::filesystem::path found = std::filesystem::weakly_canonical(known, error);
        known = error ? known : found;
        std::error_code isNone;
        const auto target = std::filesystem::read_symlink(known, isNone);
        if (isNone) {
            break;
        }
        known = known.parent_path() / target;  // a link to a file that is not there yet
    }
    return known.string();
}

namespace {

/// How many files a process with this limit can open, counted up to `enough`. It may have
/// inherited more than the standard streams.
std::size_t FilesLeft(rlim_t limit, std::size_t enough) {
    std::size_t left = 0;
    for (int number = 0; static_cast<rlim_t>(number) < limit && left < enough; ++number) {
        left += fcntl(number, F_GETFD) == -1 ? 1 : 0;
    }
    return left;
}

}  // namespace

std::size_t RaiseOpenFileLimit(std::size_t wanted) {
    // The most that are open at once beside the engine's: a file with its folder, a folder that is
    // read, libraries that the C library loads when it needs them, and some to spare.
    constexpr std::size_t filesAtWork = 13;
    struct rlimit limit {};
    getrlimit(RLIMIT_NOFILE, &limit);
    const rlim_t before = limit.rlim_cur;
    limit.rlim_cur = limit.rlim_max;
    const rlim_t now = setrlimit(RLIMIT_NOFILE, &limit) == 0 ? limit.rlim_cur : before;
    const std::size_t left = FilesLeft(now, wanted + filesAtWork);
    return left > filesAtWork ? left - filesAtWork : 0;
}

std::size_t TerminalColumns(Stream stream) {
    constexpr std::size_t usual = 80;
    const int descriptor = stream == Stream::output ? STDOUT_FILENO : STDERR_FILENO;
    struct winsize size {};
    if (isatty(descriptor) == 0) {
        return 0;
    }
    return ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

bool TakesOutput() {
    pollfd output{STDOUT_FILENO, POLLOUT, 0};
    return poll(&output, 1, 0) != 0;
}

NoTraceLines::NoTraceLines() : wereShown_(std::exchange(showsTraceLines, false)) {}

NoTraceLines::~NoTraceLines() {
    showsTraceLines = wereShown_;
}

void ShowTraceLines() {
    std::setlocale(LC_CTYPE, "C.UTF-8");  // in which the engine widens them
    showsTraceLines = true;
}

}  // namespace host
