#include "commands/check/ProjectKind.h"

#include <algorithm>
#include <iterator>

#include <zorbi2/CZorbFEAInformation.h>
#include <zorbi2/CZorbI2Engine.h>
#include <zorbi2/ControlFileFormat.h>
#include <zorbi2/ZorbI2Types.h>

#include "handover/Engine.h"
#include "handover/Offers.h"
#include "recipes/Names.h"

namespace host {

namespace {

ItemIds OfferedBy(CZorbI2EngineManager& manager, const Status& status) {
    manager.SetEngineCurrentStatus(status.solver, status.meshKind, 0, status.annealingMode);
    manager.SetPopItems();
    const PopItemSelector& selector = *manager.engine->popItemSelector;
    ItemIds items;
    for (const auto* list :
         {&selector.partPopItems, &selector.partInsertPopItems, &selector.moldbasePopItems}) {
        std::ranges::copy_if(*list, std::inserter(items, items.end()), ControlFileLineOfItem);
    }
    return items;
}

/// The solver's slot in an engine; null when the solver is not offered there.
const SolverSlot* SlotOf(const CZorbI2EngineManager& manager, std::int32_t solver) {
    return solver >= 0 && solver < kSolverCount ? manager.engine->solverSlots[solver].get()
                                                : nullptr;
}

bool OffersMesh(const CZorbI2EngineManager& manager, std::int32_t solver, std::int32_t meshKind) {
    const SolverSlot* slot = SlotOf(manager, solver);
    return slot != nullptr && Offers(*slot, meshKind);
}

}  // namespace

ProjectKind::ProjectKind(std::int32_t solverType, std::int32_t projectType) {
    CZorbFEAInformation project;
    project.solverType = solverType;
    project.projectType = projectType;
    for (CZorbI2EngineManager& manager : managers_) {
        CreateEngine(manager, project);
        project.voxelFlag = 1;  // of the second
    }
}

bool ProjectKind::OffersSolver(std::int32_t solver) const {
    return std::ranges::any_of(managers_, [solver](const CZorbI2EngineManager& manager) {
        return SlotOf(manager, solver) != nullptr;
    });
}

bool ProjectKind::OffersMesh(std::int32_t solver, std::int32_t meshKind) const {
    return std::ranges::any_of(managers_, [=](const CZorbI2EngineManager& manager) {
        return host::OffersMesh(manager, solver, meshKind);
    });
}

std::vector<ItemIds> ProjectKind::OffersFor(const Status& status) {
    const bool isOffered = OffersMesh(status.solver, status.meshKind);
    std::vector<ItemIds> offers;
    for (CZorbI2EngineManager& manager : managers_) {
        if (!isOffered || host::OffersMesh(manager, status.solver, status.meshKind)) {
            offers.push_back(OfferedBy(manager, status));
        }
    }
    return offers;
}

std::optional<Status> ProjectKind::StatusWith(const ItemIds& items) {
    const auto known = Statuses().find(items);
    return known != Statuses().end() ? std::optional(known->second) : std::nullopt;
}

bool ProjectKind::OffersItem(std::int32_t itemId) {
    return std::ranges::any_of(Statuses(),
                               [itemId](const auto& row) { return row.first.contains(itemId); });
}

const std::map<ItemIds, Status>& ProjectKind::Statuses() {
    if (statuses_.empty()) {
        for (std::int32_t solver = 0; solver < kSolverCount; ++solver) {
            AddStatusesOf(solver);
        }
    }
    return statuses_;
}

void ProjectKind::AddStatusesOf(std::int32_t solver) {
    for (const auto& [meshKind, name] : meshKinds) {
        for (const std::int32_t annealing : {0, kAnnealingDeformedMesh}) {
            const Status status{solver, meshKind, annealing};
            for (CZorbI2EngineManager& manager : managers_) {
                statuses_.try_emplace(OfferedBy(manager, status), status);
            }
        }
    }
}

}  // namespace host
