// What the reader of control files says about damaged ones: all faults of each, with their lines.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/host/SampleControlFile.h"

namespace {

using samples::At;
using samples::endOfFile;
using samples::FaultsOf;
using samples::Joined;
using samples::LineOf;
using samples::Lines;
using samples::SampleLines;

using Damage = std::function<void(Lines& lines)>;
using Faults = std::vector<std::string>;

struct DamagedFile {
    std::string name;
    Damage damage;
    Faults expected;  ///< "LINE: message"
};

void PrintTo(const DamagedFile& file, std::ostream* out) {
    *out << file.name;
}

// ---- Damages, by the keys of lines --------------------------------------------------------------

Lines::iterator Find(Lines& lines, const std::string& key) {
    return lines.begin() + static_cast<std::ptrdiff_t>(LineOf(key, lines) - 1);
}

Damage Replace(const std::string& key, const std::string& text) {
    return [=](Lines& lines) { *Find(lines, key) = text; };
}

Damage Remove(const std::string& first, const std::string& last) {
    return [=](Lines& lines) { lines.erase(Find(lines, first), Find(lines, last) + 1); };
}

Damage Remove(const std::string& key) {
    return Remove(key, key);
}

Damage InsertBefore(const std::string& key, const Lines& texts) {
    return [=](Lines& lines) { lines.insert(Find(lines, key), texts.begin(), texts.end()); };
}

Damage Swap(const std::string& left, const std::string& right) {
    return [=](Lines& lines) { std::iter_swap(Find(lines, left), Find(lines, right)); };
}

/// Takes a line out and puts it before another one.
Damage Move(const std::string& key, const std::string& before) {
    return [=](Lines& lines) {
        const std::string text = *Find(lines, key);
        Remove(key)(lines);
        InsertBefore(before, {text})(lines);
    };
}

Damage Both(const Damage& first, const Damage& second) {
    return [=](Lines& lines) {
        first(lines);
        second(lines);
    };
}

// ---- Faults at several lines --------------------------------------------------------------------

/// All on one line.
Faults AllAt(const std::string& key, const Faults& messages) {
    Faults faults;
    for (const std::string& message : messages) {
        faults.push_back(At(key, message));
    }
    return faults;
}

/// One on each line, the first where the line with the key stands in the sample.
Faults FromLineOn(const std::string& key, const Faults& messages) {
    Faults faults;
    for (const std::string& message : messages) {
        faults.push_back(At(key, static_cast<int>(faults.size()), message));
    }
    return faults;
}

class ControlFileDamage : public testing::TestWithParam<DamagedFile> {};

TEST_P(ControlFileDamage, IsFoundOnItsLine) {
    Lines lines = SampleLines();
    GetParam().damage(lines);
    EXPECT_EQ(GetParam().expected, FaultsOf(Joined(lines)));
}

// clang-format off
const DamagedFile damagedFiles[] = {
    // The text of a line
    {"TitleMisspelled", Replace("I2-Output Control Parameter File", "I2-Output Control Parameters File"),
     {At("I2-Output Control Parameter File", R"(expected "I2-Output Control Parameter File", found "I2-Output Control Parameters File")")}},
    {"TitleMissing", Remove("I2-Output Control Parameter File"),
     {At("I2-Output Control Parameter File", R"("I2-Output Control Parameter File" is missing here)")}},
    {"FileVersionOfAnotherFormat", Replace("FileVersion", "FileVersion = 9063"),
     {At("FileVersion", R"(expected "FileVersion = 9064", found "FileVersion = 9063")")}},
    {"FileVersionNoNumber", Replace("FileVersion", "FileVersion = V9064"),
     {At("FileVersion", R"(expected "FileVersion = 9064", found "FileVersion = V9064")")}},
    {"TagMisspelled", Replace("[MAP DOMAIN]", "[MAP DOMIAN]"),
     {At("[MAP DOMAIN]", R"(expected "[MAP DOMAIN]", found "[MAP DOMIAN]")")}},
    {"TagWithSlashInsteadOfBackslash", Replace("[\\MAP DOMAIN]", "[/MAP DOMAIN] "),
     {At("[\\MAP DOMAIN]", R"(expected "[\MAP DOMAIN] ", found "[/MAP DOMAIN] ")")}},
    {"ClosingTagWithoutItsSpace", Replace("[\\MAP DOMAIN]", "[\\MAP DOMAIN]"),
     {At("[\\MAP DOMAIN]", R"(expected "[\MAP DOMAIN] ", found "[\MAP DOMAIN]")")}},
    {"ClosingTagWithASpaceTooMany", Replace("[\\PARTINSERT MATERIAL REDUCTION]", "[\\PARTINSERT MATERIAL REDUCTION] "),
     {At("[\\PARTINSERT MATERIAL REDUCTION]", R"(expected "[\PARTINSERT MATERIAL REDUCTION]", found "[\PARTINSERT MATERIAL REDUCTION] ")")}},
    {"OpeningTagWithATrailingSpace", Replace("[HEADER]", "[HEADER] "),
     {At("[HEADER]", R"(expected "[HEADER]", found "[HEADER] ")")}},
    {"SolverTagWithoutItsSpace", Replace("[MSCNASTRAN]", "[MSCNASTRAN]"),
     {At("[MSCNASTRAN]", R"(expected "[SOLVER] ", found "[MSCNASTRAN]")")}},
    {"KeyInAnotherCase", Replace("SegmentX", "segmentX = 80 (1~100)"),
     {At("SegmentX", "expected \"SegmentX = N (1~100)\", found \"segmentX = 80 (1~100)\"")}},
    {"KeyIndented", Replace("SegmentX", " SegmentX = 80 (1~100)"),
     {At("SegmentX", "expected \"SegmentX = N (1~100)\", found \" SegmentX = 80 (1~100)\"")}},
    {"NoSpaceBeforeTheValue", Replace("SegmentX", "SegmentX =80 (1~100)"),
     {At("SegmentX", "expected \"SegmentX = N (1~100)\", found \"SegmentX =80 (1~100)\"")}},
    {"TwoSpacesBeforeTheValue", Replace("SegmentX", "SegmentX =  80 (1~100)"),
     {At("SegmentX", "expected \"SegmentX = N (1~100)\", found \"SegmentX =  80 (1~100)\"")}},
    {"PrintedRangeChanged", Replace("SegmentX", "SegmentX = 80 (1~200)"),
     {At("SegmentX", "expected \"SegmentX = N (1~100)\", found \"SegmentX = 80 (1~200)\"")}},
    {"PrintedRangeMissing", Replace("SegmentX", "SegmentX = 80"),
     {At("SegmentX", "expected \"SegmentX = N (1~100)\", found \"SegmentX = 80\"")}},
    {"TrailingSpace", Replace("SegmentX", "SegmentX = 80 (1~100) "),
     {At("SegmentX", "expected \"SegmentX = N (1~100)\", found \"SegmentX = 80 (1~100) \"")}},
    {"ItemPaddedWithSpacesInsteadOfTabs", Replace("DigimatWeldlineOutput", "DigimatWeldlineOutput =         0   (0:off,1:on)"),
     {At("DigimatWeldlineOutput", "expected \"DigimatWeldlineOutput =\\t\\tN   (0:off,1:on)\", found \"DigimatWeldlineOutput =         0   (0:off,1:on)\"")}},
    {"ItemPaddingTooShort", Replace("IsRunnerOutput", "IsRunnerOutput = 0   (0:off,1:on)"),
     {At("IsRunnerOutput", "expected \"IsRunnerOutput =                N   (0:off,1:on)\", found \"IsRunnerOutput = 0   (0:off,1:on)\"")}},
    {"MapFileWithoutItsSpaces", Replace("MapFile", "MapFile ="),
     {At("MapFile", R"(expected "MapFile = ...", found "MapFile =")")}},
    {"MapFileWithOneSpace", Replace("MapFile", "MapFile = "),
     {At("MapFile", R"("MapFile": must be a single space, because the mesh is not mapped)")}},
    // Values
    {"SegmentBelowTheRange", Replace("SegmentX", "SegmentX = 0 (1~100)"),
     {At("SegmentX", R"("SegmentX" is 0; allowed is 1~100)")}},
    {"SegmentAboveTheRange", Replace("SegmentZ", "SegmentZ = 101 (1~100)"),
     {At("SegmentZ", R"("SegmentZ" is 101; allowed is 1~100)")}},
    {"ThetaSegmentAboveTheRange", Replace("[MATERIAL REDUCTION] FiberThetaYSegment", "FiberThetaYSegment = 31 (1~30)"),
     {At("[MATERIAL REDUCTION] FiberThetaYSegment", R"("FiberThetaYSegment" is 31; allowed is 1~30)")}},
    {"StrengthSegmentAboveTheRange", Replace("[MATERIAL REDUCTION] FiberStrengthXSegment", "FiberStrengthXSegment = 21 (1~20)"),
     {At("[MATERIAL REDUCTION] FiberStrengthXSegment", R"("FiberStrengthXSegment" is 21; allowed is 1~20)")}},
    {"InsertStrengthSegmentAboveTheRange", Replace("[PARTINSERT MATERIAL REDUCTION] FiberStrengthYSegment", "FiberStrengthYSegment = 6 (1~5)"),
     {At("[PARTINSERT MATERIAL REDUCTION] FiberStrengthYSegment", R"("FiberStrengthYSegment" is 6; allowed is 1~5)")}},
    {"InsertThetaSegmentNegative", Replace("[PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment", "FiberThetaXSegment = -8 (1~30)"),
     {At("[PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment", R"("FiberThetaXSegment" is -8; allowed is 1~30)")}},
    {"DensityReductionOfOne", Replace("DensityReduction", "DensityReduction = 1 (2~10)"),
     {At("DensityReduction", R"("DensityReduction" is 1; allowed is 2~10)")}},
    {"DensityReductionAboveTheRange", Replace("DensityReduction", "DensityReduction = 11 (2~10)"),
     {At("DensityReduction", R"("DensityReduction" is 11; allowed is 2~10)")}},
    {"DensityReductionOfZeroThoughOn", Replace("DensityReduction", "DensityReduction = 0 (2~10)"),
     {At("DensityReduction", R"("DensityReduction": must be 2 to 10, because density reduction is on)")}},
    {"OnOffValueOfTwo", Replace("IsViewEditModelMapping", "IsViewEditModelMapping = 2 (0:off,1:on)"),
     {At("IsViewEditModelMapping", R"("IsViewEditModelMapping" is 2; allowed is 0:off,1:on)")}},
    {"ItemValueOfTwo", Replace("IsRunnerOutput", "IsRunnerOutput =                2   (0:off,1:on)"),
     {At("IsRunnerOutput", R"("IsRunnerOutput" is 2; allowed is 0:off,1:on)")}},
    {"ItemValueInWords", Replace("IsRunnerOutput", "IsRunnerOutput =                on   (0:off,1:on)"),
     {At("IsRunnerOutput", "expected \"IsRunnerOutput =                N   (0:off,1:on)\", found \"IsRunnerOutput =                on   (0:off,1:on)\"")}},
    {"NumberWithPlusSign", Replace("SolverType", "SolverType = +1"),
     {At("SolverType", R"(expected "SolverType = N", found "SolverType = +1")")}},
    {"NumberWithLeadingZero", Replace("ProjectType", "ProjectType = 06"),
     {At("ProjectType", R"(expected "ProjectType = N", found "ProjectType = 06")")}},
    {"NumberWithDecimals", Replace("QuadraticElement", "QuadraticElement = 1.0 (0:off,1:on)"),
     {At("QuadraticElement", "expected \"QuadraticElement = N (0:off,1:on)\", found \"QuadraticElement = 1.0 (0:off,1:on)\"")}},
    {"NumberMissing", Replace("ProjectType", "ProjectType = "),
     {At("ProjectType", R"(expected "ProjectType = N", found "ProjectType = ")")}},
    {"NumberTooLarge", Replace("ProjectType", "ProjectType = 2147483648"),
     {At("ProjectType", R"(expected "ProjectType = N", found "ProjectType = 2147483648")")}},
    {"CompositeModelUnknown", Replace("IDCompositeModel", "IDCompositeModel = 3"),
     {At("IDCompositeModel", R"("IDCompositeModel": must be 0 to 2, or -2 when results are missing)")}},
    {"CompositeModelOfMinusOne", Replace("IDCompositeModel", "IDCompositeModel = -1"),
     {At("IDCompositeModel", R"("IDCompositeModel": must be 0 to 2, or -2 when results are missing)")}},
    {"FirstAngleNotZero", Replace("WeldlineAngle1", "WeldlineAngle1 = 15.000"),
     {At("WeldlineAngle1", R"(expected "WeldlineAngle1 = 0.000", found "WeldlineAngle1 = 15.000")")}},
    {"AngleWithTwoDecimals", Replace("WeldlineAngle2", "WeldlineAngle2 = 30.00"),
     {At("WeldlineAngle2", R"(expected "WeldlineAngle2 = N.NNN", found "WeldlineAngle2 = 30.00")")}},
    {"AngleWithDecimalComma", Replace("WeldlineAngle2", "WeldlineAngle2 = 30,000"),
     {At("WeldlineAngle2", R"(expected "WeldlineAngle2 = N.NNN", found "WeldlineAngle2 = 30,000")")}},
    {"AngleWithExponent", Replace("WeldlineAngle2", "WeldlineAngle2 = 3e1"),
     {At("WeldlineAngle2", R"(expected "WeldlineAngle2 = N.NNN", found "WeldlineAngle2 = 3e1")")}},
    {"AngleNotANumber", Replace("WeldlineAngle", "WeldlineAngle = nan"),
     {At("WeldlineAngle", R"(expected "WeldlineAngle = N.NNN", found "WeldlineAngle = nan")")}},
    {"AngleInfinite", Replace("WeldlineAngle", "WeldlineAngle = -inf"),
     {At("WeldlineAngle", R"(expected "WeldlineAngle = N.NNN", found "WeldlineAngle = -inf")")}},
    {"RateWithoutAWholePart", Replace("ReductionRate1", "ReductionRate1 = .800"),
     {At("ReductionRate1", R"(expected "ReductionRate1 = N.NNN", found "ReductionRate1 = .800")")}},
    {"NulByteInAPath", Replace("OutFolder", std::string("OutFolder = D:\0x", 16)),
     {At("OutFolder", R"(expected "OutFolder = ...", found "OutFolder = D:?x")")}},
    {"ControlBytesAreNotEchoed", Replace("SegmentX", "SegmentX = \x1b[31m80 (1~100)"),
     {At("SegmentX", "expected \"SegmentX = N (1~100)\", found \"SegmentX = ?[31m80 (1~100)\"")}},
    // Lines that contradict each other
    {"SolverUnknown", Replace("[MSCNASTRAN]", "[FOO] "),
     {At("[MSCNASTRAN]", R"(expected "[SOLVER] ", found "[FOO] ")")}},
    {"SolverBlockClosedForAnother", Replace("[MSCNASTRAN_EOF]", "[ANSYS_EOF]"),
     {At("[MSCNASTRAN_EOF]", R"(expected "[MSCNASTRAN_EOF]", found "[ANSYS_EOF]")")}},
    {"SolverBlockOpenedForAnother", Replace("[MSCNASTRAN]", "[ABAQUS] "),
     {At("[MSCNASTRAN_EOF]", R"(expected "[ABAQUS_EOF]", found "[MSCNASTRAN_EOF]")")}},
    {"NoMeshKind", Replace("IsDeformedMesh", "IsDeformedMesh = 0 (0:off,1:on)"),
     {At("IsOriginalMesh", R"("IsOriginalMesh": exactly one mesh kind must be 1, none for the annealed mesh)")}},
    {"TwoMeshKinds", Replace("IsOriginalMesh", "IsOriginalMesh = 1 (0:off,1:on)"),
     {At("IsOriginalMesh", R"("IsOriginalMesh": exactly one mesh kind must be 1, none for the annealed mesh)")}},
    {"AnnealedMeshInAnotherProject", Both(Replace("IsDeformedMesh", "IsDeformedMesh = 0 (0:off,1:on)"), InsertBefore("IsDoMaterialReduction", {"IsAnnealingDeformedMesh = 1 (0:off,1:on)"})),
     {At("IsOriginalMesh", R"("IsOriginalMesh": exactly one mesh kind must be 1, none for the annealed mesh)")}},
    {"AnnealedAndDeformedMesh", Both(Replace("ProjectType", "ProjectType = 3"), InsertBefore("IsDoMaterialReduction", {"IsAnnealingDeformedMesh = 1 (0:off,1:on)"})),
     {At("IsOriginalMesh", R"("IsOriginalMesh": exactly one mesh kind must be 1, none for the annealed mesh)")}},
    {"AnnealingLineOfZero", InsertBefore("IsDoMaterialReduction", {"IsAnnealingDeformedMesh = 0 (0:off,1:on)"}),
     {At("IsDoMaterialReduction", "expected \"IsAnnealingDeformedMesh = 1 (0:off,1:on)\", found \"IsAnnealingDeformedMesh = 0 (0:off,1:on)\"")}},
    {"MapFileWithoutAMappedMesh", Replace("MapFile", "MapFile = D:\\mesh.bdf"),
     {At("MapFile", R"("MapFile": must be a single space, because the mesh is not mapped)")}},
    {"SameItemTwiceWithDifferentValues", InsertBefore("DigimatOutput", {"IsRunnerOutput =                1   (0:off,1:on)"}),
     {At("DigimatOutput", "\"IsRunnerOutput =                1   (0:off,1:on)\" does not belong here")}},
    // Missing lines
    {"OneLineMissing", Remove("SegmentY"),
     {At("SegmentY", "\"SegmentY = N (1~100)\" is missing here")}},
    {"ClosingTagMissing", Remove("[\\HEADER]"),
     {At("[\\HEADER]", R"("[\HEADER]" is missing here)")}},
    {"SectionMissing", Remove("[DENSITY REDUCTION]", "[\\DENSITY REDUCTION]"),
     AllAt("[DENSITY REDUCTION]", {
      R"("[DENSITY REDUCTION]" is missing here)",
      "\"DensityReduction = N (2~10)\" is missing here",
      R"("[\DENSITY REDUCTION]" is missing here)"})},
    {"SolverTagsMissing", Both(Remove("[MSCNASTRAN_EOF]"), Remove("[MSCNASTRAN]")),
     {At("[MSCNASTRAN]", R"("[SOLVER] " is missing here)"),
      At("[MSCNASTRAN_EOF]", -1, R"("[SOLVER_EOF]" is missing here)")}},
    {"LastLineMissing", Remove("[\\REDUCTION RATE]"),
     {At("ReductionRate3", R"("[\REDUCTION RATE]" is missing here)")}},
    {"CutOffInTheMiddle", Remove("[\\MATERIAL REDUCTION]", "[\\REDUCTION RATE]"),
     AllAt("[MATERIAL REDUCTION] FiberStrengthYSegment", {
      R"("[\MATERIAL REDUCTION] " is missing here)",
      R"("[PARTINSERT MATERIAL REDUCTION]" is missing here)",
      "\"FiberThetaXSegment = N (1~30)\" is missing here",
      "\"FiberThetaYSegment = N (1~30)\" is missing here",
      "\"FiberThetaZSegment = N (1~30)\" is missing here",
      "\"FiberStrengthXSegment = N (1~20)\" is missing here",
      "\"FiberStrengthYSegment = N (1~5)\" is missing here",
      R"("[\PARTINSERT MATERIAL REDUCTION]" is missing here)",
      R"("[DENSITY REDUCTION]" is missing here)",
      "\"DensityReduction = N (2~10)\" is missing here",
      R"("[\DENSITY REDUCTION]" is missing here)",
      R"("[WELDLINE ANGLE]" is missing here)",
      R"("WeldlineAngle1 = 0.000" is missing here)",
      R"("WeldlineAngle2 = N.NNN" is missing here)",
      R"("WeldlineAngle3 = N.NNN" is missing here)",
      R"("WeldlineAngle4 = N.NNN" is missing here)",
      R"("[\WELDLINE ANGLE]" is missing here)",
      R"("[DIGIMAT WELDLINE ANGLE]" is missing here)",
      R"("WeldlineAngle = N.NNN" is missing here)",
      R"("[\DIGIMAT WELDLINE ANGLE]" is missing here)",
      "more faults follow"})},
    {"DensitySwitchMissing", Remove("IsDoDensityReduction"),
     {At("IsDoDensityReduction", "\"IsDoDensityReduction =          N   (0:off,1:on)\" is missing here")}},
    {"InsertSegmentMissing", Remove("[PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment"),
     {At("[PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment", "\"FiberThetaXSegment = N (1~30)\" is missing here")}},
    // Lines too many
    {"EmptyLine", InsertBefore("[MAP DOMAIN]", {""}),
     {At("[MAP DOMAIN]", "an empty line does not belong here")}},
    {"EmptyLineAtTheEnd", InsertBefore(endOfFile, {""}),
     {At(endOfFile, "an empty line does not belong here")}},
    {"CommentLine", InsertBefore("IsDoMaterialReduction", {"# my choices"}),
     {At("IsDoMaterialReduction", R"("# my choices" does not belong here)")}},
    {"UnknownItem", InsertBefore("DigimatOutput", {"IsRunerOutput =                 1   (0:off,1:on)"}),
     {At("DigimatOutput", "\"IsRunerOutput =                 1   (0:off,1:on)\" does not belong here")}},
    {"LineRepeated", InsertBefore("SegmentZ", {"SegmentY = 70 (1~100)"}),
     {At("SegmentZ", "\"SegmentY = 70 (1~100)\" does not belong here")}},
    {"LineRepeatedFarAway", InsertBefore("ReductionRate1", {"ProjectType = 6"}),
     {At("ReductionRate1", R"("ProjectType = 6" does not belong here)")}},
    {"ManyLinesOfSomethingElse", InsertBefore("[WELDLINE ANGLE]", Lines(9, "something else")),
     FromLineOn("[WELDLINE ANGLE]", Faults(9, R"("something else" does not belong here)"))},
    {"SectionRepeated", InsertBefore("[MATERIAL REDUCTION]", {"[MAP DOMAIN]", "SegmentX = 80 (1~100)", "SegmentY = 70 (1~100)", "SegmentZ = 60 (1~100)", "[\\MAP DOMAIN] "}),
     FromLineOn("[MATERIAL REDUCTION]", {
      R"("[MAP DOMAIN]" does not belong here)",
      "\"SegmentX = 80 (1~100)\" does not belong here",
      "\"SegmentY = 70 (1~100)\" does not belong here",
      "\"SegmentZ = 60 (1~100)\" does not belong here",
      R"("[\MAP DOMAIN] " does not belong here)"})},
    // Lines in another order
    {"NeighborsSwapped", Swap("SegmentX", "SegmentY"),
     {At("SegmentX", "expected \"SegmentX = N (1~100)\", found \"SegmentY = 70 (1~100)\""),
      At("SegmentY", "expected \"SegmentY = N (1~100)\", found \"SegmentX = 80 (1~100)\"")}},
    {"ItemsSwapped", Swap("IsRunnerOutput", "DigimatOutput"),
     {At("IsRunnerOutput", "expected \"IsRunnerOutput =                N   (0:off,1:on)\", found \"DigimatOutput =                 1   (0:off,1:on)\""),
      At("DigimatOutput", "expected \"DigimatOutput =                 N   (0:off,1:on)\", found \"IsRunnerOutput =                0   (0:off,1:on)\"")}},
    {"ItemBelowTheDensitySwitch", Swap("DigimatTemperatureOutput", "IsDoDensityReduction"),
     {At("DigimatTemperatureOutput", "expected \"DigimatTemperatureOutput =\\tN   (0:off,1:on)\", found \"IsDoDensityReduction =          1   (0:off,1:on)\""),
      At("IsDoDensityReduction", "expected \"IsDoDensityReduction =          N   (0:off,1:on)\", found \"DigimatTemperatureOutput =\\t0   (0:off,1:on)\"")}},
    {"ItemInTheWrongSection", Move("IsRunnerOutput", "WeldlineAngle1"),
     {At("IsRunnerOutput", "\"IsRunnerOutput =                N   (0:off,1:on)\" is missing here"),
      At("WeldlineAngle1", -1, "\"IsRunnerOutput =                0   (0:off,1:on)\" does not belong here")}},
    {"LastItemFirst", Move("DigimatTemperatureOutput", "IsDoMaterialReduction"),
     {At("IsDoMaterialReduction", "\"DigimatTemperatureOutput =\\t0   (0:off,1:on)\" does not belong here"),
      At("IsDoDensityReduction", "\"DigimatTemperatureOutput =\\tN   (0:off,1:on)\" is missing here")}},
    {"LineMovedUp", Move("ReductionRate3", "ReductionRate1"),
     {At("ReductionRate1", R"("ReductionRate3 = 0.950" does not belong here)"),
      At("[\\REDUCTION RATE]", R"("ReductionRate3 = N.NNN" is missing here)")}},
    {"LineMovedDown", Move("SegmentX", "[\\MAP DOMAIN]"),
     {At("SegmentX", "\"SegmentX = N (1~100)\" is missing here"),
      At("[\\MAP DOMAIN]", -1, "\"SegmentX = 80 (1~100)\" does not belong here")}},
    {"TitleAtTheEnd", Move("I2-Output Control Parameter File", endOfFile),
     {At("I2-Output Control Parameter File", R"(not a control parameter file: expected "I2-Output Control Parameter File", found "FileVersion = 9064")")}},
    {"ClosingTagMovedToTheEnd", Move("[\\HEADER]", endOfFile),
     {At("[\\HEADER]", R"("[\HEADER]" is missing here)"),
      At(endOfFile, -1, R"("[\HEADER]" does not belong here)")}},
    // Several at once
    {"TwoFaultsFarApart", Both(Replace("SolverType", "SolverType = x"), Replace("ReductionRate1", "ReductionRate1 = y")),
     {At("SolverType", R"(expected "SolverType = N", found "SolverType = x")"),
      At("ReductionRate1", R"(expected "ReductionRate1 = N.NNN", found "ReductionRate1 = y")")}},
    {"MissingLineAndWrongValueBehindIt", Both(Replace("SegmentZ", "SegmentZ = 101 (1~100)"), Remove("SegmentY")),
     {At("SegmentY", "\"SegmentY = N (1~100)\" is missing here"),
      At("SegmentZ", -1, R"("SegmentZ" is 101; allowed is 1~100)")}},
    {"ThreeLinesGarbled", Both(Both(Replace("[MATERIAL REDUCTION] FiberThetaYSegment", "#3"), Replace("[MATERIAL REDUCTION] FiberThetaXSegment", "#2")), Replace("[MATERIAL REDUCTION]", "#1")),
     {At("[MATERIAL REDUCTION]", R"(expected "[MATERIAL REDUCTION]", found "#1")"),
      At("[MATERIAL REDUCTION] FiberThetaXSegment", R"("#2" does not belong here)"),
      At("[MATERIAL REDUCTION] FiberThetaYSegment", R"("#3" does not belong here)"),
      At("[MATERIAL REDUCTION] FiberThetaZSegment", "\"FiberThetaXSegment = N (1~30)\" is missing here"),
      At("[MATERIAL REDUCTION] FiberThetaZSegment", "\"FiberThetaYSegment = N (1~30)\" is missing here")}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(ControlFile, ControlFileDamage, testing::ValuesIn(damagedFiles),
                         [](const auto& row) { return row.param.name; });

TEST(ControlFile, SampleHasNoFaults) {
    EXPECT_EQ(Faults{}, FaultsOf(Joined(SampleLines())));
}

TEST(ControlFile, WholeFileTwiceHasNothingOfTheSecondOne) {
    Faults messages = SampleLines();
    messages.resize(20);
    for (std::string& message : messages) {
        message = '"' + message + "\" does not belong here";
    }
    Faults expected = FromLineOn(endOfFile, messages);
    expected.push_back(At(endOfFile, 19, "more faults follow"));
    EXPECT_EQ(expected, FaultsOf(Joined(SampleLines()) + Joined(SampleLines())));
}

}  // namespace
