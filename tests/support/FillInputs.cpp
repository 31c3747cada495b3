#include "tests/support/FillInputs.h"

#include <memory>

#include <zorbi2/ZorbI2Types.h>

namespace support {

FillInputs::FillInputs() {
    for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
        items[itemId] = std::make_unique<CZorbI2Item>();
        items[itemId]->itemId = itemId;
        SetItem(itemId, false, 0, kOptionResultsMissing);
    }
    weldlineData.WeldlineAngles = {30.0, 60.0, 90.0};
    weldlineData.ReductionRates = {0.8, 0.9, 0.95};
}

void FillInputs::SetItem(std::int32_t itemId, bool isAvailable, std::int32_t checkState,
                         std::int32_t optionValue) {
    items[itemId]->isAvailable = isAvailable;
    items[itemId]->checkState = checkState;
    items[itemId]->optionValue = optionValue;
}

cmi::CMIDataSource FillInputs::Source() const {
    return {
        .items = items,
        .currentSolver = currentSolver,
        .meshKind = meshKind,
        .quadraticElement = quadraticElement,
        .annealingMode = annealingMode,
        .offeredProjectType = offeredProjectType,
        .solverType = solverType,
        .projectType = projectType,
        .mapFile = mapFile,
        .outFolder = outFolder,
        .weldlineData = weldlineData,
        .digimatWeldlineAngle = digimatWeldlineAngle,
        .viewEdit = viewEdit,
    };
}

CZorbI2CMIData FillInputs::FilledBlock() const {
    CZorbI2CMIData data;
    cmi::ResetCMIData(data);
    cmi::FillCMIData(data, Source());
    return data;
}

}  // namespace support
