#include "commands/Commands.h"

namespace host {

namespace {

// clang-format off
constexpr Command commands[] = {
    {"init", "Write a starter recipe for a run",
     "zorbi2 init /runs/cover/Run02 -o cover.toml", AddInit},
    {"items", "Show what the desktop dialog shows for a recipe",
     "zorbi2 items cover.toml --solver ABAQUS --mesh deformed", AddItems},
    {"write", "Write the control parameter file of each recipe",
     "zorbi2 write *.toml --set thermal-stress=on --out handover", AddWrite},
    {"check", "Check control parameter files for errors",
     "zorbi2 check --show handover/*.cmi", AddCheck},
    {"report", "Write an HTML report on recipes and control files",
     "zorbi2 report *.toml -o handover.html", AddReport},
    {"schema", "Print the JSON schema of recipes, for editors",
     "zorbi2 schema > recipe.schema.json", AddSchema},
};
// clang-format on

}  // namespace

std::span<const Command> Commands() {
    return commands;
}

}  // namespace host
