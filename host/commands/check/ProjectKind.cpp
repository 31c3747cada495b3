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

ProjectKind::ProjectKind(std::int32_t solverType, std::int32_t projectType) {
    CZorbFEAInformation project;
    project.solverType = solverType;
    project.projectType = projectType;
    CreateEngine(manager_, project);
}

bool ProjectKind::OffersSolver(std::int32_t solver) const {
    return SlotOf(solver) != nullptr;
}

bool ProjectKind::OffersMesh(std::int32_t solver, std::int32_t meshKind) const {
    const SolverSlot* slot = SlotOf(solver);
    return slot != nullptr && Offers(*slot, meshKind);
}

ItemIds ProjectKind::OfferedFor(const Status& status) {
    manager_.SetEngineCurrentStatus(status.solver, status.meshKind, 0, status.annealingMode);
    manager_.SetPopItems();
    const PopItemSelector& selector = *manager_.engine->popItemSelector;
    ItemIds items;
    for (const auto* list :
         {&selector.partPopItems, &selector.partInsertPopItems, &selector.moldbasePopItems}) {
        std::ranges::copy_if(*list, std::inserter(items, items.end()), ControlFileLineOfItem);
    }
    return items;
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
            statuses_.try_emplace(OfferedFor(status), status);
        }
    }
}

const SolverSlot* ProjectKind::SlotOf(std::int32_t solver) const {
    return solver >= 0 && solver < kSolverCount ? manager_.engine->solverSlots[solver].get()
                                                : nullptr;
}

}  // namespace host
