// What the reader of control files says about damaged ones: all faults of each, with their lines.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "ControlFile.h"
#include "tests/host/SampleControlFile.h"

namespace {

using samples::FaultsOf;
using samples::Joined;
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

// Line numbers count from 1, as in the messages.

Damage Replace(std::size_t line, const std::string& text) {
    return [=](Lines& lines) { lines[line - 1] = text; };
}

Damage Remove(std::size_t first, std::size_t last) {
    return [=](Lines& lines) {
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(first - 1),
                    lines.begin() + static_cast<std::ptrdiff_t>(last));
    };
}

Damage InsertBefore(std::size_t line, const Lines& texts) {
    return [=](Lines& lines) {
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(line - 1), texts.begin(),
                     texts.end());
    };
}

Damage Swap(std::size_t left, std::size_t right) {
    return [=](Lines& lines) { std::swap(lines[left - 1], lines[right - 1]); };
}

/// Takes a line out and puts it before another one; numbers as before.
Damage Move(std::size_t from, std::size_t before) {
    return [=](Lines& lines) {
        const std::string text = lines[from - 1];
        InsertBefore(before, {text})(lines);
        Remove(from < before ? from : from + 1, from < before ? from : from + 1)(lines);
    };
}

Damage Both(const Damage& first, const Damage& second) {
    return [=](Lines& lines) {
        first(lines);
        second(lines);
    };
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
    {"TitleMisspelt", Replace(1, "I2-Output Control Parameters File"),
     {R"(1: expected "I2-Output Control Parameter File", found "I2-Output Control Parameters File")"}},
    {"TitleMissing", Remove(1, 1),
     {R"(1: "I2-Output Control Parameter File" is missing here)"}},
    {"FileVersionOfAnotherFormat", Replace(2, "FileVersion = 9063"),
     {R"(2: expected "FileVersion = 9064", found "FileVersion = 9063")"}},
    {"FileVersionNoNumber", Replace(2, "FileVersion = V9064"),
     {R"(2: expected "FileVersion = 9064", found "FileVersion = V9064")"}},
    {"TagMisspelt", Replace(29, "[MAP DOMIAN]"),
     {R"(29: expected "[MAP DOMAIN]", found "[MAP DOMIAN]")"}},
    {"TagWithSlashInsteadOfBackslash", Replace(33, "[/MAP DOMAIN] "),
     {R"(33: expected "[\MAP DOMAIN] ", found "[/MAP DOMAIN] ")"}},
    {"ClosingTagWithoutItsBlank", Replace(33, "[\\MAP DOMAIN]"),
     {R"(33: expected "[\MAP DOMAIN] ", found "[\MAP DOMAIN]")"}},
    {"ClosingTagWithABlankTooMany", Replace(47, "[\\PARTINSERT MATERIAL REDUCTION] "),
     {R"(47: expected "[\PARTINSERT MATERIAL REDUCTION]", found "[\PARTINSERT MATERIAL REDUCTION] ")"}},
    {"OpeningTagWithATrailingBlank", Replace(3, "[HEADER] "),
     {R"(3: expected "[HEADER]", found "[HEADER] ")"}},
    {"SolverTagWithoutItsBlank", Replace(10, "[MSCNASTRAN]"),
     {R"(10: expected "[SOLVER] ", found "[MSCNASTRAN]")"}},
    {"KeyInAnotherCase", Replace(30, "segmentX = 80 (1~100)"),
     {"30: expected \"SegmentX = N (1~100)\", found \"segmentX = 80 (1~100)\""}},
    {"KeyIndented", Replace(30, " SegmentX = 80 (1~100)"),
     {"30: expected \"SegmentX = N (1~100)\", found \" SegmentX = 80 (1~100)\""}},
    {"NoBlankBeforeTheValue", Replace(30, "SegmentX =80 (1~100)"),
     {"30: expected \"SegmentX = N (1~100)\", found \"SegmentX =80 (1~100)\""}},
    {"TwoBlanksBeforeTheValue", Replace(30, "SegmentX =  80 (1~100)"),
     {"30: expected \"SegmentX = N (1~100)\", found \"SegmentX =  80 (1~100)\""}},
    {"PrintedRangeChanged", Replace(30, "SegmentX = 80 (1~200)"),
     {"30: expected \"SegmentX = N (1~100)\", found \"SegmentX = 80 (1~200)\""}},
    {"PrintedRangeMissing", Replace(30, "SegmentX = 80"),
     {"30: expected \"SegmentX = N (1~100)\", found \"SegmentX = 80\""}},
    {"TrailingBlank", Replace(30, "SegmentX = 80 (1~100) "),
     {"30: expected \"SegmentX = N (1~100)\", found \"SegmentX = 80 (1~100) \""}},
    {"ItemPaddedWithBlanksInsteadOfTabs", Replace(22, "DigimatWeldlineOutput =         0   (0:off,1:on)"),
     {"22: expected \"DigimatWeldlineOutput =\\t\\tN   (0:off,1:on)\", found \"DigimatWeldlineOutput =         0   (0:off,1:on)\""}},
    {"ItemPaddingTooShort", Replace(18, "IsRunnerOutput = 0   (0:off,1:on)"),
     {"18: expected \"IsRunnerOutput =                N   (0:off,1:on)\", found \"IsRunnerOutput = 0   (0:off,1:on)\""}},
    {"MapFileWithoutItsBlanks", Replace(5, "MapFile ="),
     {R"(5: expected "MapFile = ...", found "MapFile =")"}},
    {"MapFileWithOneBlank", Replace(5, "MapFile = "),
     {R"(5: "MapFile": must be a blank, for the mesh is not mapped)"}},
    // Values
    {"SegmentBelowTheRange", Replace(30, "SegmentX = 0 (1~100)"),
     {R"(30: "SegmentX" is 0; allowed is 1~100)"}},
    {"SegmentAboveTheRange", Replace(32, "SegmentZ = 101 (1~100)"),
     {R"(32: "SegmentZ" is 101; allowed is 1~100)"}},
    {"ThetaSegmentAboveTheRange", Replace(36, "FiberThetaYSegment = 31 (1~30)"),
     {R"(36: "FiberThetaYSegment" is 31; allowed is 1~30)"}},
    {"StrengthSegmentAboveTheRange", Replace(38, "FiberStrengthXSegment = 21 (1~20)"),
     {R"(38: "FiberStrengthXSegment" is 21; allowed is 1~20)"}},
    {"InsertStrengthSegmentAboveTheRange", Replace(46, "FiberStrengthYSegment = 6 (1~5)"),
     {R"(46: "FiberStrengthYSegment" is 6; allowed is 1~5)"}},
    {"InsertThetaSegmentNegative", Replace(42, "FiberThetaXSegment = -8 (1~30)"),
     {R"(42: "FiberThetaXSegment" is -8; allowed is 1~30)"}},
    {"DensityReductionOfOne", Replace(49, "DensityReduction = 1 (2~10)"),
     {R"(49: "DensityReduction" is 1; allowed is 2~10)"}},
    {"DensityReductionAboveTheRange", Replace(49, "DensityReduction = 11 (2~10)"),
     {R"(49: "DensityReduction" is 11; allowed is 2~10)"}},
    {"DensityReductionOfZeroThoughOn", Replace(49, "DensityReduction = 0 (2~10)"),
     {R"(49: "DensityReduction": must be 2 to 10, for density reduction is on)"}},
    {"OnOffValueOfTwo", Replace(16, "IsViewEditModelMapping = 2 (0:off,1:on)"),
     {R"(16: "IsViewEditModelMapping" is 2; allowed is 0:off,1:on)"}},
    {"ItemValueOfTwo", Replace(18, "IsRunnerOutput =                2   (0:off,1:on)"),
     {R"(18: "IsRunnerOutput" is 2; allowed is 0:off,1:on)"}},
    {"ItemValueInWords", Replace(18, "IsRunnerOutput =                on   (0:off,1:on)"),
     {"18: expected \"IsRunnerOutput =                N   (0:off,1:on)\", found \"IsRunnerOutput =                on   (0:off,1:on)\""}},
    {"NumberWithPlusSign", Replace(6, "SolverType = +1"),
     {R"(6: expected "SolverType = N", found "SolverType = +1")"}},
    {"NumberWithLeadingZero", Replace(7, "ProjectType = 06"),
     {R"(7: expected "ProjectType = N", found "ProjectType = 06")"}},
    {"NumberWithDecimals", Replace(8, "QuadraticElement = 1.0 (0:off,1:on)"),
     {"8: expected \"QuadraticElement = N (0:off,1:on)\", found \"QuadraticElement = 1.0 (0:off,1:on)\""}},
    {"NumberMissing", Replace(7, "ProjectType = "),
     {R"(7: expected "ProjectType = N", found "ProjectType = ")"}},
    {"NumberTooLarge", Replace(7, "ProjectType = 2147483648"),
     {R"(7: expected "ProjectType = N", found "ProjectType = 2147483648")"}},
    {"CompositeModelUnknown", Replace(9, "IDCompositeModel = 3"),
     {R"(9: "IDCompositeModel": must be 0 to 2, or -2 when results are missing)"}},
    {"CompositeModelOfMinusOne", Replace(9, "IDCompositeModel = -1"),
     {R"(9: "IDCompositeModel": must be 0 to 2, or -2 when results are missing)"}},
    {"FirstAngleNotZero", Replace(52, "WeldlineAngle1 = 15.000"),
     {R"(52: expected "WeldlineAngle1 = 0.000", found "WeldlineAngle1 = 15.000")"}},
    {"AngleWithTwoDecimals", Replace(53, "WeldlineAngle2 = 30.00"),
     {R"(53: expected "WeldlineAngle2 = N.NNN", found "WeldlineAngle2 = 30.00")"}},
    {"AngleWithDecimalComma", Replace(53, "WeldlineAngle2 = 30,000"),
     {R"(53: expected "WeldlineAngle2 = N.NNN", found "WeldlineAngle2 = 30,000")"}},
    {"AngleWithExponent", Replace(53, "WeldlineAngle2 = 3e1"),
     {R"(53: expected "WeldlineAngle2 = N.NNN", found "WeldlineAngle2 = 3e1")"}},
    {"AngleNotANumber", Replace(58, "WeldlineAngle = nan"),
     {R"(58: expected "WeldlineAngle = N.NNN", found "WeldlineAngle = nan")"}},
    {"AngleInfinite", Replace(58, "WeldlineAngle = -inf"),
     {R"(58: expected "WeldlineAngle = N.NNN", found "WeldlineAngle = -inf")"}},
    {"RateWithoutAWholePart", Replace(61, "ReductionRate1 = .800"),
     {R"(61: expected "ReductionRate1 = N.NNN", found "ReductionRate1 = .800")"}},
    {"NulByteInAPath", Replace(4, std::string("OutFolder = D:\0x", 16)),
     {R"(4: expected "OutFolder = ...", found "OutFolder = D:?x")"}},
    {"ControlBytesAreNotEchoed", Replace(30, "SegmentX = \x1b[31m80 (1~100)"),
     {"30: expected \"SegmentX = N (1~100)\", found \"SegmentX = ?[31m80 (1~100)\""}},
    // Lines that contradict each other
    {"SolverUnknown", Replace(10, "[FOO] "),
     {R"(10: expected "[SOLVER] ", found "[FOO] ")"}},
    {"SolverBlockClosedForAnother", Replace(27, "[ANSYS_EOF]"),
     {R"(27: expected "[MSCNASTRAN_EOF]", found "[ANSYS_EOF]")"}},
    {"SolverBlockOpenedForAnother", Replace(10, "[ABAQUS] "),
     {R"(27: expected "[ABAQUS_EOF]", found "[MSCNASTRAN_EOF]")"}},
    {"NoMeshKind", Replace(12, "IsDeformedMesh = 0 (0:off,1:on)"),
     {R"(11: "IsOriginalMesh": exactly one mesh kind must be 1, none for the annealed mesh)"}},
    {"TwoMeshKinds", Replace(11, "IsOriginalMesh = 1 (0:off,1:on)"),
     {R"(11: "IsOriginalMesh": exactly one mesh kind must be 1, none for the annealed mesh)"}},
    {"AnnealedMeshInAnotherProject", Both(Replace(12, "IsDeformedMesh = 0 (0:off,1:on)"), InsertBefore(17, {"IsAnnealingDeformedMesh = 1 (0:off,1:on)"})),
     {R"(11: "IsOriginalMesh": exactly one mesh kind must be 1, none for the annealed mesh)"}},
    {"AnnealedAndDeformedMesh", Both(Replace(7, "ProjectType = 3"), InsertBefore(17, {"IsAnnealingDeformedMesh = 1 (0:off,1:on)"})),
     {R"(11: "IsOriginalMesh": exactly one mesh kind must be 1, none for the annealed mesh)"}},
    {"AnnealingLineOfZero", InsertBefore(17, {"IsAnnealingDeformedMesh = 0 (0:off,1:on)"}),
     {R"(17: "IsAnnealingDeformedMesh": must be 1; otherwise there is no such line)"}},
    {"MapFileWithoutAMappedMesh", Replace(5, "MapFile = D:\\mesh.bdf"),
     {R"(5: "MapFile": must be a blank, for the mesh is not mapped)"}},
    {"SameItemTwiceWithDifferentValues", InsertBefore(19, {"IsRunnerOutput =                1   (0:off,1:on)"}),
     {"19: \"IsRunnerOutput =                1   (0:off,1:on)\" does not belong here"}},
    // Missing lines
    {"OneLineMissing", Remove(31, 31),
     {"31: \"SegmentY = N (1~100)\" is missing here"}},
    {"ClosingTagMissing", Remove(28, 28),
     {R"(28: "[\HEADER]" is missing here)"}},
    {"SectionMissing", Remove(48, 50),
     {R"(48: "[DENSITY REDUCTION]" is missing here)",
      "48: \"DensityReduction = N (2~10)\" is missing here",
      R"(48: "[\DENSITY REDUCTION]" is missing here)"}},
    {"SolverTagsMissing", Both(Remove(27, 27), Remove(10, 10)),
     {R"(10: "[SOLVER] " is missing here)",
      R"(26: "[SOLVER_EOF]" is missing here)"}},
    {"LastLineMissing", Remove(64, 64),
     {R"(63: "[\REDUCTION RATE]" is missing here)"}},
    {"CutOffInTheMiddle", Remove(40, 64),
     {R"(39: "[\MATERIAL REDUCTION] " is missing here)",
      R"(39: "[PARTINSERT MATERIAL REDUCTION]" is missing here)",
      "39: \"FiberThetaXSegment = N (1~30)\" is missing here",
      "39: \"FiberThetaYSegment = N (1~30)\" is missing here",
      "39: \"FiberThetaZSegment = N (1~30)\" is missing here",
      "39: \"FiberStrengthXSegment = N (1~20)\" is missing here",
      "39: \"FiberStrengthYSegment = N (1~5)\" is missing here",
      R"(39: "[\PARTINSERT MATERIAL REDUCTION]" is missing here)",
      R"(39: "[DENSITY REDUCTION]" is missing here)",
      "39: \"DensityReduction = N (2~10)\" is missing here",
      R"(39: "[\DENSITY REDUCTION]" is missing here)",
      R"(39: "[WELDLINE ANGLE]" is missing here)",
      R"(39: "WeldlineAngle1 = 0.000" is missing here)",
      R"(39: "WeldlineAngle2 = N.NNN" is missing here)",
      R"(39: "WeldlineAngle3 = N.NNN" is missing here)",
      R"(39: "WeldlineAngle4 = N.NNN" is missing here)",
      R"(39: "[\WELDLINE ANGLE]" is missing here)",
      R"(39: "[DIGIMAT WELDLINE ANGLE]" is missing here)",
      R"(39: "WeldlineAngle = N.NNN" is missing here)",
      R"(39: "[\DIGIMAT WELDLINE ANGLE]" is missing here)",
      R"(39: more faults follow)"}},
    {"DensitySwitchMissing", Remove(26, 26),
     {"26: \"IsDoDensityReduction =          N   (0:off,1:on)\" is missing here"}},
    {"InsertSegmentMissing", Remove(42, 42),
     {"42: \"FiberThetaXSegment = N (1~30)\" is missing here"}},
    // Lines too many
    {"EmptyLine", InsertBefore(29, {""}),
     {R"(29: an empty line does not belong here)"}},
    {"EmptyLineAtTheEnd", InsertBefore(65, {""}),
     {R"(65: an empty line does not belong here)"}},
    {"CommentLine", InsertBefore(17, {"# my choices"}),
     {R"(17: "# my choices" does not belong here)"}},
    {"UnknownItem", InsertBefore(19, {"IsRunerOutput =                 1   (0:off,1:on)"}),
     {"19: \"IsRunerOutput =                 1   (0:off,1:on)\" does not belong here"}},
    {"LineRepeated", InsertBefore(32, {"SegmentY = 70 (1~100)"}),
     {"32: \"SegmentY = 70 (1~100)\" does not belong here"}},
    {"LineRepeatedFarAway", InsertBefore(61, {"ProjectType = 6"}),
     {R"(61: "ProjectType = 6" does not belong here)"}},
    {"ManyLinesOfSomethingElse", InsertBefore(51, Lines(9, "something else")),
     {R"(51: "something else" does not belong here)",
      R"(52: "something else" does not belong here)",
      R"(53: "something else" does not belong here)",
      R"(54: "something else" does not belong here)",
      R"(55: "something else" does not belong here)",
      R"(56: "something else" does not belong here)",
      R"(57: "something else" does not belong here)",
      R"(58: "something else" does not belong here)",
      R"(59: "something else" does not belong here)"}},
    {"SectionRepeated", InsertBefore(34, {"[MAP DOMAIN]", "SegmentX = 80 (1~100)", "SegmentY = 70 (1~100)", "SegmentZ = 60 (1~100)", "[\\MAP DOMAIN] "}),
     {R"(34: "[MAP DOMAIN]" does not belong here)",
      "35: \"SegmentX = 80 (1~100)\" does not belong here",
      "36: \"SegmentY = 70 (1~100)\" does not belong here",
      "37: \"SegmentZ = 60 (1~100)\" does not belong here",
      R"(38: "[\MAP DOMAIN] " does not belong here)"}},
    {"WholeFileTwice", [](Lines& lines) { InsertBefore(65, SampleLines())(lines); },
     {R"(65: "I2-Output Control Parameter File" does not belong here)",
      R"(66: "FileVersion = 9064" does not belong here)",
      R"(67: "[HEADER]" does not belong here)",
      R"(68: "OutFolder = D:\Handover\Cover" does not belong here)",
      R"(69: "MapFile =  " does not belong here)",
      R"(70: "SolverType = 0" does not belong here)",
      R"(71: "ProjectType = 6" does not belong here)",
      "72: \"QuadraticElement = 1 (0:off,1:on)\" does not belong here",
      R"(73: "IDCompositeModel = 1" does not belong here)",
      R"(74: "[MSCNASTRAN] " does not belong here)",
      "75: \"IsOriginalMesh = 0 (0:off,1:on)\" does not belong here",
      "76: \"IsDeformedMesh = 1 (0:off,1:on)\" does not belong here",
      "77: \"IsMappedMesh = 0 (0:off,1:on)\" does not belong here",
      "78: \"Is3DMappingShell = 0 (0:off,1:on)\" does not belong here",
      "79: \"IsDistributeModel = 0 (0:off,1:on)\" does not belong here",
      "80: \"IsViewEditModelMapping = 1 (0:off,1:on)\" does not belong here",
      "81: \"IsDoMaterialReduction =         1   (0:off,1:on)\" does not belong here",
      "82: \"IsRunnerOutput =                0   (0:off,1:on)\" does not belong here",
      "83: \"DigimatOutput =                 1   (0:off,1:on)\" does not belong here",
      "84: \"IsDensityOutput =               1   (0:off,1:on)\" does not belong here",
      R"(84: more faults follow)"}},
    // Lines in another order
    {"NeighborsSwapped", Swap(30, 31),
     {"30: expected \"SegmentX = N (1~100)\", found \"SegmentY = 70 (1~100)\"",
      "31: expected \"SegmentY = N (1~100)\", found \"SegmentX = 80 (1~100)\""}},
    {"ItemsSwapped", Swap(18, 19),
     {"18: expected \"IsRunnerOutput =                N   (0:off,1:on)\", found \"DigimatOutput =                 1   (0:off,1:on)\"",
      "19: expected \"DigimatOutput =                 N   (0:off,1:on)\", found \"IsRunnerOutput =                0   (0:off,1:on)\""}},
    {"ItemBelowTheDensitySwitch", Swap(25, 26),
     {"25: expected \"DigimatTemperatureOutput =\\tN   (0:off,1:on)\", found \"IsDoDensityReduction =          1   (0:off,1:on)\"",
      "26: expected \"IsDoDensityReduction =          N   (0:off,1:on)\", found \"DigimatTemperatureOutput =\\t0   (0:off,1:on)\""}},
    {"ItemInTheWrongSection", Move(18, 52),
     {"18: \"IsRunnerOutput =                N   (0:off,1:on)\" is missing here",
      "51: \"IsRunnerOutput =                0   (0:off,1:on)\" does not belong here"}},
    {"LastItemFirst", Move(25, 17),
     {"17: \"DigimatTemperatureOutput =\\t0   (0:off,1:on)\" does not belong here",
      "26: \"DigimatTemperatureOutput =\\tN   (0:off,1:on)\" is missing here"}},
    {"LineMovedUp", Move(63, 61),
     {R"(61: "ReductionRate3 = 0.950" does not belong here)",
      R"(64: "ReductionRate3 = N.NNN" is missing here)"}},
    {"LineMovedDown", Move(30, 33),
     {"30: \"SegmentX = N (1~100)\" is missing here",
      "32: \"SegmentX = 80 (1~100)\" does not belong here"}},
    {"TitleAtTheEnd", Move(1, 65),
     {R"(1: not a control parameter file: expected "I2-Output Control Parameter File", found "FileVersion = 9064")"}},
    {"ClosingTagMovedToTheEnd", Move(28, 65),
     {R"(28: "[\HEADER]" is missing here)",
      R"(64: "[\HEADER]" does not belong here)"}},
    // Several at once
    {"TwoFaultsFarApart", Both(Replace(6, "SolverType = x"), Replace(61, "ReductionRate1 = y")),
     {R"(6: expected "SolverType = N", found "SolverType = x")",
      R"(61: expected "ReductionRate1 = N.NNN", found "ReductionRate1 = y")"}},
    {"MissingLineAndWrongValueBehindIt", Both(Replace(32, "SegmentZ = 101 (1~100)"), Remove(31, 31)),
     {"31: \"SegmentY = N (1~100)\" is missing here",
      R"(31: "SegmentZ" is 101; allowed is 1~100)"}},
    {"ThreeLinesGarbled", Both(Replace(34, "#1"), Both(Replace(35, "#2"), Replace(36, "#3"))),
     {R"(34: expected "[MATERIAL REDUCTION]", found "#1")",
      R"(35: "#2" does not belong here)",
      R"(36: "#3" does not belong here)",
      "37: \"FiberThetaXSegment = N (1~30)\" is missing here",
      "37: \"FiberThetaYSegment = N (1~30)\" is missing here"}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(ControlFile, ControlFileDamage, testing::ValuesIn(damagedFiles),
                         [](const auto& row) { return row.param.name; });

TEST(ControlFile, SampleHasNoFaults) {
    EXPECT_EQ(Faults{}, FaultsOf(Joined(SampleLines())));
}

}  // namespace
