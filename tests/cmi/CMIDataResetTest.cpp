// The reset of the data block: what starts anew and what stays.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/CZorbI2EngineManager.h>

#include "cmi/CMIDataFill.h"
#include "tests/support/CMIDataFields.h"

using support::BlockOfDistinctValues;
using support::FieldsOf;
using testing::ContainerEq;

namespace {

using Fields = std::map<std::string, std::string>;

/// Every field's value after a reset, but those that the reset leaves alone.
const Fields& StartingValues() {
    static const Fields values = {
        {"MapFile", ""},
        {"FileVersion", "9064"},
        {"SolverType", "0"},
        {"ProjectType", "0"},
        {"QuadraticElement", "0"},
        {"IDCompositeModel", "0"},
        {"OutFolder", ""},
        {"IsOriginalMesh", "0"},
        {"IsDeformedMesh", "0"},
        {"IsMappedMesh", "0"},
        {"Is3DMappingShell", "0"},
        {"IsAnnealingDeformedMesh", "0"},
        {"OutputFlags[0]", "0"},
        {"OutputFlags[1]", "0"},
        {"OutputFlags[2]", "0"},
        {"OutputFlags[3]", "0"},
        {"OutputFlags[4]", "0"},
        {"OutputFlags[5]", "0"},
        {"OutputFlags[6]", "0"},
        {"OutputFlags[7]", "0"},
        {"OutputFlags[8]", "0"},
        {"OutputFlags[9]", "0"},
        {"OutputFlags[10]", "0"},
        {"OutputFlags[11]", "0"},
        {"OutputFlags[12]", "0"},
        {"OutputFlags[13]", "0"},
        {"OutputFlags[14]", "0"},
        {"OutputFlags[21]", "0"},
        {"IsDoDensityReduction", "0"},
        {"SegmentX", "0"},
        {"SegmentY", "0"},
        {"SegmentZ", "0"},
        {"FiberThetaXSegment", "0"},
        {"FiberThetaYSegment", "0"},
        {"FiberThetaZSegment", "0"},
        {"FiberStrengthXSegment", "0"},
        {"FiberStrengthYSegment", "0"},
        {"InsertFiberThetaXSegment", "0"},
        {"InsertFiberThetaYSegment", "0"},
        {"InsertFiberThetaZSegment", "0"},
        {"InsertFiberStrengthXSegment", "0"},
        {"InsertFiberStrengthYSegment", "0"},
        {"DensityReduction", "0"},
        {"WeldlineAngles[0]", "0"},
        {"WeldlineAngles[1]", "0"},
        {"WeldlineAngles[2]", "0"},
        {"ReductionRates[0]", "0"},
        {"ReductionRates[1]", "0"},
        {"ReductionRates[2]", "0"},
        {"DigimatWeldlineAngle", "135"},
        {"DigimatOption", "0"},
    };
    return values;
}

/// What the reset leaves alone, as BlockOfDistinctValues numbers it.
const Fields& KeptValues() {
    static const Fields values = {
        {"SolverName", "text 101"}, {"IsDistributeModel", "114"}, {"OutputFlags[15]", "130"},
        {"OutputFlags[16]", "131"}, {"OutputFlags[17]", "132"},   {"OutputFlags[18]", "133"},
        {"OutputFlags[19]", "134"}, {"OutputFlags[20]", "135"},   {"IsViewEditModelMapping", "159"},
    };
    return values;
}

}  // namespace

TEST(CMIDataReset, GivesStartingValuesAndLeavesFourFieldsAsTheyAre) {
    CZorbI2CMIData data = BlockOfDistinctValues();

    cmi::ResetCMIData(data);

    Fields expected = StartingValues();
    expected.insert(KeptValues().begin(), KeptValues().end());
    EXPECT_THAT(FieldsOf(data), ContainerEq(expected));
}

TEST(CMIDataReset, TwiceIsTheSameAsOnce) {
    CZorbI2CMIData once = BlockOfDistinctValues();
    cmi::ResetCMIData(once);
    CZorbI2CMIData twice = once;

    cmi::ResetCMIData(twice);

    EXPECT_THAT(FieldsOf(twice), ContainerEq(FieldsOf(once)));
}

TEST(CMIDataReset, IsDoneWhenTheManagerCreatesTheBlock) {
    CZorbI2EngineManager manager;
    ASSERT_EQ(manager.GetZorbCMIData(), nullptr);

    ASSERT_TRUE(manager.CreateCMIDataBlock());

    ASSERT_NE(manager.GetZorbCMIData(), nullptr);
    const Fields fields = FieldsOf(*manager.GetZorbCMIData());
    for (const auto& [name, value] : StartingValues()) {
        EXPECT_EQ(fields.at(name), value) << name;
    }
    EXPECT_EQ(fields.at("SolverName"), "");
}
