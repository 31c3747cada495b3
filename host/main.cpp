// zorbi2, the headless counterpart of the desktop dialog: a host like any other, built on the
// engine's public headers.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>

#include "commands/CommandLine.h"
#include "console/Report.h"
#include "system/HostPlatform.h"
#include "system/Signals.h"

namespace host {

namespace {

ExitCode Run(const CommandCall& call) {
    Terminal terminal(call.options);
    try {
        return call.run(terminal);
    } catch (const std::exception& error) {
        return Report(ProblemsOf(error), call.options);
    }
}

int Main(int argc, char** argv) {
    CommandCall call;
    const std::optional<ExitCode> early = ParseCommandLine(PrepareProcess(argc, argv), call);
    const ExitCode code = early ? *early : Run(call);
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) {
        return static_cast<int>(code);
    }
    errno = 0;
    std::putchar(' ');  // once more, for the system's reason
    std::fflush(stdout);
    std::cerr << "zorbi2: standard output cannot be written: " << std::strerror(errno) << '\n';
    return static_cast<int>(ExitCode::fileTrouble);
}

}  // namespace

}  // namespace host

int main(int argc, char** argv) {
    const int status = host::Main(argc, argv);
    host::EndAsSignaled();
    return status;
}
