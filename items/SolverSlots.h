// Builds the slots of the offered solvers: display names, mesh kinds and element types.
#pragma once

#include <cstdint>
#include <vector>

#include <zorbi2/SolverSlot.h>

namespace items {

/// Which solvers are offered for a kind of molding analysis, by solver.
std::vector<bool> OfferedSolvers(std::int32_t solverType);

/// Fills the slots of the offered solvers; the others stay null, and so does a slot for which
/// there is no memory. Of `voxelFlag` only the low byte counts.
void BuildSolverSlots(SolverSlotArray& slots, const std::vector<bool>& solverOffered,
                      std::int32_t solverType, std::int32_t voxelFlag);

}  // namespace items
