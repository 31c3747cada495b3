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
    EXPECT_EQ(GetParam().expected, samples::InWords(samples::FoundIn(Joined(lines))));
}

const std::string offer = "MSCNASTRAN with mesh kind \"deformed\"";
const std::string project = " in a solid project of type 6";

Damage SetSolver(const std::string& keyword) {
    return Both(Replace("[MSCNASTRAN_EOF]", "[" + keyword + "_EOF]"),
                Replace("[MSCNASTRAN]", "[" + keyword + "] "));
}

/// Another mesh kind than the deformed mesh.
Damage SetMesh(const std::string& key) {
    return Both(Replace("IsDeformedMesh", "IsDeformedMesh = 0 (0:off,1:on)"),
                Replace(key, key + " = 1 (0:off,1:on)"));
}

/// The item lines stay when the status becomes another.
std::string LinesOfTheSample(const std::string& otherOffer) {
    return "warning: the item lines are those of " + offer + ", not those of " + otherOffer;
}

std::string NeverOffered(const std::string& key, const std::string& projectKind) {
    return '"' + key + "\" has a line, but the item is never offered in " + projectKind;
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
     {At("[\\MAP DOMAIN]", R"(expected "[\MAP DOMAIN] " (with a space at its end), found "[/MAP DOMAIN] " (with a space at its end))")}},
    {"ClosingTagWithoutItsSpace", Replace("[\\MAP DOMAIN]", "[\\MAP DOMAIN]"),
     {At("[\\MAP DOMAIN]", R"(expected "[\MAP DOMAIN] " (with a space at its end), found "[\MAP DOMAIN]")")}},
    {"ClosingTagWithASpaceTooMany", Replace("[\\PARTINSERT MATERIAL REDUCTION]", "[\\PARTINSERT MATERIAL REDUCTION] "),
     {At("[\\PARTINSERT MATERIAL REDUCTION]", R"(expected "[\PARTINSERT MATERIAL REDUCTION]", found "[\PARTINSERT MATERIAL REDUCTION] " (with a space at its end))")}},
    {"OpeningTagWithATrailingSpace", Replace("[HEADER]", "[HEADER] "),
     {At("[HEADER]", R"(expected "[HEADER]", found "[HEADER] " (with a space at its end))")}},
    {"SolverTagWithoutItsSpace", Replace("[MSCNASTRAN]", "[MSCNASTRAN]"),
     {At("[MSCNASTRAN]", R"(expected a line like "[ANSYS] " (with a space at its end), found "[MSCNASTRAN]")")}},
    {"KeyInAnotherCase", Replace("SegmentX", "segmentX = 80 (1~100)"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"segmentX = 80 (1~100)\"")}},
    {"KeyIndented", Replace("SegmentX", " SegmentX = 80 (1~100)"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \" SegmentX = 80 (1~100)\"")}},
    {"NoSpaceBeforeTheValue", Replace("SegmentX", "SegmentX =80 (1~100)"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX =80 (1~100)\"")}},
    {"TwoSpacesBeforeTheValue", Replace("SegmentX", "SegmentX =  80 (1~100)"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX =  80 (1~100)\"")}},
    {"PrintedRangeChanged", Replace("SegmentX", "SegmentX = 80 (1~200)"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX = 80 (1~200)\"")}},
    {"PrintedRangeMissing", Replace("SegmentX", "SegmentX = 80"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX = 80\"")}},
    {"TrailingSpace", Replace("SegmentX", "SegmentX = 80 (1~100) "),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX = 80 (1~100) \" (with a space at its end)")}},
    {"ItemPaddedWithSpacesInsteadOfTabs", Replace("DigimatWeldlineOutput", "DigimatWeldlineOutput =         0   (0:off,1:on)"),
     {At("DigimatWeldlineOutput", "expected a line like \"DigimatWeldlineOutput =\\t\\t0   (0:off,1:on)\", found \"DigimatWeldlineOutput =         0   (0:off,1:on)\"")}},
    {"ItemPaddingTooShort", Replace("IsRunnerOutput", "IsRunnerOutput = 0   (0:off,1:on)"),
     {At("IsRunnerOutput", "expected a line like \"IsRunnerOutput =                0   (0:off,1:on)\", found \"IsRunnerOutput = 0   (0:off,1:on)\"")}},
    {"MapFileWithoutItsSpaces", Replace("MapFile", "MapFile ="),
     {At("MapFile", R"(expected a line like "MapFile = D:\Path", found "MapFile =")")}},
    {"MapFileWithOneSpace", Replace("MapFile", "MapFile = "),
     {At("MapFile", R"("MapFile": must be a single space, because the mesh is not mapped)")}},
    // Values
    {"SegmentBelowTheRange", Replace("SegmentX", "SegmentX = 0 (1~100)"),
     {At("SegmentX", R"("SegmentX" is 0; allowed: 1~100)")}},
    {"SegmentAboveTheRange", Replace("SegmentZ", "SegmentZ = 101 (1~100)"),
     {At("SegmentZ", R"("SegmentZ" is 101; allowed: 1~100)")}},
    {"ThetaSegmentAboveTheRange", Replace("[MATERIAL REDUCTION] FiberThetaYSegment", "FiberThetaYSegment = 31 (1~30)"),
     {At("[MATERIAL REDUCTION] FiberThetaYSegment", R"("FiberThetaYSegment" is 31; allowed: 1~30)")}},
    {"StrengthSegmentAboveTheRange", Replace("[MATERIAL REDUCTION] FiberStrengthXSegment", "FiberStrengthXSegment = 21 (1~20)"),
     {At("[MATERIAL REDUCTION] FiberStrengthXSegment", R"("FiberStrengthXSegment" is 21; allowed: 1~20)")}},
    {"InsertStrengthSegmentAboveTheRange", Replace("[PARTINSERT MATERIAL REDUCTION] FiberStrengthYSegment", "FiberStrengthYSegment = 6 (1~5)"),
     {At("[PARTINSERT MATERIAL REDUCTION] FiberStrengthYSegment", R"("FiberStrengthYSegment" is 6; allowed: 1~5)")}},
    {"InsertThetaSegmentNegative", Replace("[PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment", "FiberThetaXSegment = -8 (1~30)"),
     {At("[PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment", R"("FiberThetaXSegment" is -8; allowed: 1~30)")}},
    {"DensityReductionOfOne", Replace("DensityReduction", "DensityReduction = 1 (2~10)"),
     {At("DensityReduction", R"("DensityReduction" is 1; allowed: 2~10)")}},
    {"DensityReductionAboveTheRange", Replace("DensityReduction", "DensityReduction = 11 (2~10)"),
     {At("DensityReduction", R"("DensityReduction" is 11; allowed: 2~10)")}},
    {"DensityReductionOfZeroThoughOn", Replace("DensityReduction", "DensityReduction = 0 (2~10)"),
     {At("DensityReduction", R"(warning: "DensityReduction" is 0, though density reduction is on)")}},
    {"OnOffValueOfTwo", Replace("IsViewEditModelMapping", "IsViewEditModelMapping = 2 (0:off,1:on)"),
     {At("IsViewEditModelMapping", R"("IsViewEditModelMapping" is 2; allowed: 0:off,1:on)")}},
    {"ItemValueOfTwo", Replace("IsRunnerOutput", "IsRunnerOutput =                2   (0:off,1:on)"),
     {At("IsRunnerOutput", R"("IsRunnerOutput" is 2; allowed: 0:off,1:on)")}},
    {"ItemValueInWords", Replace("IsRunnerOutput", "IsRunnerOutput =                on   (0:off,1:on)"),
     {At("IsRunnerOutput", "expected a line like \"IsRunnerOutput =                0   (0:off,1:on)\", found \"IsRunnerOutput =                on   (0:off,1:on)\"")}},
    {"NumberWithPlusSign", Replace("SolverType", "SolverType = +1"),
     {At("SolverType", R"(expected a line like "SolverType = 0", found "SolverType = +1")")}},
    {"NumberWithLeadingZero", Replace("ProjectType", "ProjectType = 06"),
     {At("ProjectType", R"(expected a line like "ProjectType = 0", found "ProjectType = 06")")}},
    {"NumberWithDecimals", Replace("QuadraticElement", "QuadraticElement = 1.0 (0:off,1:on)"),
     {At("QuadraticElement", "expected a line like \"QuadraticElement = 0 (0:off,1:on)\", found \"QuadraticElement = 1.0 (0:off,1:on)\"")}},
    {"NumberMissing", Replace("ProjectType", "ProjectType = "),
     {At("ProjectType", R"(expected a line like "ProjectType = 0", found "ProjectType = " (with a space at its end))")}},
    {"NumberTooLarge", Replace("ProjectType", "ProjectType = 2147483648"),
     {At("ProjectType", R"(expected a line like "ProjectType = 0", found "ProjectType = 2147483648")")}},
    {"CompositeModelUnknown", Replace("IDCompositeModel", "IDCompositeModel = 3"),
     {At("IDCompositeModel", R"(warning: "IDCompositeModel" is 3; the models are 0 to 2)")}},
    {"CompositeModelBelowMissing", Replace("IDCompositeModel", "IDCompositeModel = -3"),
     {At("IDCompositeModel", R"("IDCompositeModel": must be a model number from 0 up, or -2 if the results are missing)")}},
    {"CompositeModelOfMinusOne", Replace("IDCompositeModel", "IDCompositeModel = -1"),
     {At("IDCompositeModel", R"("IDCompositeModel": must be a model number from 0 up, or -2 if the results are missing)")}},
    {"FirstAngleNotZero", Replace("WeldlineAngle1", "WeldlineAngle1 = 15.000"),
     {At("WeldlineAngle1", R"(expected "WeldlineAngle1 = 0.000", found "WeldlineAngle1 = 15.000")")}},
    {"AngleWithTwoDecimals", Replace("WeldlineAngle2", "WeldlineAngle2 = 30.00"),
     {At("WeldlineAngle2", R"(expected a line like "WeldlineAngle2 = 0.000", found "WeldlineAngle2 = 30.00")")}},
    {"AngleWithDecimalComma", Replace("WeldlineAngle2", "WeldlineAngle2 = 30,000"),
     {At("WeldlineAngle2", R"(expected a line like "WeldlineAngle2 = 0.000", found "WeldlineAngle2 = 30,000")")}},
    {"AngleWithExponent", Replace("WeldlineAngle2", "WeldlineAngle2 = 3e1"),
     {At("WeldlineAngle2", R"(expected a line like "WeldlineAngle2 = 0.000", found "WeldlineAngle2 = 3e1")")}},
    {"AngleNotANumber", Replace("WeldlineAngle", "WeldlineAngle = nan"),
     {At("WeldlineAngle", R"(expected a line like "WeldlineAngle = 0.000", found "WeldlineAngle = nan")")}},
    {"AngleInfinite", Replace("WeldlineAngle", "WeldlineAngle = -inf"),
     {At("WeldlineAngle", R"(expected a line like "WeldlineAngle = 0.000", found "WeldlineAngle = -inf")")}},
    {"RateWithoutAWholePart", Replace("ReductionRate1", "ReductionRate1 = .800"),
     {At("ReductionRate1", R"(expected a line like "ReductionRate1 = 0.000", found "ReductionRate1 = .800")")}},
    {"NulByteInAPath", Replace("OutFolder", std::string("OutFolder = D:\0x", 16)),
     {At("OutFolder", R"(expected a line like "OutFolder = D:\Path", found "OutFolder = D:\x00x")")}},
    {"ControlBytesAreNotEchoed", Replace("SegmentX", "SegmentX = \x1b[31m80 (1~100)"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX = \\x1b[31m80 (1~100)\"")}},
    // Lines that contradict each other
    {"SolverUnknown", Replace("[MSCNASTRAN]", "[FOO] "),
     {At("[MSCNASTRAN]", R"(expected a line like "[ANSYS] " (with a space at its end), found "[FOO] " (with a space at its end))")}},
    {"SolverBlockClosedForAnother", Replace("[MSCNASTRAN_EOF]", "[ANSYS_EOF]"),
     {At("[MSCNASTRAN_EOF]", R"(expected "[MSCNASTRAN_EOF]", found "[ANSYS_EOF]")")}},
    {"SolverBlockOpenedForAnother", Replace("[MSCNASTRAN]", "[ABAQUS] "),
     {At("[MSCNASTRAN_EOF]", R"(expected "[ABAQUS_EOF]", found "[MSCNASTRAN_EOF]")")}},
    {"NoMeshKind", Replace("IsDeformedMesh", "IsDeformedMesh = 0 (0:off,1:on)"),
     {At("[MSCNASTRAN]", LinesOfTheSample("MSCNASTRAN without a mesh kind" + project)),
      At("IsOriginalMesh", "warning: no mesh kind is 1")}},
    {"TwoMeshKinds", Replace("IsOriginalMesh", "IsOriginalMesh = 1 (0:off,1:on)"),
     {At("IsOriginalMesh", R"("IsOriginalMesh": only one mesh kind can be 1, and none for the annealed mesh)")}},
    {"AnnealedMeshInAnotherProject", Both(Replace("IsDeformedMesh", "IsDeformedMesh = 0 (0:off,1:on)"), InsertBefore("IsDoMaterialReduction", {"IsAnnealingDeformedMesh = 1 (0:off,1:on)"})),
     {At("[MSCNASTRAN]", LinesOfTheSample("MSCNASTRAN without a mesh kind and annealing" + project)),
      At("IsOriginalMesh", "warning: no mesh kind is 1"),
      At("IsDoMaterialReduction", R"(warning: "IsAnnealingDeformedMesh" has no effect: it applies only to the deformed mesh in projects of type 3)")}},
    {"AnnealedAndDeformedMesh", Both(Replace("ProjectType", "ProjectType = 3"), InsertBefore("IsDoMaterialReduction", {"IsAnnealingDeformedMesh = 1 (0:off,1:on)"})),
     {At("IsOriginalMesh", R"("IsOriginalMesh": only one mesh kind can be 1, and none for the annealed mesh)")}},
    {"AnnealingLineOfZero", InsertBefore("IsDoMaterialReduction", {"IsAnnealingDeformedMesh = 0 (0:off,1:on)"}),
     {At("IsDoMaterialReduction", "expected \"IsAnnealingDeformedMesh = 1 (0:off,1:on)\", found \"IsAnnealingDeformedMesh = 0 (0:off,1:on)\"")}},
    {"MapFileWithoutAMappedMesh", Replace("MapFile", "MapFile = D:\\mesh.bdf"),
     {At("MapFile", R"("MapFile": must be a single space, because the mesh is not mapped)")}},
    {"SameItemTwiceWithDifferentValues", InsertBefore("DigimatOutput", {"IsRunnerOutput =                1   (0:off,1:on)"}),
     {At("DigimatOutput", "\"IsRunnerOutput =                1   (0:off,1:on)\" does not belong here")}},
    // Missing lines
    {"OneLineMissing", Remove("SegmentY"),
     {At("SegmentY", "a line like \"SegmentY = 1 (1~100)\" is missing here")}},
    {"ClosingTagMissing", Remove("[\\HEADER]"),
     {At("[\\HEADER]", R"("[\HEADER]" is missing here)")}},
    {"SectionMissing", Remove("[DENSITY REDUCTION]", "[\\DENSITY REDUCTION]"),
     AllAt("[DENSITY REDUCTION]", {
      R"("[DENSITY REDUCTION]" is missing here)",
      "a line like \"DensityReduction = 2 (2~10)\" is missing here",
      R"("[\DENSITY REDUCTION]" is missing here)"})},
    {"SolverTagsMissing", Both(Remove("[MSCNASTRAN_EOF]"), Remove("[MSCNASTRAN]")),
     {At("[MSCNASTRAN]", R"(a line like "[ANSYS] " (with a space at its end) is missing here)"),
      At("[MSCNASTRAN_EOF]", -1, R"(a line like "[ANSYS_EOF]" is missing here)")}},
    {"LastLineMissing", Remove("[\\REDUCTION RATE]"),
     {At("ReductionRate3", R"(the file ends here, before "[\REDUCTION RATE]")")}},
    {"CutOffInTheMiddle", Remove("[\\MATERIAL REDUCTION]", "[\\REDUCTION RATE]"),
     {At("[MATERIAL REDUCTION] FiberStrengthYSegment", R"(the file ends here, before "[\MATERIAL REDUCTION] " (with a space at its end))")}},
    {"CutOffBehindTheTitle", Remove("FileVersion", "[\\REDUCTION RATE]"),
     {At("I2-Output Control Parameter File", R"(the file ends here, before "FileVersion = 9064")")}},
    {"CutOffBehindTheItems", Remove("IsDoDensityReduction", "[\\REDUCTION RATE]"),
     {At("DigimatTemperatureOutput", "the file ends here, before a line like \"IsDoDensityReduction =          0   (0:off,1:on)\"")}},
    {"CutOffWithAGarbledLineAbove", Both(Remove("[MATERIAL REDUCTION]", "[\\REDUCTION RATE]"), Replace("SegmentY", "SegmentY = 0 (1~100)")),
     {At("SegmentY", R"("SegmentY" is 0; allowed: 1~100)"),
      At("[\\MAP DOMAIN]", R"(the file ends here, before "[MATERIAL REDUCTION]")")}},
    {"MapDomainMissing", Remove("[MAP DOMAIN]", "[\\MAP DOMAIN]"),
     AllAt("[MAP DOMAIN]", {
      R"("[MAP DOMAIN]" is missing here)",
      "a line like \"SegmentX = 1 (1~100)\" is missing here",
      "a line like \"SegmentY = 1 (1~100)\" is missing here",
      "a line like \"SegmentZ = 1 (1~100)\" is missing here",
      R"("[\MAP DOMAIN] " (with a space at its end) is missing here)"})},
    {"DensitySwitchMissing", Remove("IsDoDensityReduction"),
     {At("IsDoDensityReduction", "a line like \"IsDoDensityReduction =          0   (0:off,1:on)\" is missing here")}},
    {"InsertSegmentMissing", Remove("[PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment"),
     {At("[PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment", "a line like \"FiberThetaXSegment = 1 (1~30)\" is missing here")}},
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
      R"("[\MAP DOMAIN] " (with a space at its end) does not belong here)"})},
    // Lines in another order
    {"NeighborsSwapped", Swap("SegmentX", "SegmentY"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentY = 70 (1~100)\""),
      At("SegmentY", "expected a line like \"SegmentY = 1 (1~100)\", found \"SegmentX = 80 (1~100)\"")}},
    {"ItemsSwapped", Swap("IsRunnerOutput", "DigimatOutput"),
     {At("IsRunnerOutput", "expected a line like \"IsRunnerOutput =                0   (0:off,1:on)\", found \"DigimatOutput =                 1   (0:off,1:on)\""),
      At("DigimatOutput", "expected a line like \"DigimatOutput =                 0   (0:off,1:on)\", found \"IsRunnerOutput =                0   (0:off,1:on)\"")}},
    {"ItemBelowTheDensitySwitch", Swap("DigimatTemperatureOutput", "IsDoDensityReduction"),
     {At("DigimatTemperatureOutput", "expected a line like \"DigimatTemperatureOutput =\\t0   (0:off,1:on)\", found \"IsDoDensityReduction =          1   (0:off,1:on)\""),
      At("IsDoDensityReduction", "expected a line like \"IsDoDensityReduction =          0   (0:off,1:on)\", found \"DigimatTemperatureOutput =\\t0   (0:off,1:on)\"")}},
    {"ItemInTheWrongSection", Move("IsRunnerOutput", "WeldlineAngle1"),
     {At("IsRunnerOutput", "a line like \"IsRunnerOutput =                0   (0:off,1:on)\" is missing here"),
      At("WeldlineAngle1", -1, "\"IsRunnerOutput =                0   (0:off,1:on)\" does not belong here")}},
    {"LastItemFirst", Move("DigimatTemperatureOutput", "IsDoMaterialReduction"),
     {At("IsDoMaterialReduction", "\"DigimatTemperatureOutput =\\t0   (0:off,1:on)\" does not belong here"),
      At("IsDoDensityReduction", "a line like \"DigimatTemperatureOutput =\\t0   (0:off,1:on)\" is missing here")}},
    {"LineMovedUp", Move("ReductionRate3", "ReductionRate1"),
     {At("ReductionRate1", R"("ReductionRate3 = 0.950" does not belong here)"),
      At("[\\REDUCTION RATE]", R"(a line like "ReductionRate3 = 0.000" is missing here)")}},
    {"LineMovedDown", Move("SegmentX", "[\\MAP DOMAIN]"),
     {At("SegmentX", "a line like \"SegmentX = 1 (1~100)\" is missing here"),
      At("[\\MAP DOMAIN]", -1, "\"SegmentX = 80 (1~100)\" does not belong here")}},
    {"TitleAtTheEnd", Move("I2-Output Control Parameter File", endOfFile),
     {At("I2-Output Control Parameter File", R"(not a control parameter file: expected "I2-Output Control Parameter File", found "FileVersion = 9064")")}},
    {"ClosingTagMovedToTheEnd", Move("[\\HEADER]", endOfFile),
     {At("[\\HEADER]", R"("[\HEADER]" is missing here)"),
      At(endOfFile, -1, R"("[\HEADER]" does not belong here)")}},
    // Several at once
    {"TwoFaultsFarApart", Both(Replace("SolverType", "SolverType = x"), Replace("ReductionRate1", "ReductionRate1 = y")),
     {At("SolverType", R"(expected a line like "SolverType = 0", found "SolverType = x")"),
      At("ReductionRate1", R"(expected a line like "ReductionRate1 = 0.000", found "ReductionRate1 = y")")}},
    {"MissingLineAndWrongValueBehindIt", Both(Replace("SegmentZ", "SegmentZ = 101 (1~100)"), Remove("SegmentY")),
     {At("SegmentY", "a line like \"SegmentY = 1 (1~100)\" is missing here"),
      At("SegmentZ", -1, R"("SegmentZ" is 101; allowed: 1~100)")}},
    {"ThreeLinesGarbled", Both(Both(Replace("[MATERIAL REDUCTION] FiberThetaYSegment", "#3"), Replace("[MATERIAL REDUCTION] FiberThetaXSegment", "#2")), Replace("[MATERIAL REDUCTION]", "#1")),
     {At("[MATERIAL REDUCTION]", R"(expected "[MATERIAL REDUCTION]", found "#1")"),
      At("[MATERIAL REDUCTION] FiberThetaXSegment", R"("#2" does not belong here)"),
      At("[MATERIAL REDUCTION] FiberThetaYSegment", R"("#3" does not belong here)"),
      At("[MATERIAL REDUCTION] FiberThetaZSegment", "a line like \"FiberThetaXSegment = 1 (1~30)\" is missing here"),
      At("[MATERIAL REDUCTION] FiberThetaZSegment", "a line like \"FiberThetaYSegment = 1 (1~30)\" is missing here")}},
    // Bytes that cannot be seen
    {"SpaceThatDoesNotBreak", Replace("SegmentX", "SegmentX\xc2\xa0= 80 (1~100)"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX\\xc2\\xa0= 80 (1~100)\"")}},
    {"SpaceWithoutWidth", Replace("SegmentX", "SegmentX = 80\xe2\x80\x8b (1~100)"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX = 80\\xe2\\x80\\x8b (1~100)\"")}},
    {"ByteThatIsNoUtf8", Replace("SegmentX", "SegmentX = 80 (1\xff""100)"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX = 80 (1\\xff100)\"")}},
    {"CharacterCutOff", Replace("SegmentX", "SegmentX = 80 (1~100)\xc3"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX = 80 (1~100)\\xc3\"")}},
    {"UmlautStaysAnUmlaut", Replace("SegmentX", "SegmentX = 80 (1~100)ü"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX = 80 (1~100)ü\"")}},
    {"Delete", Replace("SegmentX", "SegmentX = 8\x7f""0 (1~100)"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX = 8\\x7f0 (1~100)\"")}},
    {"TabAtTheEnd", Replace("SegmentX", "SegmentX = 80 (1~100)\t"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX = 80 (1~100)\\t\"")}},
    {"TwoSpacesAtTheEnd", Replace("SegmentX", "SegmentX = 80 (1~100)  "),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX = 80 (1~100)  \" (with spaces at its end)")}},
    {"TabInsteadOfTheSpaceOfAClosingTag", Replace("[\\MAP DOMAIN]", "[\\MAP DOMAIN]\t"),
     {At("[\\MAP DOMAIN]", R"(expected "[\MAP DOMAIN] " (with a space at its end), found "[\MAP DOMAIN]\t")")}},
    {"ByteOrderMarkInTheMiddle", Replace("[HEADER]", "\xef\xbb\xbf[HEADER]"),
     {At("[HEADER]", R"(expected "[HEADER]", found "\xef\xbb\xbf[HEADER]")")}},
    {"CarriageReturnInTheLine", Replace("SegmentX", "SegmentX = 80\r (1~100)"),
     {At("SegmentX", "expected a line like \"SegmentX = 1 (1~100)\", found \"SegmentX = 80\\x0d (1~100)\"")}},
    {"OneLineWithAnotherLineEnd", Replace("SegmentX", "SegmentX = 80 (1~100)\r"),
     {At("SegmentX", "this line ends in CR LF, but those above end in LF")}},
    {"SolverTagInLowerCase", Replace("[MSCNASTRAN]", "[mscnastran] "),
     {At("[MSCNASTRAN]", R"(expected a line like "[ANSYS] " (with a space at its end), found "[mscnastran] " (with a space at its end))")}},
    {"MapFileWithThreeSpaces", Replace("MapFile", "MapFile =   "),
     {At("MapFile", R"("MapFile": must be a single space, because the mesh is not mapped)")}},
    {"OnOffValueBelowZero", Replace("QuadraticElement", "QuadraticElement = -1 (0:off,1:on)"),
     {At("QuadraticElement", R"("QuadraticElement" is -1; allowed: 0:off,1:on)")}},
    // Values that the engine takes as they come
    {"OutFolderEmpty", Replace("OutFolder", "OutFolder = "),
     {At("OutFolder", R"(warning: "OutFolder" names no folder)")}},
    {"OutFolderOfSpaces", Replace("OutFolder", "OutFolder =    "),
     {At("OutFolder", R"(warning: "OutFolder" names no folder)")}},
    {"OutFolderOfAnotherMachine", Replace("OutFolder", "OutFolder = /srv/Läufe"),
     {}},  // any path is one: the translator may run elsewhere
    {"ProjectTypeBelowAll", Replace("ProjectType", "ProjectType = -1"),
     {At("ProjectType", R"(warning: "ProjectType" is -1; project types are 0 to 11)")}},
    {"ProjectTypeAboveAll", Replace("ProjectType", "ProjectType = 12"),
     {At("ProjectType", R"(warning: "ProjectType" is 12; project types are 0 to 11)")}},
    {"ProjectTypeOfTheSameOffer", Replace("ProjectType", "ProjectType = 11"),
     {}},  // offers what type 6 offers, so nothing tells that it was another one
    {"AnglesEqual", Replace("WeldlineAngle3", "WeldlineAngle3 = 30.000"),
     {At("WeldlineAngle3", R"(warning: "WeldlineAngle3" is 30.000, which is not greater than the previous angle)")}},
    {"AnglesDescend", Swap("WeldlineAngle2", "WeldlineAngle4"),
     {At("WeldlineAngle2", R"(expected a line like "WeldlineAngle2 = 0.000", found "WeldlineAngle4 = 90.500")"),
      At("WeldlineAngle4", R"(expected a line like "WeldlineAngle4 = 0.000", found "WeldlineAngle2 = 30.000")")}},
    {"AnglesOutOfOrder", Replace("WeldlineAngle2", "WeldlineAngle2 = 75.000"),
     {At("WeldlineAngle3", R"(warning: "WeldlineAngle3" is 60.000, which is not greater than the previous angle)")}},
    {"SecondAngleZero", Replace("WeldlineAngle2", "WeldlineAngle2 = 0.000"),
     {At("WeldlineAngle2", R"(warning: "WeldlineAngle2" is 0.000, which is not greater than the previous angle)")}},
    {"DigimatAngleBelowZero", Replace("WeldlineAngle", "WeldlineAngle = -45.000"),
     {}},  // any angle is taken
    {"RateAboveOne", Replace("ReductionRate1", "ReductionRate1 = 1.001"),
     {At("ReductionRate1", R"(warning: "ReductionRate1" is 1.001; rates are 0 to 1)")}},
    {"RateBelowZero", Replace("ReductionRate3", "ReductionRate3 = -0.950"),
     {At("ReductionRate3", R"(warning: "ReductionRate3" is -0.950; rates are 0 to 1)")}},
    {"RatesOfZeroAndOne", Both(Replace("ReductionRate1", "ReductionRate1 = 0.000"), Replace("ReductionRate3", "ReductionRate3 = 1.000")),
     {}},  // both are rates
    {"AnotherSegmentInItsRange", Replace("SegmentX", "SegmentX = 100 (1~100)"),
     {}},  // as good as any other number in the printed range
    {"ItemSwitched", Replace("IsRunnerOutput", "IsRunnerOutput =                1   (0:off,1:on)"),
     {}},  // a choice
    // What does not fit together
    {"ItemLineDropped", Remove("IsRunnerOutput"),
     {At("IsRunnerOutput", R"(warning: "IsRunnerOutput" has no line, but the item is offered for )" + offer + project)}},
    {"FirstItemLineDropped", Remove("IsDoMaterialReduction"),
     {At("IsDoMaterialReduction", R"(warning: "IsDoMaterialReduction" has no line, but the item is offered for )" + offer + project)}},
    {"LastItemLineDropped", Remove("DigimatTemperatureOutput"),
     {At("DigimatTemperatureOutput", R"(warning: "DigimatTemperatureOutput" has no line, but the item is offered for )" + offer + project)}},
    {"AllItemLinesDropped", Remove("IsDoMaterialReduction", "DigimatTemperatureOutput"),
     {At("[MSCNASTRAN]", "warning: no item has a line, although items are offered for " + offer + project)}},
    {"ItemOfAnotherMesh", InsertBefore("DigimatOutput", {"IsPackTempOutput =              0   (0:off,1:on)"}),
     {At("DigimatOutput", R"(warning: "IsPackTempOutput" has a line, but the item is not offered for )" + offer + project)}},
    {"AnnealingItemInAnotherProject", InsertBefore("IsDoDensityReduction", {"IsAnnealingstressOutput =\t0   (0:off,1:on)"}),
     {At("IsDoDensityReduction", NeverOffered("IsAnnealingstressOutput", "a solid project of type 6"))}},
    {"MucellItemInAnotherProject", InsertBefore("DigimatFiberOutput", {"DigimatMucellOutput =\t\t0   (0:off,1:on)"}),
     {At("DigimatFiberOutput", NeverOffered("DigimatMucellOutput", "a solid project of type 6"))}},
    {"MucellItemDropped", Replace("ProjectType", "ProjectType = 9"),
     {At("DigimatFiberOutput", R"(warning: "DigimatMucellOutput" has no line, but the item is offered for )" + offer + " in a solid project of type 9")}},
    {"AnnealingProjectWithTheDeformedMesh", Replace("ProjectType", "ProjectType = 3"),
     {}},  // without annealing it offers what the others offer
    {"AnnealingLineInAnotherProject", InsertBefore("IsDoMaterialReduction", {"IsAnnealingDeformedMesh = 1 (0:off,1:on)"}),
     {At("IsDoMaterialReduction", R"(warning: "IsAnnealingDeformedMesh" has no effect: it applies only to the deformed mesh in projects of type 3)")}},
    {"ShellProjectWithSolidItems", Replace("SolverType", "SolverType = 1"),
     {At("IsRunnerOutput", NeverOffered("IsRunnerOutput", "a shell project of type 6")),
      At("DigimatOutput", R"(warning: "DigimatOutput" has a line, but the item is not offered for )" + offer + " in a shell project of type 6"),
      At("IsDensityOutput", NeverOffered("IsDensityOutput", "a shell project of type 6")),
      At("IsWeldlineOutput", NeverOffered("IsWeldlineOutput", "a shell project of type 6")),
      At("DigimatWeldlineOutput", NeverOffered("DigimatWeldlineOutput", "a shell project of type 6")),
      At("DigimatFiberOutput", NeverOffered("DigimatFiberOutput", "a shell project of type 6")),
      At("DigimatStressOutput", NeverOffered("DigimatStressOutput", "a shell project of type 6")),
      At("DigimatTemperatureOutput", NeverOffered("DigimatTemperatureOutput", "a shell project of type 6"))}},
    {"ProjectNeitherSolidNorShell", Both(Replace("SolverType", "SolverType = 2"), Remove("IsRunnerOutput", "DigimatTemperatureOutput")),
     {At("SolverType", R"(warning: "SolverType" is 2; a project is solid (0) or shell (1))"),
      At("IsDoMaterialReduction", NeverOffered("IsDoMaterialReduction", "a project of another kind of type 6"))}},
    {"SolverOfTheSameOffer", SetSolver("RADIOSS"),
     {}},  // offers what MSCNASTRAN offers, so nothing tells that it was another one
    {"SolverOfAnotherOffer", SetSolver("NENASTRAN"),
     {At("[MSCNASTRAN]", LinesOfTheSample("NENASTRAN with mesh kind \"deformed\"" + project))}},
    {"SolverNamedByNoTag", SetSolver(""),
     {At("[MSCNASTRAN]", "warning: the file names no solver"),
      At("[MSCNASTRAN]", LinesOfTheSample("a file without a solver"))}},
    {"WorkbenchWithTheOriginalMesh", Both(SetSolver("WORKBENCH"), SetMesh("IsOriginalMesh")),
     {At("[MSCNASTRAN]", LinesOfTheSample("WORKBENCH with mesh kind \"original\"" + project)),
      At("IsOriginalMesh", "warning: mesh kind \"original\" is not offered for WORKBENCH" + project)}},
    {"SolverNotOfferedForShells", Both(Both(SetSolver("WORKBENCH"), Replace("SolverType", "SolverType = 1")), Remove("IsDoMaterialReduction", "DigimatTemperatureOutput")),
     {At("[MSCNASTRAN]", "warning: WORKBENCH is not offered for a shell project of type 6")}},
    {"MeshOfAnotherOffer", SetMesh("IsOriginalMesh"),
     {At("[MSCNASTRAN]", LinesOfTheSample("MSCNASTRAN with mesh kind \"original\"" + project))}},
    {"MappedMeshWithoutAMapFile", Both(SetMesh("IsMappedMesh"), Replace("MapFile", "MapFile = ")),
     {At("MapFile", R"(warning: "MapFile" names no file, though the mesh is mapped)"),
      At("[MSCNASTRAN]", LinesOfTheSample("MSCNASTRAN with mesh kind \"mapped\"" + project))}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(ControlFile, ControlFileDamage, testing::ValuesIn(damagedFiles),
                         [](const auto& row) { return row.param.name; });

TEST(ControlFile, SampleHasNoFaults) {
    EXPECT_EQ(Faults{}, FaultsOf(Joined(SampleLines())));
}

TEST(ControlFile, OfALineThatTheFileEndsWithinNothingElseIsTold) {
    Lines lines = SampleLines();
    *Find(lines, "ReductionRate3") = "ReductionRate3 = high";
    const std::string text = Joined(lines);
    const Faults expected = {
        At("ReductionRate3",
           "expected a line like \"ReductionRate3 = 0.000\", found "
           "\"ReductionRate3 = high\""),
        At("[\\REDUCTION RATE]",
           "the file ends in the middle of this line: there is no line ending")};
    EXPECT_EQ(expected, FaultsOf(text.substr(0, text.size() - 1)));
    EXPECT_EQ(expected, FaultsOf(text.substr(0, text.size() - 3)));
}

TEST(ControlFile, WholeFileTwiceHasNothingOfTheSecondOne) {
    Faults messages = SampleLines();
    messages.resize(20);
    for (std::string& message : messages) {
        message = '"' + message + '"' +
                  (message.ends_with("  ")  ? " (with spaces at its end)"
                   : message.ends_with(' ') ? " (with a space at its end)"
                                            : "") +
                  " does not belong here";
    }
    Faults expected = FromLineOn(endOfFile, messages);
    expected.push_back(At(endOfFile, 19, "more errors follow"));
    EXPECT_EQ(expected, FaultsOf(Joined(SampleLines()) + Joined(SampleLines())));
}

}  // namespace
