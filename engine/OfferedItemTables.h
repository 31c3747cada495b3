// Which items the host's dialog offers, by kind of project, solver, mesh kind and annealing mode.
#pragma once

#include <cstdint>
#include <vector>

#include <zorbi2/ZorbI2Types.h>

namespace engine {

/// What of the project the offer depends on. The fields hold what the project record holds.
struct OfferProject {
    std::int32_t solverType;
    std::uint8_t voxelFlag;
    std::int32_t projectType;
};

/// The status that the offer depends on.
struct OfferStatus {
    SolverIndex solver;
    std::int32_t meshKind;
    std::int32_t annealingMode;
};

/// Item ids in offering order, one list for each group of the dialog.
struct OfferLists {
    std::vector<std::int32_t>& part;
    std::vector<std::int32_t>& partInsert;
    std::vector<std::int32_t>& moldbase;
};

/// Replaces the lists by the offer, which is empty for a solver or mesh kind without one. Projects
/// that are neither solid nor shell leave the lists as they are.
void ListOfferedItems(const OfferProject& project, const OfferStatus& status,
                      const OfferLists& lists);

}  // namespace engine
