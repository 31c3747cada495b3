// The table of the control file's lines against the lines as they stand, one row for each.
#include <zorbi2/ControlFileFormat.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/CMIDataFields.h"

namespace {

using enum ControlFileValue;
using enum ControlFilePresence;

/// Lowest and highest; empty without a range.
using Range = std::vector<std::int32_t>;

struct Row {
    const char* text;
    const char* key;
    ControlFileValue value;
    const char* field = "";  ///< its content in the block of distinct values
    Range range = {};
    ControlFilePresence presence = always;
    std::int32_t itemId = -1;
};

// clang-format off
const std::vector<Row> rows = {
    {"I2-Output Control Parameter File",                  "I2-Output Control Parameter File",  none},
    {"FileVersion = %d",                                  "FileVersion",                       number,       "103"},
    {"[HEADER]",                                          "[HEADER]",                          none},
    {"OutFolder = %s",                                    "OutFolder",                         text,         "text 108"},
    {"MapFile = %s",                                      "MapFile",                           textIfMapped, "text 102"},
    {"SolverType = %d",                                   "SolverType",                        number,       "104"},
    {"ProjectType = %d",                                  "ProjectType",                       number,       "105"},
    {"QuadraticElement = %d (0:off,1:on)",                "QuadraticElement",                  number,       "106", {0, 1}},
    {"IDCompositeModel = %d",                             "IDCompositeModel",                  number,       "107"},
    {"[%s] ",                                             "[%s]",                              text,         "text 101"},
    {"IsOriginalMesh = %d (0:off,1:on)",                  "IsOriginalMesh",                    number,       "109", {0, 1}},
    {"IsDeformedMesh = %d (0:off,1:on)",                  "IsDeformedMesh",                    number,       "110", {0, 1}},
    {"IsMappedMesh = %d (0:off,1:on)",                    "IsMappedMesh",                      number,       "111", {0, 1}},
    {"Is3DMappingShell = %d (0:off,1:on)",                "Is3DMappingShell",                  number,       "112", {0, 1}},
    {"IsDistributeModel = %d (0:off,1:on)",               "IsDistributeModel",                 number,       "114", {0, 1}},
    {"IsViewEditModelMapping = %d (0:off,1:on)",          "IsViewEditModelMapping",            number,       "159", {0, 1}},
    {"IsAnnealingDeformedMesh = 1 (0:off,1:on)",          "IsAnnealingDeformedMesh",           none,         "", {}, whenAnnealed},
    {"IsDoMaterialReduction =         %d   (0:off,1:on)", "IsDoMaterialReduction",             number,       "115", {0, 1}, whenOffered, kItemFiberOrientation},
    {"IsRunnerOutput =                %d   (0:off,1:on)", "IsRunnerOutput",                    number,       "116", {0, 1}, whenOffered, kItemRunner},
    {"IsMoldbaseOutput =              %d   (0:off,1:on)", "IsMoldbaseOutput",                  number,       "117", {0, 1}, whenOffered, kItemMoldbaseMesh},
    {"IsFlowResidualstressOutput =    %d   (0:off,1:on)", "IsFlowResidualstressOutput",        number,       "118", {0, 1}, whenOffered, kItemFlowInducedStress},
    {"IsThermalResidualstressOutput = %d   (0:off,1:on)", "IsThermalResidualstressOutput",     number,       "119", {0, 1}, whenOffered, kItemThermalStress},
    {"IsInitialstrainOutput =         %d   (0:off,1:on)", "IsInitialstrainOutput",             number,       "120", {0, 1}, whenOffered, kItemInitialStrain},
    {"IsFlowPressureOutput =          %d   (0:off,1:on)", "IsFlowPressureOutput",              number,       "121", {0, 1}, whenOffered, kItemInsertFlowPressure},
    {"IsMoldbasePressureOutput =      %d   (0:off,1:on)", "IsMoldbasePressureOutput",          number,       "122", {0, 1}, whenOffered, kItemMoldbasePressure},
    {"IsPackTempOutput =              %d   (0:off,1:on)", "IsPackTempOutput",                  number,       "123", {0, 1}, whenOffered, kItemPackingTemperature},
    {"IsCoolTempOutput =              %d   (0:off,1:on)", "IsCoolTempOutput",                  number,       "124", {0, 1}, whenOffered, kItemEndOfCoolingTemperature},
    {"IsMoldbaseTempOutput =          %d   (0:off,1:on)", "IsMoldbaseTempOutput",              number,       "125", {0, 1}, whenOffered, kItemMoldbaseTemperature},
    {"DigimatOutput =                 %d   (0:off,1:on)", "DigimatOutput",                     number,       "126", {0, 1}, whenOffered, kItemDigimatExport},
    {"IsPartInsertMaterialReduction = %d   (0:off,1:on)", "IsPartInsertMaterialReduction",     number,       "127", {0, 1}, whenOffered, kItemInsertFiberMaterial},
    {"IsDensityOutput =               %d   (0:off,1:on)", "IsDensityOutput",                   number,       "128", {0, 1}, whenOffered, kItemDensity},
    {"IsWeldlineOutput =              %d   (0:off,1:on)", "IsWeldlineOutput",                  number,       "129", {0, 1}, whenOffered, kItemWeldLine},
    {"DigimatWeldlineOutput =\t\t%d   (0:off,1:on)",      "DigimatWeldlineOutput",             number,       "131", {0, 1}, whenOffered, kItemDigimatWeldLine},
    {"DigimatMucellOutput =\t\t%d   (0:off,1:on)",        "DigimatMucellOutput",               number,       "132", {0, 1}, whenOffered, kItemDigimatMucell},
    {"DigimatFiberOutput =\t\t%d   (0:off,1:on)",         "DigimatFiberOutput",                number,       "133", {0, 1}, whenOffered, kItemDigimatFiber},
    {"DigimatStressOutput =\t\t%d   (0:off,1:on)",        "DigimatStressOutput",               number,       "134", {0, 1}, whenOffered, kItemDigimatStress},
    {"DigimatTemperatureOutput =\t%d   (0:off,1:on)",     "DigimatTemperatureOutput",          number,       "135", {0, 1}, whenOffered, kItemDigimatTemperature},
    {"IsAnnealingstressOutput =\t%d   (0:off,1:on)",      "IsAnnealingstressOutput",           number,       "136", {0, 1}, whenOffered, kItemAnnealingStress},
    {"IsDoDensityReduction =          %d   (0:off,1:on)", "IsDoDensityReduction",              number,       "137", {0, 1}},
    {"[%s_EOF]",                                          "[%s_EOF]",                          text,         "text 101"},
    {"[\\HEADER]",                                        "[\\HEADER]",                        none},
    {"[MAP DOMAIN]",                                      "[MAP DOMAIN]",                      none},
    {"SegmentX = %d (1~100)",                             "SegmentX",                          number,       "138", {1, 100}},
    {"SegmentY = %d (1~100)",                             "SegmentY",                          number,       "139", {1, 100}},
    {"SegmentZ = %d (1~100)",                             "SegmentZ",                          number,       "140", {1, 100}},
    {"[\\MAP DOMAIN] ",                                   "[\\MAP DOMAIN]",                    none},
    {"[MATERIAL REDUCTION]",                              "[MATERIAL REDUCTION]",              none},
    {"FiberThetaXSegment = %d (1~30)",                    "FiberThetaXSegment",                number,       "141", {1, 30}},
    {"FiberThetaYSegment = %d (1~30)",                    "FiberThetaYSegment",                number,       "142", {1, 30}},
    {"FiberThetaZSegment = %d (1~30)",                    "FiberThetaZSegment",                number,       "143", {1, 30}},
    {"FiberStrengthXSegment = %d (1~20)",                 "FiberStrengthXSegment",             number,       "144", {1, 20}},
    {"FiberStrengthYSegment = %d (1~5)",                  "FiberStrengthYSegment",             number,       "145", {1, 5}},
    {"[\\MATERIAL REDUCTION] ",                           "[\\MATERIAL REDUCTION]",            none},
    {"[PARTINSERT MATERIAL REDUCTION]",                   "[PARTINSERT MATERIAL REDUCTION]",   none},
    {"FiberThetaXSegment = %d (1~30)",                    "FiberThetaXSegment",                number,       "146", {1, 30}},
    {"FiberThetaYSegment = %d (1~30)",                    "FiberThetaYSegment",                number,       "147", {1, 30}},
    {"FiberThetaZSegment = %d (1~30)",                    "FiberThetaZSegment",                number,       "148", {1, 30}},
    {"FiberStrengthXSegment = %d (1~20)",                 "FiberStrengthXSegment",             number,       "149", {1, 20}},
    {"FiberStrengthYSegment = %d (1~5)",                  "FiberStrengthYSegment",             number,       "150", {1, 5}},
    {"[\\PARTINSERT MATERIAL REDUCTION]",                 "[\\PARTINSERT MATERIAL REDUCTION]", none},
    {"[DENSITY REDUCTION]",                               "[DENSITY REDUCTION]",               none},
    {"DensityReduction = %d (2~10)",                      "DensityReduction",                  number,       "151", {2, 10}},
    {"[\\DENSITY REDUCTION]",                             "[\\DENSITY REDUCTION]",             none},
    {"[WELDLINE ANGLE]",                                  "[WELDLINE ANGLE]",                  none},
    {"WeldlineAngle1 = 0.000",                            "WeldlineAngle1",                    none},
    {"WeldlineAngle2 = %.3f",                             "WeldlineAngle2",                    decimal,      "152"},
    {"WeldlineAngle3 = %.3f",                             "WeldlineAngle3",                    decimal,      "153"},
    {"WeldlineAngle4 = %.3f",                             "WeldlineAngle4",                    decimal,      "154"},
    {"[\\WELDLINE ANGLE]",                                "[\\WELDLINE ANGLE]",                none},
    {"[DIGIMAT WELDLINE ANGLE]",                          "[DIGIMAT WELDLINE ANGLE]",          none},
    {"WeldlineAngle = %.3f",                              "WeldlineAngle",                     decimal,      "158"},
    {"[\\DIGIMAT WELDLINE ANGLE]",                        "[\\DIGIMAT WELDLINE ANGLE]",        none},
    {"[REDUCTION RATE]",                                  "[REDUCTION RATE]",                  none},
    {"ReductionRate1 = %.3f",                             "ReductionRate1",                    decimal,      "155"},
    {"ReductionRate2 = %.3f",                             "ReductionRate2",                    decimal,      "156"},
    {"ReductionRate3 = %.3f",                             "ReductionRate3",                    decimal,      "157"},
    {"[\\REDUCTION RATE]",                                "[\\REDUCTION RATE]",                none},
};
// clang-format on

/// What the line's field holds; empty without a field.
std::string ContentOf(const ControlFileLine& line, const CZorbI2CMIData& data) {
    if (line.itemId >= 0) {
        return std::to_string(data.OutputFlags[line.itemId]);
    }
    if (line.number != nullptr) {
        return std::to_string(data.*line.number);
    }
    if (line.words != nullptr) {
        return data.*line.words;
    }
    if (line.decimal != nullptr) {
        return std::to_string(static_cast<int>(data.*line.decimal));
    }
    if (line.decimals != nullptr) {
        return std::to_string(static_cast<int>((data.*line.decimals)[line.element]));
    }
    return "";
}

/// How many fields the line names.
int FieldCount(const ControlFileLine& line) {
    return (line.itemId >= 0 ? 1 : 0) + (line.number != nullptr ? 1 : 0) +
           (line.words != nullptr ? 1 : 0) + (line.decimal != nullptr ? 1 : 0) +
           (line.decimals != nullptr ? 1 : 0);
}

Range RangeOf(const ControlFileLine& line) {
    ControlFileRange range = {-7, -7};
    if (!GetControlFileRange(line, &range)) {
        EXPECT_EQ(range.lowest, -7);
        EXPECT_EQ(range.highest, -7);
        return {};
    }
    return {range.lowest, range.highest};
}

}  // namespace

TEST(ControlFileFormat, HasTheseLinesInThisOrder) {
    std::vector<std::string> texts;
    std::vector<std::string> expected;
    for (const ControlFileLine& line : kControlFileLines) {
        texts.emplace_back(line.text);
    }
    for (const Row& row : rows) {
        expected.emplace_back(row.text);
    }
    EXPECT_EQ(texts, expected);
}

TEST(ControlFileFormat, DescribesEachLine) {
    ASSERT_EQ(std::size(kControlFileLines), rows.size());
    const CZorbI2CMIData data = support::BlockOfDistinctValues();
    for (std::size_t position = 0; position < rows.size(); ++position) {
        const ControlFileLine& line = kControlFileLines[position];
        const Row& row = rows[position];
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ControlFileKey(line.text), row.key);
        EXPECT_EQ(line.value, row.value);
        EXPECT_EQ(ContentOf(line, data), row.field);
        EXPECT_EQ(FieldCount(line), row.value == none ? 0 : 1);
        EXPECT_EQ(RangeOf(line), row.range);
        EXPECT_EQ(line.presence, row.presence);
        EXPECT_EQ(line.itemId, row.itemId);
        EXPECT_TRUE(line.decimals != nullptr || line.element == 0);
    }
}

TEST(ControlFileFormat, FindsTheLineOfAnItem) {
    for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
        const ControlFileLine* const line = ControlFileLineOfItem(itemId);
        if (itemId == kItemMicroMechanics) {
            EXPECT_EQ(line, nullptr);
        } else {
            ASSERT_NE(line, nullptr) << "item " << itemId;
            EXPECT_EQ(line->itemId, itemId);
        }
    }
    EXPECT_STREQ(ControlFileLineOfItem(kItemDensity)->text,
                 "IsDensityOutput =               %d   (0:off,1:on)");
}

TEST(ControlFileFormat, HasNoLineOfIdsOutsideTheCatalogue) {
    for (const std::int32_t itemId :
         {-2, -1, kItemCount, kItemCount + 1, std::numeric_limits<std::int32_t>::min(),
          std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(ControlFileLineOfItem(itemId), nullptr) << itemId;
    }
}

TEST(ControlFileFormat, FindsTheKeyOfALineOfAFile) {
    EXPECT_EQ(ControlFileKey("SegmentX = 80 (1~100)"), "SegmentX");
    EXPECT_EQ(ControlFileKey("DigimatFiberOutput =\t\t1   (0:off,1:on)"), "DigimatFiberOutput");
    EXPECT_EQ(ControlFileKey("OutFolder = D:\\a=b"), "OutFolder");
    EXPECT_EQ(ControlFileKey("Segment X \t = 80"), "Segment X");
    EXPECT_EQ(ControlFileKey("[ANSYS] "), "[ANSYS]");
    EXPECT_EQ(ControlFileKey("[\\MAP DOMAIN] "), "[\\MAP DOMAIN]");
    EXPECT_EQ(ControlFileKey("[ANSYS]x"), "[ANSYS]");
    EXPECT_EQ(ControlFileKey("[ANSYS "), "[ANSYS");
    EXPECT_EQ(ControlFileKey("I2-Output Control Parameter File"),
              "I2-Output Control Parameter File");
    EXPECT_EQ(ControlFileKey("  "), "");
    EXPECT_EQ(ControlFileKey(""), "");
}

TEST(ControlFileFormat, FindsTheKeyOfAViewWithoutACopy) {
    const std::string_view line = "Segment X \t = 80";
    const std::string_view key = ControlFileKeyOf(line);
    EXPECT_EQ(key, "Segment X");
    EXPECT_EQ(key.data(), line.data());
}

TEST(ControlFileFormat, HasAKeywordForEachSolver) {
    std::string keywords;
    for (const SolverKeyword& row : kSolverKeywords) {
        keywords += std::to_string(row.solver) + " " + row.keyword + "\n";
    }
    EXPECT_EQ(keywords,
              "0 ANSYS\n1 ABAQUS\n2 MSCNASTRAN\n3 NENASTRAN\n4 LSDYNA\n5 MARC\n6 NXNASTRAN\n"
              "7 RADIOSS\n8 WORKBENCH\n");
}
