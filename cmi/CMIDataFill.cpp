#include "cmi/CMIDataFill.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include <zorbi2/ControlFileFormat.h>

#include "cmi/WeldlineData.h"
#include "platform/CheckedElement.h"

using platform::CheckedElement;

namespace cmi {

namespace {

constexpr bool EachSolverHasItsKeyword() {
    for (SolverIndex solver = 0; solver < kSolverCount; ++solver) {
        if (kSolverKeywords[solver].solver != solver) {
            return false;
        }
    }
    return true;
}
static_assert(EachSolverHasItsKeyword());

const char* KeywordOf(SolverIndex solver) {
    const auto row = static_cast<std::uint32_t>(solver);
    return row < std::size(kSolverKeywords) ? kSolverKeywords[row].keyword : "";
}

/// Segments by material reduction level; the same number for the three angle axes.
struct ReductionLevel {
    std::int32_t level;
    std::int32_t theta;
    std::int32_t strengthX;
    std::int32_t strengthY;
};

constexpr auto reductionLevels = std::to_array<ReductionLevel>({
    {0, 1, 1, 1},
    {1, 8, 5, 2},
    {2, 15, 10, 3},
    {3, 23, 15, 4},
    {4, 30, 20, 5},
});
constexpr ReductionLevel anyOtherLevel{-1, 15, 10, 3};

ReductionLevel ReductionLevelOf(std::int32_t option) {
    const auto row = std::ranges::find(reductionLevels, option, &ReductionLevel::level);
    return row != reductionLevels.end() ? *row : anyOtherLevel;
}

std::int32_t DensityReductionOf(std::int32_t option) {
    constexpr auto factors = std::to_array<std::int32_t>({0, 2, 4, 6, 8, 10});
    const auto row = static_cast<std::uint32_t>(option);
    return row < factors.size() ? factors[row] : 0;
}

/// The item's option; an item that was never built has no results.
std::int32_t OptionOf(const ItemArray& items, std::int32_t itemId) {
    const auto& item = items[itemId];
    return item ? item->optionValue : kOptionResultsMissing;
}

bool IsOutput(const ItemArray& items, std::int32_t itemId) {
    constexpr std::int32_t reductionNone = 5;
    constexpr std::int32_t includeRunner = 1;
    constexpr std::int32_t constantDensity = 0;
    const std::int32_t option = OptionOf(items, itemId);
    if (option == kOptionResultsMissing || !items[itemId]->isAvailable) {
        return false;
    }
    switch (itemId) {
        case kItemFiberOrientation:
        case kItemInsertFiberMaterial:
            return option != reductionNone;
        case kItemRunner:
            return option == includeRunner;
        case kItemDensity:
            return option != constantDensity;
        default:
            return option >= 0 || items[itemId]->checkState == 1;
    }
}

void FillMeshKind(CZorbI2CMIData& data, const CMIDataSource& source) {
    const bool isAnnealed = source.offeredProjectType == kProjectTypeAnnealing &&
                            source.annealingMode == kAnnealingDeformedMesh;
    data.IsOriginalMesh = source.meshKind == kMeshOriginal;
    data.IsDeformedMesh = source.meshKind == kMeshDeformed && !isAnnealed;
    data.IsMappedMesh = source.meshKind == kMeshMapped;
    data.Is3DMappingShell = source.meshKind == kMesh3DMappingShell;
    data.IsAnnealingDeformedMesh = source.annealingMode;
}

void FillOutputFlags(CZorbI2CMIData& data, const ItemArray& items) {
    for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
        if (itemId != kItemMicroMechanics) {
            data.OutputFlags[itemId] = IsOutput(items, itemId);
        }
    }
}

void FillSegments(CZorbI2CMIData& data, const ItemArray& items) {
    constexpr std::int32_t mapDomainSegments = 80;
    data.SegmentX = mapDomainSegments;
    data.SegmentY = mapDomainSegments;
    data.SegmentZ = mapDomainSegments;

    const ReductionLevel part = ReductionLevelOf(OptionOf(items, kItemFiberOrientation));
    data.FiberThetaXSegment = part.theta;
    data.FiberThetaYSegment = part.theta;
    data.FiberThetaZSegment = part.theta;
    data.FiberStrengthXSegment = part.strengthX;
    data.FiberStrengthYSegment = part.strengthY;

    const ReductionLevel insert = ReductionLevelOf(OptionOf(items, kItemInsertFiberMaterial));
    data.InsertFiberThetaXSegment = insert.theta;
    data.InsertFiberThetaYSegment = insert.theta;
    data.InsertFiberThetaZSegment = insert.theta;
    data.InsertFiberStrengthXSegment = insert.strengthX;
    data.InsertFiberStrengthYSegment = insert.strengthY;
}

void FillWeldlineData(CZorbI2CMIData& data, const CZorbI2WeldlineDataStatus& weldlines) {
    for (std::int32_t position = 0; position < kWeldlineValueCount; ++position) {
        data.WeldlineAngles[position] = CheckedElement(weldlines.WeldlineAngles, position);
    }
    for (std::int32_t position = 0; position < kWeldlineValueCount; ++position) {
        data.ReductionRates[position] = CheckedElement(weldlines.ReductionRates, position);
    }
}

}  // namespace

void ResetCMIData(CZorbI2CMIData& data) {
    CZorbI2CMIData fresh;
    fresh.FileVersion = kControlFileVersion;
    fresh.DigimatWeldlineAngle = kDefaultDigimatWeldlineAngle;
    // Kept: deliberate. The fill assigns all of them but the flag of kItemMicroMechanics.
    fresh.SolverName = std::move(data.SolverName);
    fresh.IsDistributeModel = data.IsDistributeModel;
    std::copy(data.OutputFlags + kItemMicroMechanics, data.OutputFlags + kItemAnnealingStress,
              fresh.OutputFlags + kItemMicroMechanics);
    fresh.IsViewEditModelMapping = data.IsViewEditModelMapping;
    data = std::move(fresh);
}

void FillCMIData(CZorbI2CMIData& data, const CMIDataSource& source) {
    constexpr std::int32_t distributeModel = 6;
    constexpr std::int32_t densityReductionNone = 6;
    const ItemArray& items = source.items;
    const std::int32_t densityOption = OptionOf(items, kItemDensity);

    FillMeshKind(data, source);
    data.SolverName = KeywordOf(source.currentSolver);
    data.FileVersion = kControlFileVersion;
    data.SolverType = source.solverType;
    data.ProjectType = source.projectType;
    data.QuadraticElement = source.quadraticElement != 0;
    data.IDCompositeModel = OptionOf(items, kItemMicroMechanics);
    data.MapFile = source.mapFile;
    data.OutFolder = source.outFolder;
    FillOutputFlags(data, items);
    // These two follow the options alone, whether or not the item's results exist.
    data.IsDistributeModel = OptionOf(items, kItemFiberOrientation) == distributeModel;
    data.IsDoDensityReduction = densityOption > 0 && densityOption != densityReductionNone;
    FillSegments(data, items);
    data.DensityReduction = DensityReductionOf(densityOption);
    FillWeldlineData(data, source.weldlineData);
    data.DigimatWeldlineAngle = source.digimatWeldlineAngle;
    data.IsViewEditModelMapping = source.viewEdit;
    data.DigimatOption = OptionOf(items, kItemDigimatExport);
}

}  // namespace cmi
