// zorbi2, the headless counterpart of the desktop dialog: a host like any other, built on the
// engine's public headers.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <string>

#include "commands/CommandLine.h"
#include "console/Report.h"
#include "system/HostPlatform.h"
#include "system/Memory.h"
#include "system/ScratchFolder.h"
#include "system/Signals.h"

namespace host {

namespace {

ExitCode RunCommand(int argc, char** argv) {
    CommandCall call;
    try {
        if (const auto early = ParseCommandLine(PrepareProcess(argc, argv), call)) {
            return *early;
        }
        Terminal terminal(call.options);
        return call.run(terminal);
    } catch (const std::exception& error) {
        return Report(ProblemsOf(error), call.options);
    } catch (...) {  // none of ours: they are all standard exceptions
        return Report({{{}, "unknown error in the result reader", ExitCode::fileTrouble}},
                      call.options);
    }
}

ExitCode Main(int argc, char** argv) {
    RememberLackOfMemory();
    const ExitCode code = RunCommand(argc, argv);
    if (code != ExitCode::fileTrouble && HasLackedMemory()) {
        Tell({{}, "out of memory", ExitCode::fileTrouble});  // a text may be cut off
        return ExitCode::fileTrouble;
    }
    if (IsInterrupted() && !TakesOutput()) {
        return code;
    }
    errno = 0;
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) {
        return code;
    }
    if (errno == 0) {  // an earlier part was lost: once more, for the system's reason
        std::putchar(' ');
        std::fflush(stdout);
    }
    if (errno == EPIPE) {  // its reader has enough, as "head" has
        return code;
    }
    const std::string reason = errno != 0 ? std::strerror(errno) : "some of it was lost";
    Tell({{}, "cannot write to standard output: " + reason, ExitCode::fileTrouble});
    return ExitCode::fileTrouble;
}

/// All exceptions are caught. What is left are functions of the standard library that end the
/// process when memory runs out, and objects that are made before main().
[[noreturn]] void EndWithoutMemory() {
    ScratchFolder::RemoveCurrent();
    std::fputs("zorbi2: out of memory\n", stderr);
    std::_Exit(static_cast<int>(ExitCode::fileTrouble));
}

/// This file is linked first, so its objects are made first.
[[maybe_unused]] const std::terminate_handler replaced = std::set_terminate(EndWithoutMemory);

}  // namespace

}  // namespace host

int main(int argc, char** argv) {
    try {
        const host::ExitCode code = host::Main(argc, argv);
        host::EndAsSignaled();
        return static_cast<int>(code);
    } catch (const std::exception&) {  // no memory even for the report
        host::EndWithoutMemory();
    }
}
