// Where Visual Studio's hosts find the fields of the records. Texts, maps and vectors have other
// sizes in Microsoft's library than in the one at hand, so this holds what is before the first of
// them and what is between two of them; the whole table is in docs/windows.md.
#include <zorbi2/CZorbFEAInformation.h>
#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/CZorbI2EngineManager.h>
#include <zorbi2/CZorbI2Item.h>
#include <zorbi2/CZorbI2ItemStatus.h>

#include <cstddef>

#include "quenta/CQuentaResultReader_Manipulator.h"

namespace {

constexpr bool IsAt(std::size_t offset, std::size_t expected) {
    return offset == expected;
}

constexpr bool AreApart(std::size_t first, std::size_t second, std::size_t distance) {
    return second - first == distance;
}

}  // namespace

// clang-format off

static_assert(sizeof(void*) == 8);

static_assert(sizeof(CZorbI2EngineManager) == 24 && alignof(CZorbI2EngineManager) == 8);
static_assert(IsAt(offsetof(CZorbI2EngineManager, engine), 0));
static_assert(IsAt(offsetof(CZorbI2EngineManager, cmiData), 8));
static_assert(IsAt(offsetof(CZorbI2EngineManager, accessCmiFile), 16));

static_assert(sizeof(CZorbI2ItemStatus) == 24 && alignof(CZorbI2ItemStatus) == 8);
static_assert(IsAt(offsetof(CZorbI2ItemStatus, item), 0));
static_assert(IsAt(offsetof(CZorbI2ItemStatus, itemId), 8));
static_assert(IsAt(offsetof(CZorbI2ItemStatus, checkState), 12));
static_assert(IsAt(offsetof(CZorbI2ItemStatus, optionValue), 16));

static_assert(sizeof(CQuentaResultReader_Manipulator) == 8);

static_assert(IsAt(offsetof(CZorbI2Item, category), 0));
static_assert(IsAt(offsetof(CZorbI2Item, itemId), 4));
static_assert(IsAt(offsetof(CZorbI2Item, isAvailable), 8));
static_assert(IsAt(offsetof(CZorbI2Item, checkState), 12));
static_assert(IsAt(offsetof(CZorbI2Item, options), 16));

using Record = CZorbFEAInformation;
static_assert(AreApart(offsetof(Record, runNumber), offsetof(Record, projectFolder), 8));
static_assert(AreApart(offsetof(Record, value5), offsetof(Record, solverType), 4));
static_assert(AreApart(offsetof(Record, value5), offsetof(Record, projectType), 8));
static_assert(AreApart(offsetof(Record, value5), offsetof(Record, voxelFlag), 12));
static_assert(AreApart(offsetof(Record, value5), offsetof(Record, value9), 16));
static_assert(AreApart(offsetof(Record, value5), offsetof(Record, flags), 20));
static_assert(AreApart(offsetof(Record, value5), sizeof(Record), 40));

using Data = CZorbI2CMIData;
static_assert(AreApart(offsetof(Data, FileVersion), offsetof(Data, SolverType), 4));
static_assert(AreApart(offsetof(Data, FileVersion), offsetof(Data, IDCompositeModel), 16));
static_assert(AreApart(offsetof(Data, FileVersion), offsetof(Data, OutFolder), 24));
static_assert(AreApart(offsetof(Data, IsOriginalMesh), offsetof(Data, OutputFlags), 24));
static_assert(AreApart(offsetof(Data, IsOriginalMesh), offsetof(Data, IsDoDensityReduction), 112));
static_assert(AreApart(offsetof(Data, IsOriginalMesh), offsetof(Data, DensityReduction), 168));
static_assert(AreApart(offsetof(Data, IsOriginalMesh), offsetof(Data, WeldlineAngles), 176));
static_assert(AreApart(offsetof(Data, IsOriginalMesh), offsetof(Data, ReductionRates), 200));
static_assert(AreApart(offsetof(Data, IsOriginalMesh), offsetof(Data, DigimatWeldlineAngle), 224));
static_assert(AreApart(offsetof(Data, IsOriginalMesh), offsetof(Data, DigimatOption), 236));
static_assert(AreApart(offsetof(Data, IsOriginalMesh), sizeof(Data), 240));

// clang-format on
