// zorbi2, the headless counterpart of the desktop dialog: a host like any other, built on the
// engine's public headers.
#include <cerrno>
#include <cstring>
#include <exception>
#include <iostream>

#include "host/Commands.h"
#include "host/HostPlatform.h"
#include "host/Paths.h"
#include "host/Report.h"
#include "host/Session.h"

namespace host {

namespace {

ExitCode WorkOnRuns(const Options& options) {
    const ScratchFolder scratch;
    const Surroundings surroundings{options, AskNames(), scratch, {}};
    if (options.trace) {
        ShowTraceLines();
    }
    if (options.command == "init") {
        return RunInit(surroundings);
    }
    return options.command == "items" ? RunItems(surroundings) : RunWrite(surroundings);
}

ExitCode Run(const Options& options) {
    try {
        return options.command == "check" ? RunCheck(options) : WorkOnRuns(options);
    } catch (const Problem& problem) {
        return Report({problem}, options);
    } catch (const std::exception& error) {
        return Report({{Place{}, error.what(), ExitCode::fileTrouble}}, options);
    }
}

int Main(int argc, char** argv) {
    Options options;
    const std::optional<ExitCode> early = ParseCommandLine(PrepareProcess(argc, argv), options);
    const ExitCode code = early ? *early : Run(options);
    const bool isWhole = !std::cout.fail();
    errno = 0;
    std::cout.clear();
    if (!isWhole) {
        std::cout << ' ';  // once more, for the system's reason
    }
    if (!std::cout.flush() || !isWhole) {
        std::cerr << "zorbi2: standard output cannot be written: " << std::strerror(errno) << '\n';
        return static_cast<int>(ExitCode::fileTrouble);
    }
    return static_cast<int>(code);
}

}  // namespace

}  // namespace host

int main(int argc, char** argv) {
    return host::Main(argc, argv);
}
