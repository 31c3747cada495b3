#include "commands/RecipeCommand.h"

#include "handover/Engine.h"
#include "system/HostPlatform.h"

namespace host {

void AddOverrides(Arguments& arguments, Overrides& overrides) {
    arguments.Value("--solver", "S", overrides.solver, "Solver instead of the recipe's");
    arguments.Value("--mesh", "M", overrides.mesh, "Mesh kind instead of the recipe's");
    arguments.Values("--set", "ITEM=CHOICE", overrides.choices, "Choices instead of the recipe's");
}

void CheckOpenFileLimit(std::size_t recipes) {
    const std::size_t possible = RaiseOpenFileLimit(recipes);
    if (recipes > possible) {
        Fail({},
             (recipes == 1 ? "a single recipe is" : std::to_string(recipes) + " recipes are") +
                 " too many for one call, because each leaves a file open; nothing was written; "
                 "at most " +
                 std::to_string(possible) + " are possible",
             ExitCode::fileTrouble);
    }
}

Surroundings::Surroundings(Terminal& console) : terminal(console) {
    CreateEngine(bareEngine, CZorbFEAInformation());
    names = AskNames(*bareEngine.engine);
    if (terminal.options.trace) {
        ShowTraceLines();
    }
}

}  // namespace host
