// Which items the host's dialog offers, by kind of project, solver, mesh kind and annealing mode.
#pragma once

#include <cstdint>
#include <span>

#include "ZorbI2Types.h"

/// The items of the three groups in offering order, before the conditions on the project type.
struct OfferedItems {
    std::span<const std::int32_t> part;
    std::span<const std::int32_t> partInsert;
    std::span<const std::int32_t> moldbase;
};

/// The status that the offer depends on.
struct OfferStatus {
    SolverIndex solver;
    std::int32_t meshKind;
    std::int32_t annealingMode;
};

/// Kinds of project with an offer of their own.
enum class ProjectFamily { solid, solidVoxel, shell };

/// The offer; empty groups for a solver or mesh kind without one.
OfferedItems OfferedItemsFor(ProjectFamily family, const OfferStatus& status);

/// Whether a project of this type takes part in the offer of an item.
bool IsOfferedForProjectType(std::int32_t itemId, std::int32_t projectType);
