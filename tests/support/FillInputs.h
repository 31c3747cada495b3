// What a data block of the control parameter file is filled from, for tests to change.
#pragma once

#include <cstdint>
#include <string>

#include <zorbi2/CZorbI2Item.h>
#include <zorbi2/CZorbI2WeldlineDataStatus.h>
#include <zorbi2/ZorbI2Types.h>

#include "cmi/CMIDataFill.h"

namespace support {

/// Starts as a solid project under ANSYS with the original mesh, all items without results and
/// weld-line data of 30, 60, 90 degrees and 0.8, 0.9, 0.95.
struct FillInputs {
    FillInputs();

    /// Sets what the fill reads from one item.
    void SetItem(std::int32_t itemId, bool isAvailable, std::int32_t checkState,
                 std::int32_t optionValue);

    cmi::CMIDataSource Source() const;

    /// A block that was reset and filled from these inputs.
    CZorbI2CMIData FilledBlock() const;

    ItemArray items;
    std::int32_t currentSolver = kSolverAnsys;
    std::int32_t meshKind = kMeshOriginal;
    std::int32_t quadraticElement = 0;
    std::int32_t annealingMode = 0;
    std::int32_t offeredProjectType = 0;
    std::int32_t solverType = kSolidProject;
    std::int32_t projectType = 0;
    std::string mapFile;
    std::string outFolder;
    CZorbI2WeldlineDataStatus weldlineData;
    double digimatWeldlineAngle = kDefaultDigimatWeldlineAngle;
    bool viewEdit = false;
};

}  // namespace support
