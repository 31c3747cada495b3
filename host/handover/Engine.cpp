#include "handover/Engine.h"

#include <new>

#include "handover/Offers.h"
#include "system/HostPlatform.h"
#include "system/Paths.h"

namespace host {

void CreateEngine(CZorbI2EngineManager& manager, CZorbFEAInformation project) {
    project.flags[CZorbFEAInformation::kBuildCatalogue] = 1;
    project.projectName = ForEngine(project.projectName);
    project.projectFolder = ForEngine(project.projectFolder);
    if (!manager.CreateEngine(&project) || !manager.CreateCMIDataBlock() ||
        !manager.CreateCMIAccess()) {
        throw std::bad_alloc();
    }
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
                                     const std::string& folder, const std::string& extension) {
    manager.SetCMIFileFullPath(ForEngine(folder), ForEngine(recipe.controlName),
                               recipe.project.runNumber, ForEngine(extension));
    return PathOfAny(FromEngineText(manager.engine->cmiFileFullPath));
}

}  // namespace host
