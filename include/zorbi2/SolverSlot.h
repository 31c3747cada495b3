// What the engine knows about one offered solver, and the status last set for it.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ZorbI2Types.h"

/// Owned by the engine, one per offered solver. A host reads it to fill its solver choice.
class SolverSlot {
public:
    /// Makes a slot whose status no host has set yet.
    SolverSlot(SolverIndex index, std::string displayName, std::vector<std::string> meshes,
               std::vector<std::string> elements)
        : solverIndex(index),
          name(std::move(displayName)),
          meshTypes(std::move(meshes)),
          elementTypes(std::move(elements)) {}

    SolverIndex solverIndex;                ///< one of kSolver...
    std::string name;                       ///< display name, such as "MSC-Nastran"
    std::vector<std::string> meshTypes;     ///< mesh kinds that can be exported, in offer order
    std::vector<std::string> elementTypes;  ///< element types or orders, in offer order
    std::int32_t meshKind = 0;              ///< status last set by SetEngineCurrentStatus
    std::int32_t quadraticElement = 0;      ///< likewise
    std::int32_t annealingMode = 0;         ///< likewise
};

/// The slots of an engine by solver. Null: the solver is not offered for the project, or there was
/// no memory for its slot; `solverOffered` of the engine tells which.
typedef std::array<std::unique_ptr<SolverSlot>, kSolverCount> SolverSlotArray;
