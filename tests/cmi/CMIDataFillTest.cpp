// The fill of the data block: mesh kind, keyword, reduction levels, weld lines and plain copies.
#include "cmi/CMIDataFill.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/ZorbI2Types.h>

#include "tests/support/CMIDataFields.h"
#include "tests/support/Errors.h"
#include "tests/support/FillInputs.h"

using support::BlockOfDistinctValues;
using support::FillInputs;
using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

std::vector<std::int32_t> MeshFlags(const CZorbI2CMIData& data) {
    return {data.IsOriginalMesh, data.IsDeformedMesh, data.IsMappedMesh, data.Is3DMappingShell};
}

std::vector<std::int32_t> PartSegments(const CZorbI2CMIData& data) {
    return {data.FiberThetaXSegment, data.FiberThetaYSegment, data.FiberThetaZSegment,
            data.FiberStrengthXSegment, data.FiberStrengthYSegment};
}

std::vector<std::int32_t> InsertSegments(const CZorbI2CMIData& data) {
    return {data.InsertFiberThetaXSegment, data.InsertFiberThetaYSegment,
            data.InsertFiberThetaZSegment, data.InsertFiberStrengthXSegment,
            data.InsertFiberStrengthYSegment};
}

constexpr std::int32_t noReduction = 5;
constexpr std::int32_t maximalReduction = 4;
constexpr std::int32_t distributedModel = 6;  // no label names it
constexpr std::int32_t noDensityReduction = 6;
constexpr std::int32_t maximalDensityReduction = 5;

struct SegmentRow {
    std::int32_t option;
    std::vector<std::int32_t> segments;  // theta X, Y, Z, strength X, Y
};

// clang-format off
const std::vector<SegmentRow> segmentRows = {
    {-3, {15, 15, 15, 10, 3}},
    {-2, {15, 15, 15, 10, 3}},
    {-1, {15, 15, 15, 10, 3}},
    { 0, { 1,  1,  1,  1, 1}},
    { 1, { 8,  8,  8,  5, 2}},
    { 2, {15, 15, 15, 10, 3}},
    { 3, {23, 23, 23, 15, 4}},
    { 4, {30, 30, 30, 20, 5}},
    { 5, {15, 15, 15, 10, 3}},
    { 6, {15, 15, 15, 10, 3}},
    { 7, {15, 15, 15, 10, 3}},
    { 8, {15, 15, 15, 10, 3}},
};
// clang-format on

}  // namespace

// ---- Mesh kind ------------------------------------------------------------------------------

TEST(CMIDataFill, SetsTheOneFlagOfTheMeshKind) {
    struct Row {
        std::int32_t meshKind;
        std::vector<std::int32_t> flags;
    };
    const std::vector<Row> rows = {
        {-1, {0, 0, 0, 0}}, {0, {1, 0, 0, 0}}, {1, {0, 1, 0, 0}}, {2, {0, 0, 1, 0}},
        {3, {0, 0, 0, 1}},  {4, {0, 0, 0, 0}}, {5, {0, 0, 0, 0}},
    };
    for (const Row& row : rows) {
        for (const std::int32_t projectType : {0, kProjectTypeAnnealing}) {
            for (const std::int32_t annealingMode : {-1, 0, 1, 2}) {
                SCOPED_TRACE("mesh kind " + std::to_string(row.meshKind) + ", project type " +
                             std::to_string(projectType) + ", annealing mode " +
                             std::to_string(annealingMode));
                FillInputs inputs;
                inputs.meshKind = row.meshKind;
                inputs.offeredProjectType = projectType;
                inputs.annealingMode = annealingMode;
                const bool isAnnealed = row.meshKind == kMeshDeformed &&
                                        projectType == kProjectTypeAnnealing &&
                                        annealingMode == kAnnealingDeformedMesh;
                const std::vector<std::int32_t> none = {0, 0, 0, 0};
                EXPECT_EQ(MeshFlags(inputs.FilledBlock()), isAnnealed ? none : row.flags);
            }
        }
    }
}

TEST(CMIDataFill, ClearsTheDeformedMeshOnlyForAnAnnealedProjectInItsAnnealingMode) {
    FillInputs inputs;
    inputs.meshKind = kMeshDeformed;
    inputs.annealingMode = kAnnealingDeformedMesh;
    for (const std::int32_t projectType :
         {-1, 0, 1, 2, kProjectTypeAnnealing, 4, kProjectTypeMucell}) {
        inputs.offeredProjectType = projectType;
        EXPECT_EQ(inputs.FilledBlock().IsDeformedMesh, projectType == kProjectTypeAnnealing ? 0 : 1)
            << projectType;
    }
}

TEST(CMIDataFill, AsksTheOfferForAnAnnealedMeshAndPrintsTheRecordsProjectType) {
    FillInputs inputs;
    inputs.meshKind = kMeshDeformed;
    inputs.annealingMode = kAnnealingDeformedMesh;
    inputs.offeredProjectType = 0;
    inputs.projectType = kProjectTypeAnnealing;
    EXPECT_EQ(inputs.FilledBlock().IsDeformedMesh, 1);
    EXPECT_EQ(inputs.FilledBlock().ProjectType, kProjectTypeAnnealing);
    inputs.offeredProjectType = kProjectTypeAnnealing;
    inputs.projectType = 0;
    EXPECT_EQ(inputs.FilledBlock().IsDeformedMesh, 0);
    EXPECT_EQ(inputs.FilledBlock().ProjectType, 0);
}

TEST(CMIDataFill, CopiesTheAnnealingModeAsItIs) {
    for (const std::int32_t annealingMode : {-1, 0, 1, 2, 300}) {
        for (const std::int32_t meshKind :
             {kMeshOriginal, kMeshDeformed, kMeshMapped, kMesh3DMappingShell}) {
            FillInputs inputs;
            inputs.meshKind = meshKind;
            inputs.annealingMode = annealingMode;
            EXPECT_EQ(inputs.FilledBlock().IsAnnealingDeformedMesh, annealingMode);
        }
    }
}

// ---- Solver, project and settings -----------------------------------------------------------

TEST(CMIDataFill, GivesTheSolverItsKeyword) {
    struct Row {
        std::int32_t solver;
        const char* keyword;
    };
    const std::vector<Row> rows = {
        {-2, ""},
        {-1, ""},
        {0, "ANSYS"},
        {1, "ABAQUS"},
        {2, "MSCNASTRAN"},
        {3, "NENASTRAN"},
        {4, "LSDYNA"},
        {5, "MARC"},
        {6, "NXNASTRAN"},
        {7, "RADIOSS"},
        {8, "WORKBENCH"},
        {kSolverCount, ""},
        {kSolverCount + 1, ""},
        {std::numeric_limits<std::int32_t>::max(), ""},
        {std::numeric_limits<std::int32_t>::min(), ""},
    };
    for (const Row& row : rows) {
        FillInputs inputs;
        inputs.currentSolver = row.solver;
        EXPECT_EQ(inputs.FilledBlock().SolverName, row.keyword) << row.solver;
    }
}

TEST(CMIDataFill, CopiesSolverTypeAndProjectType) {
    for (const std::int32_t value : {-1, 0, 1, 3, 9, 4711}) {
        FillInputs inputs;
        inputs.solverType = value;
        inputs.projectType = value + 1;
        const CZorbI2CMIData data = inputs.FilledBlock();
        EXPECT_EQ(data.SolverType, value);
        EXPECT_EQ(data.ProjectType, value + 1);
    }
}

TEST(CMIDataFill, TakesAnyValueButZeroForQuadraticElements) {
    for (const std::int32_t value : {-1, 0, 1, 2, 256}) {
        FillInputs inputs;
        inputs.quadraticElement = value;
        EXPECT_EQ(inputs.FilledBlock().QuadraticElement, value == 0 ? 0 : 1) << value;
    }
}

TEST(CMIDataFill, TakesTheCompositeModelFromMicroMechanicsAvailableOrNot) {
    for (const std::int32_t option : {-2, -1, 0, 1, 2, 7}) {
        for (const bool isAvailable : {false, true}) {
            FillInputs inputs;
            inputs.SetItem(kItemMicroMechanics, isAvailable, kNotACheckItem, option);
            EXPECT_EQ(inputs.FilledBlock().IDCompositeModel, option);
        }
    }
}

TEST(CMIDataFill, TakesTheDigimatOptionFromTheDigimatExport) {
    for (const std::int32_t option : {-2, -1, 0, 1}) {
        FillInputs inputs;
        inputs.SetItem(kItemDigimatExport, true, 0, option);
        EXPECT_EQ(inputs.FilledBlock().DigimatOption, option);
    }
}

TEST(CMIDataFill, CopiesThePathsAsTheyAre) {
    FillInputs inputs;
    inputs.mapFile = "C:\\Mesh\\%s.map\\";
    inputs.outFolder = std::string("D:\\Out\0put", 10);
    const CZorbI2CMIData data = inputs.FilledBlock();
    EXPECT_EQ(data.MapFile, "C:\\Mesh\\%s.map\\");
    EXPECT_EQ(data.OutFolder, std::string("D:\\Out\0put", 10));
}

TEST(CMIDataFill, CopiesDigimatAngleAndViewEdit) {
    FillInputs inputs;
    inputs.digimatWeldlineAngle = -5.0;
    inputs.viewEdit = true;
    EXPECT_EQ(inputs.FilledBlock().DigimatWeldlineAngle, -5.0);
    EXPECT_EQ(inputs.FilledBlock().IsViewEditModelMapping, 1);
    inputs.viewEdit = false;
    EXPECT_EQ(inputs.FilledBlock().IsViewEditModelMapping, 0);
}

TEST(CMIDataFill, SetsTheFileVersionAgain) {
    CZorbI2CMIData data = BlockOfDistinctValues();
    cmi::FillCMIData(data, FillInputs().Source());
    EXPECT_EQ(data.FileVersion, 9064);
}

// ---- Reduction levels -----------------------------------------------------------------------

TEST(CMIDataFill, DividesTheMapDomainEqually) {
    const CZorbI2CMIData data = FillInputs().FilledBlock();
    EXPECT_EQ(data.SegmentX, 80);
    EXPECT_EQ(data.SegmentY, 80);
    EXPECT_EQ(data.SegmentZ, 80);
}

TEST(CMIDataFill, TakesPartSegmentsFromTheOptionOfTheFiberOrientation) {
    for (const SegmentRow& row : segmentRows) {
        for (const bool isAvailable : {false, true}) {
            FillInputs inputs;
            inputs.SetItem(kItemFiberOrientation, isAvailable, kNotACheckItem, row.option);
            const CZorbI2CMIData data = inputs.FilledBlock();
            EXPECT_THAT(PartSegments(data), ElementsAreArray(row.segments)) << row.option;
            EXPECT_THAT(InsertSegments(data), ElementsAre(15, 15, 15, 10, 3)) << row.option;
        }
    }
}

TEST(CMIDataFill, TakesInsertSegmentsFromTheOptionOfTheInsertFiberMaterial) {
    for (const SegmentRow& row : segmentRows) {
        for (const bool isAvailable : {false, true}) {
            FillInputs inputs;
            inputs.SetItem(kItemInsertFiberMaterial, isAvailable, kNotACheckItem, row.option);
            const CZorbI2CMIData data = inputs.FilledBlock();
            EXPECT_THAT(InsertSegments(data), ElementsAreArray(row.segments)) << row.option;
            EXPECT_THAT(PartSegments(data), ElementsAre(15, 15, 15, 10, 3)) << row.option;
        }
    }
}

TEST(CMIDataFill, NoReductionTakesTheSegmentsOfAnyOtherLevel) {
    FillInputs inputs;
    inputs.SetItem(kItemFiberOrientation, true, kNotACheckItem, noReduction);
    const CZorbI2CMIData data = inputs.FilledBlock();
    EXPECT_EQ(data.OutputFlags[kItemFiberOrientation], 0);
    EXPECT_THAT(PartSegments(data), ElementsAre(15, 15, 15, 10, 3));
}

TEST(CMIDataFill, MaximalReductionGivesTheFinestInsertSegments) {
    FillInputs inputs;
    inputs.SetItem(kItemInsertFiberMaterial, true, kNotACheckItem, maximalReduction);
    EXPECT_THAT(InsertSegments(inputs.FilledBlock()), ElementsAre(30, 30, 30, 20, 5));
}

TEST(CMIDataFill, DistributesTheModelForTheOptionWithoutALabelAvailableOrNot) {
    for (std::int32_t option = -3; option <= 8; ++option) {
        for (const bool isAvailable : {false, true}) {
            FillInputs inputs;
            inputs.SetItem(kItemFiberOrientation, isAvailable, kNotACheckItem, option);
            EXPECT_EQ(inputs.FilledBlock().IsDistributeModel, option == distributedModel ? 1 : 0)
                << option;
        }
    }
}

TEST(CMIDataFill, TakesDensityFactorAndSwitchFromTheDensityOptionAvailableOrNot) {
    struct Row {
        std::int32_t option;
        std::int32_t isReduced;
        std::int32_t factor;
    };
    const std::vector<Row> rows = {
        {-3, 0, 0}, {-2, 0, 0}, {-1, 0, 0}, {0, 0, 0}, {1, 1, 2}, {2, 1, 4},
        {3, 1, 6},  {4, 1, 8},  {5, 1, 10}, {6, 0, 0}, {7, 1, 0}, {8, 1, 0},
    };
    for (const Row& row : rows) {
        for (const bool isAvailable : {false, true}) {
            FillInputs inputs;
            inputs.SetItem(kItemDensity, isAvailable, kNotACheckItem, row.option);
            const CZorbI2CMIData data = inputs.FilledBlock();
            EXPECT_EQ(data.IsDoDensityReduction, row.isReduced) << row.option;
            EXPECT_EQ(data.DensityReduction, row.factor) << row.option;
        }
    }
}

TEST(CMIDataFill, NoDensityReductionTurnsTheSwitchOff) {
    FillInputs inputs;
    inputs.SetItem(kItemDensity, true, kNotACheckItem, noDensityReduction);
    const CZorbI2CMIData data = inputs.FilledBlock();
    EXPECT_EQ(data.IsDoDensityReduction, 0);
    EXPECT_EQ(data.DensityReduction, 0);
    EXPECT_EQ(data.OutputFlags[kItemDensity], 1);
}

TEST(CMIDataFill, MaximalDensityReductionGivesTheLargestFactor) {
    FillInputs inputs;
    inputs.SetItem(kItemDensity, true, kNotACheckItem, maximalDensityReduction);
    const CZorbI2CMIData data = inputs.FilledBlock();
    EXPECT_EQ(data.IsDoDensityReduction, 1);
    EXPECT_EQ(data.DensityReduction, 10);
}

TEST(CMIDataFill, TreatsItemsThatWereNeverBuiltLikeItemsWithoutResults) {
    FillInputs inputs;
    for (auto& item : inputs.items) {
        item.reset();
    }
    const CZorbI2CMIData data = inputs.FilledBlock();
    EXPECT_EQ(data.IDCompositeModel, kOptionResultsMissing);
    EXPECT_EQ(data.DigimatOption, kOptionResultsMissing);
    EXPECT_EQ(data.IsDistributeModel, 0);
    EXPECT_EQ(data.IsDoDensityReduction, 0);
    EXPECT_EQ(data.DensityReduction, 0);
    EXPECT_THAT(PartSegments(data), ElementsAre(15, 15, 15, 10, 3));
    EXPECT_THAT(InsertSegments(data), ElementsAre(15, 15, 15, 10, 3));
}

// ---- Weld lines -----------------------------------------------------------------------------

TEST(CMIDataFill, TakesTheFirstThreeAnglesAndRates) {
    FillInputs inputs;
    inputs.weldlineData.WeldlineAngles = {10.0, 20.5, 30.25, 40.0};
    inputs.weldlineData.ReductionRates = {0.5, 0.6, 0.7, 0.8, 0.9};
    const CZorbI2CMIData data = inputs.FilledBlock();
    EXPECT_THAT(data.WeldlineAngles, ElementsAre(10.0, 20.5, 30.25));
    EXPECT_THAT(data.ReductionRates, ElementsAre(0.5, 0.6, 0.7));
}

namespace {

/// Fills from lists of the given lengths, of which at least one is too short, and gives the block
/// as the error left it.
CZorbI2CMIData BlockAfterShortLists(std::size_t angleCount, std::size_t rateCount) {
    FillInputs inputs;
    inputs.weldlineData.WeldlineAngles.resize(angleCount);
    inputs.weldlineData.ReductionRates.resize(rateCount);
    inputs.digimatWeldlineAngle = 77.0;
    inputs.viewEdit = true;
    inputs.SetItem(kItemDigimatExport, true, kNotACheckItem, 1);
    CZorbI2CMIData data;
    cmi::ResetCMIData(data);
    EXPECT_EQ(support::OutOfRangeText([&] { cmi::FillCMIData(data, inputs.Source()); }),
              support::kInvalidSubscript);
    return data;
}

/// What stands after the weld-line data is not reached by a fill that a short list ends.
void ExpectTheRestUnfilled(const CZorbI2CMIData& data) {
    EXPECT_EQ(data.DigimatWeldlineAngle, kDefaultDigimatWeldlineAngle);
    EXPECT_EQ(data.IsViewEditModelMapping, 0);
    EXPECT_EQ(data.DigimatOption, 0);
}

}  // namespace

TEST(CMIDataFill, FillsElementByElementUntilAnAngleIsMissing) {
    const std::vector<std::vector<double>> filled = {
        {0.0, 0.0, 0.0}, {30.0, 0.0, 0.0}, {30.0, 60.0, 0.0}};
    for (std::size_t angleCount = 0; angleCount < 3; ++angleCount) {
        SCOPED_TRACE(angleCount);
        const CZorbI2CMIData data = BlockAfterShortLists(angleCount, 3);
        EXPECT_THAT(data.WeldlineAngles, ElementsAreArray(filled[angleCount]));
        EXPECT_THAT(data.ReductionRates, ElementsAre(0.0, 0.0, 0.0));
        ExpectTheRestUnfilled(data);
    }
}

TEST(CMIDataFill, FillsElementByElementUntilARateIsMissing) {
    const std::vector<std::vector<double>> filled = {
        {0.0, 0.0, 0.0}, {0.8, 0.0, 0.0}, {0.8, 0.9, 0.0}};
    for (std::size_t rateCount = 0; rateCount < 3; ++rateCount) {
        SCOPED_TRACE(rateCount);
        const CZorbI2CMIData data = BlockAfterShortLists(3, rateCount);
        EXPECT_THAT(data.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
        EXPECT_THAT(data.ReductionRates, ElementsAreArray(filled[rateCount]));
        ExpectTheRestUnfilled(data);
    }
}

TEST(CMIDataFill, FillsAllThatStandsBeforeTheWeldLinesWhenAListIsTooShort) {
    FillInputs inputs;
    inputs.currentSolver = kSolverLsDyna;
    inputs.meshKind = kMeshMapped;
    inputs.outFolder = "out";
    inputs.SetItem(kItemDensity, true, kNotACheckItem, 3);
    inputs.weldlineData.WeldlineAngles.clear();
    CZorbI2CMIData data;
    EXPECT_THROW(cmi::FillCMIData(data, inputs.Source()), std::out_of_range);
    EXPECT_EQ(data.SolverName, "LSDYNA");
    EXPECT_EQ(data.IsMappedMesh, 1);
    EXPECT_EQ(data.OutFolder, "out");
    EXPECT_EQ(data.OutputFlags[kItemDensity], 1);
    EXPECT_EQ(data.SegmentX, 80);
    EXPECT_EQ(data.DensityReduction, 6);
}

TEST(CMIDataFill, LeavesItsInputsAsTheyAre) {
    FillInputs inputs;
    inputs.SetItem(kItemFiberOrientation, true, kNotACheckItem, 3);
    inputs.mapFile = "map";
    inputs.FilledBlock();
    EXPECT_EQ(inputs.items[kItemFiberOrientation]->optionValue, 3);
    EXPECT_EQ(inputs.mapFile, "map");
    EXPECT_THAT(inputs.weldlineData.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
}
