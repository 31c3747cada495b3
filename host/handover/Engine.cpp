#include "handover/Engine.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <new>

#include "handover/Offers.h"
#include "system/HostPlatform.h"
#include "system/Paths.h"

namespace host {

namespace {

/// When memory runs out, the engine may leave an item or an offered solver without its slot.
bool IsWhole(const CZorbI2Engine& engine) {
    for (std::size_t solver = 0; solver < engine.solverSlots.size(); ++solver) {
        if (engine.solverOffered[solver] != (engine.solverSlots[solver] != nullptr)) {
            return false;
        }
    }
    return std::ranges::none_of(engine.items, [](const auto& item) { return item == nullptr; });
}

/// A folder as the engine takes it: it looks for the backslash in the last byte, which in some code
/// pages belongs to a character. No folder is the scratch folder, not the root of the file system.
std::string WithBackslash(const std::string& folder) {
    return folder.empty() ? ".\\" : folder.ends_with('\\') ? folder : folder + '\\';
}

}  // namespace

void RemoveDebugFiles() {
    for (const char* const file : {"ThermalTest.txt", "ShellIniStrain.txt"}) {
        std::remove(file);
    }
}

void CreateEngine(CZorbI2EngineManager& manager, CZorbFEAInformation project) {
    project.flags[CZorbFEAInformation::kBuildCatalogue] = 1;
    project.projectName = ForEngine(project.projectName);
    project.projectFolder = ForEngine(WithBackslash(project.projectFolder));
    if (!manager.CreateEngine(&project) || !manager.CreateCMIDataBlock() ||
        !manager.CreateCMIAccess() || !IsWhole(*manager.engine)) {
        throw std::bad_alloc();
    }
    RemoveDebugFiles();
}

Names AskNames(const CZorbI2Engine& engine) {
    Names names{shortNames, {}};
    for (const auto& item : engine.items) {
        if (!item->title.empty()) {
            names.items.emplace_back(item->itemId, item->title);
        }
    }
    for (const SolverSlot* slot : OfferedSolvers(engine)) {
        names.solvers.emplace_back(slot->solverIndex, slot->name);
    }
    for (const auto& keyword : solverKeywords) {
        if (!Find(keyword.second, names.solvers)) {
            names.solvers.push_back(keyword);
        }
    }
    return names;
}

std::filesystem::path SetControlFile(CZorbI2EngineManager& manager, const Recipe& recipe,
                                     const std::string& folder) {
    manager.SetCMIFileFullPath(ForEngine(WithBackslash(folder)), ForEngine(recipe.controlName),
                               recipe.project.runNumber, ForEngine(recipe.controlExtension));
    return PathOfAny(FromEngineText(manager.engine->cmiFileFullPath));
}

}  // namespace host
