// The command "items": what the desktop dialog shows, for people or as JSON.
#include <algorithm>
#include <cctype>
#include <memory>
#include <utility>

#include <zorbi2/CZorbI2Engine.h>

#include "commands/Commands.h"
#include "commands/OfferJson.h"
#include "commands/Surroundings.h"
#include "console/Report.h"
#include "handover/LoadRecipe.h"
#include "handover/RunFolder.h"
#include "handover/Session.h"
#include "problems/VisibleText.h"

namespace host {

namespace {

struct ItemsOptions {
    std::vector<std::string> recipes;  ///< one; a list, so that a second one is told apart
    Overrides overrides;
    bool solvers = false;
    bool matrix = false;
};

/// The item's id and short name, filled to the width of a column.
std::string LabelOf(std::int32_t itemId) {
    constexpr std::size_t width = 27;
    return Padded(
        (itemId < 10 ? "  " : " ") + std::to_string(itemId) + " " + NameOf(itemId, shortNames),
        width);
}

// ---- The dialog -------------------------------------------------------------------------------

void PrintItem(const OfferedItem& offered, Terminal& terminal) {
    const CZorbI2Item& item = offered.item;
    const std::string label = LabelOf(item.itemId);
    const std::string newLine = "\n" + std::string(label.size(), ' ');
    const char* const mark = offered.IsMissing()              ? "[-] "
                             : !offered.IsSwitch()            ? ""
                             : offered.status.checkState == 1 ? "[x] "
                                                              : "[ ] ";
    terminal.out << label << terminal.Colored(mark + TitleOf(item), Color::strong);
    if (!item.description.empty()) {
        const std::string text =
            Wrapped(item.description, terminal.columns, label.size(), label.size());
        terminal.out << newLine << terminal.Colored(text, Color::faint);
    }
    if (offered.IsMissing()) {
        terminal.out << newLine << terminal.Colored("missing: " + offered.Label(), Color::bad);
    }
    for (const auto& [key, option] : item.options) {
        if (key >= 0) {
            const bool isChosen = key == offered.status.optionValue;
            terminal.out << newLine << (isChosen ? "(x) " : "( ) ") << key << "  " << option;
        }
    }
    terminal.out << '\n';
}

/// What the heading says.
std::string Heading(const Recipe& recipe, const SolverSlot& slot) {
    return Visible(recipe.project.projectName) + ", run " +
           std::to_string(recipe.project.runNumber) + ", for " + slot.name + ": " +
           NameOf(recipe.meshKind, meshKinds) + " mesh, " + ElementTypeOf(recipe, slot);
}

Json ShowDialog(const Recipe& recipe, Session& session, Terminal& terminal, Problems& problems) {
    AddTo(problems, session.ApplyRecipe());
    const SolverSlot* slot = session.Engine().solverSlots[recipe.solver].get();
    if (slot == nullptr || !Offers(*slot, recipe.meshKind)) {
        return {{"items", Json::array()}};
    }
    terminal.out << Wrapped(Heading(recipe, *slot), terminal.columns, 0, 0) << '\n'
                 << Visible(recipe.project.projectFolder) << '\n';
    const std::vector<OfferedItem> items = session.Offer(recipe.solver, recipe.meshKind);
    int group = -1;
    for (const OfferedItem& offered : items) {
        if (std::exchange(group, offered.group) != offered.group) {
            terminal.out << '\n' << terminal.Colored(groupNames[group], Color::strong) << '\n';
        }
        PrintItem(offered, terminal);
    }
    terminal.out << (items.empty() ? "\nNothing is offered.\n" : "");
    return JsonOfDialog(recipe, *slot, items);
}

// ---- Solvers ----------------------------------------------------------------------------------

Json ShowSolvers(const CZorbI2Engine& engine, Terminal& terminal) {
    Json list = Json::array();
    for (const SolverSlot* slot : OfferedSolvers(engine)) {
        const std::string keyword = NameOf(slot->solverIndex, solverKeywords);
        terminal.out << slot->solverIndex << "  " << terminal.Colored(slot->name, Color::strong)
                     << (keyword == slot->name ? "" : "  (" + keyword + ")")
                     << "\n   mesh kinds:    " << Listed(slot->meshTypes)
                     << "\n   element types: " << Listed(slot->elementTypes) << '\n';
        list.push_back({{"index", slot->solverIndex},
                        {"name", slot->name},
                        {"keyword", keyword},
                        {"meshKinds", slot->meshTypes},
                        {"elementTypes", slot->elementTypes}});
    }
    return {{"solvers", list}};
}

// ---- The matrix -------------------------------------------------------------------------------

/// A column of the matrix: a heading, the solver's mesh kinds, and the signs of each item for them.
std::vector<std::string> ColumnOf(const SolverSlot& slot, const std::string& heading,
                                  Session& session, Json& list) {
    std::vector<std::string> column(2 + kItemCount);
    column[0] = heading;
    for (const auto& [kind, mesh] : meshKinds) {
        if (Offers(slot, kind)) {
            const std::string signs = SignsOf(session.Offer(slot.solverIndex, kind));
            column[1] += static_cast<char>(std::toupper(mesh[0]));
            for (std::size_t item = 0; item < signs.size(); ++item) {
                column[item + 2] += signs[item];
            }
            list.push_back(JsonOfColumn(slot, mesh, signs));
        }
    }
    return column;
}

void Append(const std::vector<std::string>& column, std::vector<std::string>& lines) {
    const std::size_t width = std::max(column[0].size(), column[1].size());
    for (std::size_t line = 0; line < lines.size(); ++line) {
        lines[line] += Padded(column[line], width + 2);
    }
}

Json ShowMatrix(Session& session, Terminal& terminal) {
    constexpr std::size_t roomForNames = 120;
    const bool hasNames = terminal.columns >= roomForNames;
    std::vector<std::string> lines(2, Padded("", LabelOf(0).size()));  // solvers, mesh kinds, items
    for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
        lines.push_back(LabelOf(itemId));
    }
    std::string legend =
        "+ available, - results missing, . not offered; O original, D deformed, M mapped, "
        "3 3d-mapping-to-shell";
    Json list = Json::array();
    for (const SolverSlot* slot : OfferedSolvers(session.Engine())) {
        const std::string number = std::to_string(slot->solverIndex);
        legend += hasNames ? "" : "; " + number + " " + slot->name;
        Append(ColumnOf(*slot, hasNames ? slot->name : number, session, list), lines);
    }
    for (const std::string& line : lines) {
        terminal.out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
    }
    terminal.out << '\n' << Wrapped(legend, terminal.columns, 0, 0) << '\n';
    return {{"matrix", list}};
}

ExitCode RunItems(const ItemsOptions& options, Terminal& terminal) {
    const Surroundings host(terminal);
    if (options.recipes.empty()) {
        return Report({}, terminal.options, ShowSolvers(*host.bareEngine.engine, terminal));
    }
    const bool needsTarget = !options.solvers && !options.matrix;
    const Recipe recipe =
        LoadRecipe(options.recipes[0], options.overrides, host.names, host.scratch.Start(),
                   needsTarget ? Purpose::showing : Purpose::listing);
    Problems problems = recipe.problems;
    CheckRun(recipe);
    Session session(recipe);
    const Json content = options.solvers  ? ShowSolvers(session.Engine(), terminal)
                         : options.matrix ? ShowMatrix(session, terminal)
                                          : ShowDialog(recipe, session, terminal, problems);
    return Report(problems, terminal.options, content);
}

}  // namespace

RunFunction AddItems(Arguments& arguments) {
    const auto options = std::make_shared<ItemsOptions>();
    arguments.WordUnless(options->solvers, "RECIPE", options->recipes,
                         "Recipe (TOML); optional with --solvers");
    arguments.Flag("--matrix", options->matrix, "Show items by solver and mesh kind instead");
    arguments.Flag("--solvers", options->solvers,
                   "Show solvers, mesh kinds and element types instead", "--matrix");
    AddOverrides(arguments, options->overrides);
    return [options](Terminal& terminal) { return RunItems(*options, terminal); };
}

}  // namespace host
