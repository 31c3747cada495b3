// What the engine offers to all projects of a kind. A control file tells its kind by two numbers.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>

#include <zorbi2/CZorbI2EngineManager.h>
#include <zorbi2/SolverSlot.h>

namespace host {

struct Status {
    std::int32_t solver;
    std::int32_t meshKind;
    std::int32_t annealingMode;
};

using ItemIds = std::set<std::int32_t>;

class ProjectKind {
public:
    /// Creates an engine for a project without results: the offer does not depend on them.
    ProjectKind(std::int32_t solverType, std::int32_t projectType);

    bool OffersSolver(std::int32_t solver) const;
    bool OffersMesh(std::int32_t solver, std::int32_t meshKind) const;

    /// The items with a line that are offered for a status.
    ItemIds OfferedFor(const Status& status);

    /// A status for which exactly these items are offered, if there is one.
    std::optional<Status> StatusWith(const ItemIds& items);

    /// Whether an item is offered for any status.
    bool OffersItem(std::int32_t itemId);

private:
    /// By what is offered; the first of equals.
    const std::map<ItemIds, Status>& Statuses();
    void AddStatusesOf(std::int32_t solver);

    /// Null when the solver is not offered.
    const SolverSlot* SlotOf(std::int32_t solver) const;

    /// Not of a voxel project: such a one offers nothing else, and a file does not tell.
    CZorbI2EngineManager manager_;
    std::map<ItemIds, Status> statuses_;  ///< empty until they are asked for
};

}  // namespace host
