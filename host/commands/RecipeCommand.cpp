#include "commands/RecipeCommand.h"

#include <CLI/CLI.hpp>

#include "handover/Engine.h"
#include "system/HostPlatform.h"

namespace host {

void AddOverrides(CLI::App& commandLine, Overrides& overrides) {
    commandLine.add_option("--solver", overrides.solver, "Solver instead of the recipe's")
        ->type_name("S");
    commandLine.add_option("--mesh", overrides.mesh, "Mesh kind instead of the recipe's")
        ->type_name("M");
    commandLine.add_option("--set", overrides.choices, "Choices instead of the recipe's")
        ->type_name("ITEM=CHOICE")
        ->allow_extra_args(false);
}

Surroundings::Surroundings(Terminal& console) : terminal(console) {
    CreateEngine(bareEngine, CZorbFEAInformation());
    names = AskNames(*bareEngine.engine);
    if (terminal.options.trace) {
        ShowTraceLines();
    }
}

}  // namespace host
