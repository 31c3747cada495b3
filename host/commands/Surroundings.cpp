#include "commands/Surroundings.h"

#include "handover/Engine.h"
#include "system/HostPlatform.h"

namespace host {

void AddOverrides(Arguments& arguments, Overrides& overrides) {
    arguments.Value("--solver", "S", overrides.solver, "Override the recipe's solver");
    arguments.Value("--mesh", "M", overrides.mesh, "Override the recipe's mesh kind");
    arguments.Values("--set", "ITEM=CHOICE", overrides.choices,
                     "Override the recipe's choices for these items");
}

void CheckOpenFileLimit(std::size_t recipes) {
    const std::size_t possible = RaiseOpenFileLimit(recipes);
    if (recipes > possible) {
        Fail({},
             (recipes == 1 ? "a single recipe is" : std::to_string(recipes) + " recipes are") +
                 " too many for one command: each keeps a file open, and at most " +
                 std::to_string(possible) + " are possible; nothing was written",
             ExitCode::fileTrouble);
    }
}

std::filesystem::path OutputPath(const std::string& name, const std::filesystem::path& start) {
    if (name == "-") {
        Fail({}, "-o needs the name of a file; standard output is none (./- is a file)",
             ExitCode::badUsage);
    }
    return PathOf(AbsolutePath(name, start));
}

Surroundings::Surroundings(Terminal& console) : terminal(console) {
    CreateEngine(bareEngine, CZorbFEAInformation());
    names = AskNames(*bareEngine.engine);
    if (terminal.options.trace) {
        ShowTraceLines();
    }
}

}  // namespace host
