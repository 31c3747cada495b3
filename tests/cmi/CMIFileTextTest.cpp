// The text of the control parameter file, byte for byte.
#include "cmi/CMIFileText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/ZorbI2Types.h>

#include "tests/support/CMIDataFields.h"
#include "tests/support/ControlFileText.h"

using support::BlockOfDistinctValues;
using support::LineOf;

namespace {

std::string LineOf(const CZorbI2CMIData& data, const std::string& key) {
    return support::LineOf(cmi::CMIFileText(data, {}), key);
}

std::string ItemLines(const CZorbI2CMIData& data, const std::vector<std::int32_t>& itemIds) {
    return support::ItemLinesOf(cmi::CMIFileText(data, {itemIds}));
}

}  // namespace

// ---- The whole file ---------------------------------------------------------------------------

TEST(CMIFileText, PrintsEveryFieldInItsLine) {
    // Every field holds another value, so no line can take another's.
    const std::string expected =
        "I2-Output Control Parameter File\n"
        "FileVersion = 103\n"
        "[HEADER]\n"
        "OutFolder = text 108\n"
        "MapFile = text 102\n"
        "SolverType = 104\n"
        "ProjectType = 105\n"
        "QuadraticElement = 106 (0:off,1:on)\n"
        "IDCompositeModel = 107\n"
        "[text 101] \n"
        "IsOriginalMesh = 109 (0:off,1:on)\n"
        "IsDeformedMesh = 110 (0:off,1:on)\n"
        "IsMappedMesh = 1 (0:off,1:on)\n"
        "Is3DMappingShell = 112 (0:off,1:on)\n"
        "IsDistributeModel = 114 (0:off,1:on)\n"
        "IsViewEditModelMapping = 159 (0:off,1:on)\n"
        "IsDoMaterialReduction =         115   (0:off,1:on)\n"
        "IsRunnerOutput =                116   (0:off,1:on)\n"
        "IsMoldbaseOutput =              117   (0:off,1:on)\n"
        "IsFlowResidualstressOutput =    118   (0:off,1:on)\n"
        "IsThermalResidualstressOutput = 119   (0:off,1:on)\n"
        "IsInitialstrainOutput =         120   (0:off,1:on)\n"
        "IsFlowPressureOutput =          121   (0:off,1:on)\n"
        "IsMoldbasePressureOutput =      122   (0:off,1:on)\n"
        "IsPackTempOutput =              123   (0:off,1:on)\n"
        "IsCoolTempOutput =              124   (0:off,1:on)\n"
        "IsMoldbaseTempOutput =          125   (0:off,1:on)\n"
        "DigimatOutput =                 126   (0:off,1:on)\n"
        "IsPartInsertMaterialReduction = 127   (0:off,1:on)\n"
        "IsDensityOutput =               128   (0:off,1:on)\n"
        "IsWeldlineOutput =              129   (0:off,1:on)\n"
        "DigimatWeldlineOutput =\t\t131   (0:off,1:on)\n"
        "DigimatMucellOutput =\t\t132   (0:off,1:on)\n"
        "DigimatFiberOutput =\t\t133   (0:off,1:on)\n"
        "DigimatStressOutput =\t\t134   (0:off,1:on)\n"
        "DigimatTemperatureOutput =\t135   (0:off,1:on)\n"
        "IsAnnealingstressOutput =\t136   (0:off,1:on)\n"
        "IsDoDensityReduction =          137   (0:off,1:on)\n"
        "[text 101_EOF]\n"
        "[\\HEADER]\n"
        "[MAP DOMAIN]\n"
        "SegmentX = 138 (1~100)\n"
        "SegmentY = 139 (1~100)\n"
        "SegmentZ = 140 (1~100)\n"
        "[\\MAP DOMAIN] \n"
        "[MATERIAL REDUCTION]\n"
        "FiberThetaXSegment = 141 (1~30)\n"
        "FiberThetaYSegment = 142 (1~30)\n"
        "FiberThetaZSegment = 143 (1~30)\n"
        "FiberStrengthXSegment = 144 (1~20)\n"
        "FiberStrengthYSegment = 145 (1~5)\n"
        "[\\MATERIAL REDUCTION] \n"
        "[PARTINSERT MATERIAL REDUCTION]\n"
        "FiberThetaXSegment = 146 (1~30)\n"
        "FiberThetaYSegment = 147 (1~30)\n"
        "FiberThetaZSegment = 148 (1~30)\n"
        "FiberStrengthXSegment = 149 (1~20)\n"
        "FiberStrengthYSegment = 150 (1~5)\n"
        "[\\PARTINSERT MATERIAL REDUCTION]\n"
        "[DENSITY REDUCTION]\n"
        "DensityReduction = 151 (2~10)\n"
        "[\\DENSITY REDUCTION]\n"
        "[WELDLINE ANGLE]\n"
        "WeldlineAngle1 = 0.000\n"
        "WeldlineAngle2 = 152.000\n"
        "WeldlineAngle3 = 153.000\n"
        "WeldlineAngle4 = 154.000\n"
        "[\\WELDLINE ANGLE]\n"
        "[DIGIMAT WELDLINE ANGLE]\n"
        "WeldlineAngle = 158.000\n"
        "[\\DIGIMAT WELDLINE ANGLE]\n"
        "[REDUCTION RATE]\n"
        "ReductionRate1 = 155.000\n"
        "ReductionRate2 = 156.000\n"
        "ReductionRate3 = 157.000\n"
        "[\\REDUCTION RATE]\n";
    CZorbI2CMIData data = BlockOfDistinctValues();
    data.IsMappedMesh = 1;
    std::vector<std::int32_t> allItems(kItemCount);
    std::iota(allItems.begin(), allItems.end(), 0);

    EXPECT_EQ(cmi::CMIFileText(data, {allItems}), expected);
}

TEST(CMIFileText, WithoutItemsGoesFromTheMeshLinesStraightToTheDensitySwitch) {
    EXPECT_NE(cmi::CMIFileText(CZorbI2CMIData(), {})
                  .find("IsViewEditModelMapping = 0 (0:off,1:on)\n"
                        "IsDoDensityReduction =          0   (0:off,1:on)\n"),
              std::string::npos);
}

TEST(CMIFileText, PrintsValuesOutsideTheRangesThatTheFileNames) {
    CZorbI2CMIData data;
    data.SegmentX = 101;
    data.FiberStrengthYSegment = -1;
    data.DensityReduction = 0;
    data.QuadraticElement = 2;
    EXPECT_EQ(LineOf(data, "SegmentX"), "SegmentX = 101 (1~100)\n");
    EXPECT_EQ(LineOf(data, "FiberStrengthYSegment"), "FiberStrengthYSegment = -1 (1~5)\n");
    EXPECT_EQ(LineOf(data, "DensityReduction"), "DensityReduction = 0 (2~10)\n");
    EXPECT_EQ(LineOf(data, "QuadraticElement"), "QuadraticElement = 2 (0:off,1:on)\n");
}

TEST(CMIFileText, PrintsTheSmallestAndTheLargestInteger) {
    CZorbI2CMIData data;
    data.SolverType = std::numeric_limits<std::int32_t>::min();
    data.ProjectType = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(LineOf(data, "SolverType"), "SolverType = -2147483648\n");
    EXPECT_EQ(LineOf(data, "ProjectType"), "ProjectType = 2147483647\n");
}

TEST(CMIFileText, ClosesSectionsWithABackslashAndThreeLinesWithASpace) {
    CZorbI2CMIData data;
    data.OutFolder = "out";
    const std::string text = cmi::CMIFileText(data, {});
    std::vector<std::string> closingTags;
    std::vector<std::string> endingInSpace;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find('\n', start);
        const std::string line = text.substr(start, end - start);
        start = end + 1;
        if (line.rfind("[\\", 0) == 0) {
            closingTags.push_back(line);
        }
        if (!line.empty() && line.back() == ' ' && line.rfind("MapFile", 0) != 0) {
            endingInSpace.push_back(line);
        }
    }
    const std::vector<std::string> expectedClosingTags = {
        "[\\HEADER]",
        "[\\MAP DOMAIN] ",
        "[\\MATERIAL REDUCTION] ",
        "[\\PARTINSERT MATERIAL REDUCTION]",
        "[\\DENSITY REDUCTION]",
        "[\\WELDLINE ANGLE]",
        "[\\DIGIMAT WELDLINE ANGLE]",
        "[\\REDUCTION RATE]",
    };
    const std::vector<std::string> expectedEndingInSpace = {
        "[] ",
        "[\\MAP DOMAIN] ",
        "[\\MATERIAL REDUCTION] ",
    };
    EXPECT_EQ(closingTags, expectedClosingTags);
    EXPECT_EQ(endingInSpace, expectedEndingInSpace);
}

TEST(CMIFileText, FirstWeldlineAngleIsAlwaysZero) {
    const std::string text = cmi::CMIFileText(BlockOfDistinctValues(), {});
    EXPECT_EQ(LineOf(text, "WeldlineAngle1"), "WeldlineAngle1 = 0.000\n");
    EXPECT_EQ(LineOf(text, "WeldlineAngle2"), "WeldlineAngle2 = 152.000\n");
}

TEST(CMIFileText, InsertSectionRepeatsTheKeysOfThePart) {
    const std::string text = cmi::CMIFileText(CZorbI2CMIData(), {});
    const std::size_t first = text.find("\nFiberThetaXSegment = ");
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(text.find("[PARTINSERT MATERIAL REDUCTION]\nFiberThetaXSegment = "),
              std::string::npos);
    EXPECT_EQ(text.find("Insert"), std::string::npos);
}

// ---- Item lines -------------------------------------------------------------------------------

namespace {

struct ItemLineRow {
    std::int32_t itemId;
    const char* line;  // with the flag 7
};

const std::vector<ItemLineRow> itemLineRows = {
    {std::numeric_limits<std::int32_t>::min(), ""},
    {-2, ""},
    {-1, ""},
    {0, "IsDoMaterialReduction =         7   (0:off,1:on)\n"},
    {1, "IsRunnerOutput =                7   (0:off,1:on)\n"},
    {2, "IsMoldbaseOutput =              7   (0:off,1:on)\n"},
    {3, "IsFlowResidualstressOutput =    7   (0:off,1:on)\n"},
    {4, "IsThermalResidualstressOutput = 7   (0:off,1:on)\n"},
    {5, "IsInitialstrainOutput =         7   (0:off,1:on)\n"},
    {6, "IsFlowPressureOutput =          7   (0:off,1:on)\n"},
    {7, "IsMoldbasePressureOutput =      7   (0:off,1:on)\n"},
    {8, "IsPackTempOutput =              7   (0:off,1:on)\n"},
    {9, "IsCoolTempOutput =              7   (0:off,1:on)\n"},
    {10, "IsMoldbaseTempOutput =          7   (0:off,1:on)\n"},
    {11, "DigimatOutput =                 7   (0:off,1:on)\n"},
    {12, "IsPartInsertMaterialReduction = 7   (0:off,1:on)\n"},
    {13, "IsDensityOutput =               7   (0:off,1:on)\n"},
    {14, "IsWeldlineOutput =              7   (0:off,1:on)\n"},
    {15, ""},
    {16, "DigimatWeldlineOutput =\t\t7   (0:off,1:on)\n"},
    {17, "DigimatMucellOutput =\t\t7   (0:off,1:on)\n"},
    {18, "DigimatFiberOutput =\t\t7   (0:off,1:on)\n"},
    {19, "DigimatStressOutput =\t\t7   (0:off,1:on)\n"},
    {20, "DigimatTemperatureOutput =\t7   (0:off,1:on)\n"},
    {21, "IsAnnealingstressOutput =\t7   (0:off,1:on)\n"},
    {kItemCount, ""},
    {kItemCount + 1, ""},
    {std::numeric_limits<std::int32_t>::max(), ""},
};

}  // namespace

TEST(CMIFileText, EachItemHasItsOwnKeyAndPadding) {
    for (const ItemLineRow& row : itemLineRows) {
        SCOPED_TRACE(row.itemId);
        CZorbI2CMIData data;
        if (row.itemId >= 0 && row.itemId < kItemCount) {
            data.OutputFlags[row.itemId] = 7;
        }
        EXPECT_EQ(ItemLines(data, {row.itemId}), row.line);
    }
}

TEST(CMIFileText, PrintsItemsInTheOrderOfTheirIdsAndAsOftenAsGiven) {
    CZorbI2CMIData data;
    data.OutputFlags[kItemDensity] = 1;
    EXPECT_EQ(ItemLines(data, {kItemDensity, kItemMoldbaseMesh, kItemDensity}),
              "IsMoldbaseOutput =              0   (0:off,1:on)\n"
              "IsDensityOutput =               1   (0:off,1:on)\n"
              "IsDensityOutput =               1   (0:off,1:on)\n");
}

TEST(CMIFileText, MicroMechanicsAndIdsOutsideTheCatalogueGiveNoLine) {
    EXPECT_EQ(ItemLines(CZorbI2CMIData(), {-1, kItemMicroMechanics, kItemCount}), "");
    EXPECT_EQ(
        ItemLines(CZorbI2CMIData(), {kItemMicroMechanics, kItemWeldLine, kItemMicroMechanics}),
        "IsWeldlineOutput =              0   (0:off,1:on)\n");
}

// ---- Lines with a rule of their own -------------------------------------------------------------

TEST(CMIFileText, NamesTheMapFileForMappedMeshesOnly) {
    struct Row {
        std::int32_t isMappedMesh;
        std::int32_t is3DMappingShell;
        const char* line;
    };
    const std::vector<Row> rows = {
        {0, 0, "MapFile =  \n"},         {1, 0, "MapFile = C:\\m.map\n"},
        {0, 1, "MapFile = C:\\m.map\n"}, {1, 1, "MapFile = C:\\m.map\n"},
        {2, 0, "MapFile =  \n"},         {0, 2, "MapFile =  \n"},
        {-1, -1, "MapFile =  \n"},
    };
    for (const Row& row : rows) {
        CZorbI2CMIData data;
        data.MapFile = "C:\\m.map";
        data.IsMappedMesh = row.isMappedMesh;
        data.Is3DMappingShell = row.is3DMappingShell;
        EXPECT_EQ(LineOf(data, "MapFile"), row.line)
            << row.isMappedMesh << " " << row.is3DMappingShell;
    }
}

TEST(CMIFileText, EndsTheMapFileLineWithTwoSpacesForOtherMeshesEvenWhenAPathIsSet) {
    CZorbI2CMIData data;
    data.MapFile = "C:\\m.map";
    data.IsOriginalMesh = 1;
    EXPECT_EQ(LineOf(data, "MapFile"), "MapFile =  \n");
    data.IsOriginalMesh = 0;
    data.IsDeformedMesh = 1;
    EXPECT_EQ(LineOf(data, "MapFile"), "MapFile =  \n");
}

TEST(CMIFileText, AnEmptyMapFileOfAMappedMeshEndsTheLineWithOneSpace) {
    CZorbI2CMIData data;
    data.IsMappedMesh = 1;
    EXPECT_EQ(LineOf(data, "MapFile"), "MapFile = \n");
}

TEST(CMIFileText, WritesTheAnnealingLineForTheValueOneOnly) {
    const std::string around = "IsViewEditModelMapping = 0 (0:off,1:on)\n";
    const std::string after = "IsDoDensityReduction =          0   (0:off,1:on)\n";
    for (const std::int32_t value : {-1, 0, 2, 257}) {
        CZorbI2CMIData data;
        data.IsAnnealingDeformedMesh = value;
        EXPECT_NE(cmi::CMIFileText(data, {}).find(around + after), std::string::npos) << value;
    }
    CZorbI2CMIData data;
    data.IsAnnealingDeformedMesh = 1;
    EXPECT_NE(cmi::CMIFileText(data, {}).find(around +
                                              "IsAnnealingDeformedMesh = 1 (0:off,1:on)\n" + after),
              std::string::npos);
}

TEST(CMIFileText, AnEmptyKeywordGivesEmptyBrackets) {
    const std::string text = cmi::CMIFileText(CZorbI2CMIData(), {});
    EXPECT_NE(text.find("IDCompositeModel = 0\n[] \nIsOriginalMesh"), std::string::npos);
    EXPECT_NE(text.find("(0:off,1:on)\n[_EOF]\n[\\HEADER]\n"), std::string::npos);
}

TEST(CMIFileText, NeverPrintsTheDigimatOption) {
    constexpr std::int32_t items[] = {kItemFiberOrientation, kItemDigimatExport,
                                      kItemDigimatWeldLine};
    CZorbI2CMIData data;
    const std::string text = cmi::CMIFileText(data, {items});
    data.DigimatOption = 1;
    EXPECT_EQ(cmi::CMIFileText(data, {items}), text);
}

TEST(CMIFileText, TakesTheItemsOfAllGroups) {
    constexpr std::int32_t part[] = {kItemDensity, kItemRunner};
    constexpr std::int32_t insert[] = {kItemInsertFlowPressure, kItemRunner};
    constexpr std::int32_t moldbase[] = {kItemMoldbaseMesh};
    EXPECT_EQ(support::ItemLinesOf(cmi::CMIFileText(CZorbI2CMIData(), {part, insert, moldbase})),
              "IsRunnerOutput =                0   (0:off,1:on)\n"
              "IsRunnerOutput =                0   (0:off,1:on)\n"
              "IsMoldbaseOutput =              0   (0:off,1:on)\n"
              "IsFlowPressureOutput =          0   (0:off,1:on)\n"
              "IsDensityOutput =               0   (0:off,1:on)\n");
}

TEST(CMIFileText, RepeatsALineAsOftenAsItsItemIsOffered) {
    const std::vector<std::int32_t> items(1000, kItemDensity);
    const std::string line = "IsDensityOutput =               0   (0:off,1:on)\n";
    std::string expected;
    for (std::size_t copies = 0; copies < items.size(); ++copies) {
        expected += line;
    }
    EXPECT_EQ(ItemLines(CZorbI2CMIData(), items), expected);
}

// ---- Texts ------------------------------------------------------------------------------------

TEST(CMIFileText, IsWholeWhereverItsMemoryGrows) {
    // A longer text near the top moves all that follows.
    CZorbI2CMIData data;
    data.OutFolder = "folder";
    std::fill_n(data.WeldlineAngles, 3, -std::numeric_limits<double>::max());
    const std::string text = cmi::CMIFileText(data, {});
    const std::size_t end = text.find("folder\n") + data.OutFolder.size();
    while (data.OutFolder.size() < 10'000) {
        data.OutFolder += "abcdefg";
        const std::string expected =
            std::string(text).insert(end, data.OutFolder, 6, std::string::npos);
        ASSERT_EQ(cmi::CMIFileText(data, {}), expected);
    }
}

TEST(CMIFileText, LeavesPercentSignsAndBackslashesInPathsAsTheyAre) {
    CZorbI2CMIData data;
    data.OutFolder = "D:\\100%\\%s%d%.3f%n\\";
    data.MapFile = "%%\\n\\t.map";
    data.SolverName = "%d";
    data.IsMappedMesh = 1;
    EXPECT_EQ(LineOf(data, "OutFolder"), "OutFolder = D:\\100%\\%s%d%.3f%n\\\n");
    EXPECT_EQ(LineOf(data, "MapFile"), "MapFile = %%\\n\\t.map\n");
    EXPECT_EQ(LineOf(data, "[%d]"), "[%d] \n");
    EXPECT_EQ(LineOf(data, "[%d_EOF]"), "[%d_EOF]\n");
}

TEST(CMIFileText, LeavesBytesAbove127AsTheyAre) {
    CZorbI2CMIData data;
    data.OutFolder = "D:\\M\xfcller \xc3\xa4\xff";
    EXPECT_EQ(LineOf(data, "OutFolder"), "OutFolder = D:\\M\xfcller \xc3\xa4\xff\n");
}

TEST(CMIFileText, TextsEndAtANulByte) {
    CZorbI2CMIData data;
    data.OutFolder = std::string("D:\\Out\0put", 10);
    data.MapFile = std::string("\0map", 4);
    data.IsMappedMesh = 1;
    const std::string text = cmi::CMIFileText(data, {});
    EXPECT_EQ(LineOf(text, "OutFolder"), "OutFolder = D:\\Out\n");
    EXPECT_EQ(LineOf(text, "MapFile"), "MapFile = \n");
    EXPECT_EQ(text.find('\0'), std::string::npos);
}

TEST(CMIFileText, TakesTextsOfAnyLength) {
    CZorbI2CMIData data;
    data.OutFolder = std::string(100000, 'x');
    EXPECT_EQ(LineOf(data, "OutFolder"), "OutFolder = " + std::string(100000, 'x') + "\n");
}

// ---- Numbers with three decimals ----------------------------------------------------------------

TEST(CMIFileText, DoublesAlwaysHaveThreeDecimals) {
    struct Row {
        double value;
        const char* text;
    };
    const std::vector<Row> rows = {
        {135.0, "135.000"},
        {0.85, "0.850"},
        {-5.0, "-5.000"},
        {0.0, "0.000"},
        {-0.0, "-0.000"},
        {0.0004, "0.000"},
        {0.0006, "0.001"},
        {-0.0004, "-0.000"},
        {0.0625, "0.062"},
        {2.9996, "3.000"},
        {123456789.123456789, "123456789.123"},
        {1e300,
         "10000000000000000525047602552044202487044685811081591549158541155118024579889081"
         "95786371375080447864043704443832883878176942523235360430575644792184786706982848"
         "38720092657580373783023379478809005936895323497079994508111903896764088007465274"
         "2780142494579258788820056842838115669472196386865459400540160.000"},
        {std::numeric_limits<double>::infinity(), "inf"},
        {-std::numeric_limits<double>::infinity(), "-inf"},
    };
    for (const Row& row : rows) {
        CZorbI2CMIData data;
        data.DigimatWeldlineAngle = row.value;
        EXPECT_EQ(LineOf(data, "WeldlineAngle"), std::string("WeldlineAngle = ") + row.text + "\n");
    }
}

TEST(CMIFileText, PrintsTheLargestDoubleWhole) {
    CZorbI2CMIData data;
    data.ReductionRates[2] = std::numeric_limits<double>::max();
    const std::string line = LineOf(data, "ReductionRate3");
    EXPECT_EQ(line.substr(0, 37), "ReductionRate3 = 17976931348623157081");
    EXPECT_EQ(line.substr(line.size() - 10), "58368.000\n");
    EXPECT_EQ(line.size(), 17 + 309 + 4 + 1U);
}
