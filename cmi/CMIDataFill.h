// Resets the data block of the control parameter file and fills it from what the engine holds.
#pragma once

#include <cstdint>
#include <string>

#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/CZorbI2Item.h>
#include <zorbi2/CZorbI2WeldlineDataStatus.h>

namespace cmi {

/// All that the data block is filled from; the engine hands it over.
struct CMIDataSource {
    const ItemArray& items;
    SolverIndex currentSolver;
    std::int32_t meshKind;
    std::int32_t quadraticElement;
    std::int32_t annealingMode;
    std::int32_t offeredProjectType;  ///< the offer's copy: decides on the annealed deformed mesh
    std::int32_t solverType;
    std::int32_t projectType;
    const std::string& mapFile;
    const std::string& outFolder;
    const CZorbI2WeldlineDataStatus& weldlineData;
    double digimatWeldlineAngle;
    bool viewEdit;
};

/// Sets the fields to their starting values. Leaves SolverName, IsDistributeModel, the output flags
/// from the composite model to the Digimat temperature, and IsViewEditModelMapping as they are.
void ResetCMIData(CZorbI2CMIData& data);

/// Fills a block that was reset. Weld-line lists with fewer than three elements raise
/// std::out_of_range("invalid vector<T> subscript").
void FillCMIData(CZorbI2CMIData& data, const CMIDataSource& source);

}  // namespace cmi
