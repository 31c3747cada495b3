// The command "items": what the desktop dialog shows, for people or as JSON.
#include <algorithm>
#include <cctype>
#include <iostream>

#include "engine/CZorbI2Engine.h"
#include "host/Commands.h"
#include "host/ControlFileLayout.h"
#include "host/Report.h"
#include "host/Session.h"

namespace host {

namespace {

constexpr const char* groupNames[] = {"Part", "Part insert", "Moldbase"};

/// The items without a title are known by their key in the file.
std::string TitleOf(const CZorbI2Item& item) {
    const auto row = std::ranges::find(rows, item.itemId, &Row::itemId);
    return item.title.empty() ? std::string(KeyOf(row->format)) : item.title;
}

std::string ElementsOf(const SolverSlot& slot) {
    const std::vector<std::string>& types = slot.elementTypes;
    return types.size() > 1 ? types[0] + ", " + types[1] : types.at(0);
}

std::string Heading(const Recipe& recipe, const SolverSlot& slot) {
    const bool isSecond = recipe.quadraticElements && slot.elementTypes.size() > 1;
    return recipe.project.projectName + ", run " + std::to_string(recipe.project.runNumber) +
           ", for " + slot.name + ": " + NameOf(recipe.meshKind, meshKinds) + " mesh, " +
           slot.elementTypes[isSecond ? 1 : 0];
}

// ---- The dialog -------------------------------------------------------------------------------

void PrintItem(const Terminal& terminal, const OfferedItem& offered) {
    constexpr std::size_t indent = 27;
    const std::string newLine = "\n" + std::string(indent, ' ');
    const CZorbI2Item& item = offered.item;
    const std::string id = std::to_string(item.itemId);
    std::string mark = offered.status.checkState == 1 ? "[x] " : "[ ] ";
    mark = offered.IsMissing() ? "[-] " : offered.IsSwitch() ? mark : "";
    std::cout << Padded(
                     std::string(3 - id.size(), ' ') + id + " " + NameOf(item.itemId, shortNames),
                     indent)
              << terminal.Coloured(mark + TitleOf(item), Colour::strong);
    if (!item.description.empty()) {
        std::cout << newLine
                  << terminal.Coloured(Wrapped(item.description, terminal.columns - indent, indent),
                                       Colour::faint);
    }
    if (offered.IsMissing()) {
        std::cout << newLine << terminal.Coloured("missing: " + offered.Label(), Colour::bad);
    }
    for (const auto& [key, label] : item.options) {
        if (key >= 0) {
            const bool isChosen = key == offered.status.optionValue;
            std::cout << newLine << (isChosen ? "(x) " : "( ) ") << key << "  " << label;
        }
    }
    std::cout << '\n';
}

void PrintDialog(const Surroundings& host, const Recipe& recipe, const SolverSlot& slot,
                 const std::vector<OfferedItem>& items) {
    std::cout << Wrapped(Heading(recipe, slot), host.terminal.columns, 0) << '\n'
              << recipe.project.projectFolder << '\n';
    int group = -1;
    for (const OfferedItem& offered : items) {
        if (offered.group != group) {
            group = offered.group;
            std::cout << '\n' << host.terminal.Coloured(groupNames[group], Colour::strong) << '\n';
        }
        PrintItem(host.terminal, offered);
    }
    std::cout << (items.empty() ? "\nNothing is offered.\n" : "");
}

Json JsonOf(const OfferedItem& offered) {
    const CZorbI2Item& item = offered.item;
    Json entry = {{"id", item.itemId},
                  {"name", NameOf(item.itemId, shortNames)},
                  {"group", groupNames[offered.group]},
                  {"title", TitleOf(item)},
                  {"description", item.description},
                  {"available", !offered.IsMissing()}};
    if (offered.IsMissing()) {
        entry["reason"] = offered.Label();
    } else if (offered.IsSwitch()) {
        entry["on"] = offered.status.checkState == 1;
    } else {
        entry["option"] = offered.status.optionValue;
        for (const auto& [key, label] : item.options) {
            entry["options"].push_back({{"key", key}, {"label", label}});
        }
    }
    return entry;
}

Json ShowDialog(const Surroundings& host, const Recipe& recipe, Session& session,
                Problems& problems) {
    problems = session.ApplyRecipe();
    Json list = Json::array();
    const SolverSlot* slot = session.Engine().solverSlots[recipe.solver].get();
    if (slot == nullptr || !Find(NameOf(recipe.meshKind, meshKinds), MeshesOf(*slot))) {
        return {{"items", list}};
    }
    const auto& items = session.Offer(recipe.solver, recipe.meshKind);
    if (!host.options.json) {
        PrintDialog(host, recipe, *slot, items);
    }
    for (const OfferedItem& offered : items) {
        list.push_back(JsonOf(offered));
    }
    return {{"project", recipe.project.projectName},      {"run", recipe.project.runNumber},
            {"folder", recipe.project.projectFolder},     {"solver", slot->name},
            {"mesh", NameOf(recipe.meshKind, meshKinds)}, {"items", list}};
}

// ---- Solvers ----------------------------------------------------------------------------------

Json ShowSolvers(const Surroundings& host, const Session& session) {
    Json list = Json::array();
    for (const auto& slot : session.Engine().solverSlots) {
        if (!slot) {
            continue;
        }
        const std::string keyword = NameOf(slot->solverIndex, solverKeywords);
        if (!host.options.json) {
            std::cout << slot->solverIndex << "  "
                      << host.terminal.Coloured(slot->name, Colour::strong)
                      << (keyword == slot->name ? "" : "  (" + keyword + ")")
                      << "\n   mesh kinds:    " << Listed(MeshesOf(*slot))
                      << "\n   element types: " << ElementsOf(*slot) << '\n';
        }
        list.push_back({{"index", slot->solverIndex},
                        {"name", slot->name},
                        {"keyword", keyword},
                        {"meshKinds", slot->meshTypes},
                        {"elementTypes", slot->elementTypes}});
    }
    return {{"solvers", list}};
}

// ---- The matrix -------------------------------------------------------------------------------

/// What one solver offers with one mesh kind.
struct Column {
    const SolverSlot* slot;
    std::int32_t meshKind;
    std::string cells;  ///< by item id: '+' available, '-' missing, '.' not offered
};

std::vector<Column> ColumnsOf(Session& session) {
    std::vector<Column> columns;
    for (const auto& slot : session.Engine().solverSlots) {
        for (std::int32_t kind = kMeshOriginal; slot && kind <= kMesh3DMappingShell; ++kind) {
            if (!Find(NameOf(kind, meshKinds), MeshesOf(*slot))) {
                continue;
            }
            Column column{slot.get(), kind, std::string(kItemCount, '.')};
            for (const OfferedItem& offered : session.Offer(slot->solverIndex, kind)) {
                column.cells[offered.item.itemId] = offered.IsMissing() ? '-' : '+';
            }
            columns.push_back(column);
        }
    }
    return columns;
}

void PrintMatrix(const Terminal& terminal, const std::vector<Column>& columns) {
    constexpr std::size_t roomForNames = 120;
    const bool hasNames = terminal.columns >= roomForNames;
    const std::string gap = hasNames ? " " : "";
    std::vector<std::string> lines = {"", ""};  // solvers, mesh kinds, and one line for each item
    for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
        lines.push_back((itemId < 10 ? " " : "") + std::to_string(itemId) + " " +
                        NameOf(itemId, shortNames));
    }
    std::string legend =
        "+ available, - results missing, . not offered; O original, D deformed, "
        "M mapped, 3 3d-mapping-to-shell";
    std::size_t width = 24;  // of the item names
    const SolverSlot* slot = nullptr;
    for (const Column& column : columns) {
        if (column.slot != slot) {
            slot = column.slot;
            for (std::string& line : lines) {
                line = Padded(line, width + 2 - gap.size());
            }
            const std::string number = std::to_string(slot->solverIndex);
            lines[0] += hasNames ? slot->name : number;
            legend += hasNames ? "" : (number == "0" ? "; " : ", ") + number + " " + slot->name;
        }
        lines[1] += static_cast<char>(std::toupper(NameOf(column.meshKind, meshKinds)[0])) + gap;
        for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
            lines[itemId + 2] += column.cells[itemId] + gap;
        }
        width = std::max(lines[0].size(), lines[1].size());
    }
    for (const std::string& line : lines) {
        std::cout << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
    }
    std::cout << '\n' << Wrapped(legend, terminal.columns, 0) << '\n';
}

Json ShowMatrix(const Surroundings& host, Session& session) {
    const std::vector<Column> columns = ColumnsOf(session);
    if (!host.options.json) {
        PrintMatrix(host.terminal, columns);
    }
    Json list = Json::array();
    for (const Column& column : columns) {
        Json items = Json::object();
        for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
            if (column.cells[itemId] != '.') {
                items[NameOf(itemId, shortNames)] = column.cells[itemId] == '+';
            }
        }
        list.push_back({{"solver", column.slot->name},
                        {"mesh", NameOf(column.meshKind, meshKinds)},
                        {"available", items}});
    }
    return {{"matrix", list}};
}

}  // namespace

ExitCode RunItems(const Surroundings& host) {
    Problems problems;
    const Options& options = host.options;
    const Recipe recipe =
        ReadRecipe(options.files[0], options, host.names, host.scratch.Start(), problems);
    if (!problems.empty()) {
        return Report(problems, options);
    }
    CheckFolder(recipe.project.projectFolder, recipe.PlaceOf("project.folder"));
    Session session(recipe);
    Json document = JsonDocument(options);
    document.update(options.solvers  ? ShowSolvers(host, session)
                    : options.matrix ? ShowMatrix(host, session)
                                     : ShowDialog(host, recipe, session, problems));
    return Report(problems, options, document);
}

}  // namespace host
