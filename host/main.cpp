// zorbi2, the headless counterpart of the desktop dialog: a host like any other, built on the
// engine's public headers.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>

#include "Commands.h"
#include "HostPlatform.h"
#include "Paths.h"
#include "Report.h"
#include "Session.h"

namespace host {

namespace {

ExitCode WorkOnRuns(const Options& options, Terminal& terminal) {
    const ScratchFolder scratch;
    const Surroundings surroundings{options, AskNames(), scratch, terminal};
    if (options.trace) {
        ShowTraceLines();
    }
    return options.command == "init"    ? RunInit(surroundings)
           : options.command == "items" ? RunItems(surroundings)
                                        : RunWrite(surroundings);
}

ExitCode Run(const Options& options) {
    Terminal terminal(options);
    try {
        return options.command == "check" ? RunCheck(options, terminal)
                                          : WorkOnRuns(options, terminal);
    } catch (const Problems& problems) {
        return Report(problems, options);
    } catch (const std::exception& error) {
        return Report({{Place{}, error.what(), ExitCode::fileTrouble}}, options);
    }
}

int Main(int argc, char** argv) {
    Options options;
    const std::optional<ExitCode> early = ParseCommandLine(PrepareProcess(argc, argv), options);
    const ExitCode code = early ? *early : Run(options);
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
    return host::Main(argc, argv);
}
