// Reading control files: values, line ends, texts that are no control files, and the words.
#include "host/ControlFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "tests/host/SampleControlFile.h"

namespace {

using samples::Joined;
using samples::Lines;
using samples::SampleLines;

using Texts = std::vector<std::string>;

Texts FaultsOf(const std::string& text) {
    std::vector<host::Fault> faults;
    host::ReadControlFile(text, faults);
    Texts found;
    for (const host::Fault& fault : faults) {
        found.push_back(std::to_string(fault.line) + ": " + fault.message);
    }
    return found;
}

host::ControlFile Sample() {
    std::vector<host::Fault> faults;
    return host::ReadControlFile(Joined(SampleLines()), faults);
}

TEST(ControlFile, GivesTheValuesOfTheHeader) {
    const CZorbI2CMIData values = Sample().values;
    EXPECT_EQ(9064, values.FileVersion);
    EXPECT_EQ("D:\\Handover\\Cover", values.OutFolder);
    EXPECT_EQ(" ", values.MapFile);
    EXPECT_EQ(0, values.SolverType);
    EXPECT_EQ(6, values.ProjectType);
    EXPECT_EQ(1, values.QuadraticElement);
    EXPECT_EQ(1, values.IDCompositeModel);
    EXPECT_EQ("MSCNASTRAN", values.SolverName);
    EXPECT_EQ(0, values.IsOriginalMesh);
    EXPECT_EQ(1, values.IsDeformedMesh);
    EXPECT_EQ(0, values.IsMappedMesh);
    EXPECT_EQ(0, values.Is3DMappingShell);
    EXPECT_EQ(0, values.IsAnnealingDeformedMesh);
    EXPECT_EQ(0, values.IsDistributeModel);
    EXPECT_EQ(1, values.IsViewEditModelMapping);
    EXPECT_EQ(1, values.IsDoDensityReduction);
}

TEST(ControlFile, GivesTheValuesOfTheOtherSections) {
    const CZorbI2CMIData values = Sample().values;
    EXPECT_EQ(80, values.SegmentX);
    EXPECT_EQ(70, values.SegmentY);
    EXPECT_EQ(60, values.SegmentZ);
    EXPECT_EQ(15, values.FiberThetaXSegment);
    EXPECT_EQ(15, values.FiberThetaYSegment);
    EXPECT_EQ(15, values.FiberThetaZSegment);
    EXPECT_EQ(10, values.FiberStrengthXSegment);
    EXPECT_EQ(3, values.FiberStrengthYSegment);
    EXPECT_EQ(8, values.InsertFiberThetaXSegment);
    EXPECT_EQ(8, values.InsertFiberThetaYSegment);
    EXPECT_EQ(8, values.InsertFiberThetaZSegment);
    EXPECT_EQ(5, values.InsertFiberStrengthXSegment);
    EXPECT_EQ(2, values.InsertFiberStrengthYSegment);
    EXPECT_EQ(4, values.DensityReduction);
    EXPECT_EQ(30.0, values.WeldlineAngles[0]);
    EXPECT_EQ(60.0, values.WeldlineAngles[1]);
    EXPECT_EQ(90.5, values.WeldlineAngles[2]);
    EXPECT_EQ(135.0, values.DigimatWeldlineAngle);
    EXPECT_EQ(0.8, values.ReductionRates[0]);
    EXPECT_EQ(0.9, values.ReductionRates[1]);
    EXPECT_EQ(0.95, values.ReductionRates[2]);
}

TEST(ControlFile, GivesTheItemsInTheirOrder) {
    const host::ControlFile file = Sample();
    EXPECT_EQ((std::vector<std::int32_t>{0, 1, 11, 13, 14, 16, 18, 19, 20}), file.itemIds);
    EXPECT_EQ(1, file.values.OutputFlags[0]);
    EXPECT_EQ(0, file.values.OutputFlags[1]);
    EXPECT_EQ(1, file.values.OutputFlags[18]);
    EXPECT_EQ(0, file.values.OutputFlags[20]);
}

TEST(ControlFile, AnItemMayStandTwice) {
    Lines lines = SampleLines();
    lines.insert(lines.begin() + 18, lines[17]);
    std::vector<host::Fault> faults;
    const host::ControlFile file = host::ReadControlFile(Joined(lines), faults);
    EXPECT_TRUE(faults.empty());
    EXPECT_EQ((std::vector<std::int32_t>{0, 1, 1, 11, 13, 14, 16, 18, 19, 20}), file.itemIds);
}

TEST(ControlFile, TheListOfFaultsStartsEmpty) {
    std::vector<host::Fault> faults = {{1, "from another file"}};
    host::ReadControlFile(Joined(SampleLines()), faults);
    EXPECT_TRUE(faults.empty());
}

// ---- Line ends, and texts that are no control files ---------------------------------------------

TEST(ControlFile, LineEndsOfWindowsAreNoFault) {
    EXPECT_EQ(Texts{}, FaultsOf(Joined(SampleLines(), "\r\n")));
}

TEST(ControlFile, LineEndsOfWindowsAreNoPartOfAPath) {
    std::vector<host::Fault> faults;
    EXPECT_EQ("D:\\Handover\\Cover",
              host::ReadControlFile(Joined(SampleLines(), "\r\n"), faults).values.OutFolder);
}

TEST(ControlFile, MissingLastLineEndIsAFault) {
    std::string text = Joined(SampleLines());
    text.pop_back();
    EXPECT_EQ(Texts{"64: the file ends within this line: it has no line end"}, FaultsOf(text));
}

TEST(ControlFile, FileCutOffWithinALineTellsWhatIsMissing) {
    const std::string text = Joined(SampleLines());
    EXPECT_EQ((Texts{"62: expected \"ReductionRate2 = N.NNN\", found \"ReductionRate2 = 0.\"",
                     R"(62: "ReductionRate3 = N.NNN" is missing here)",
                     R"(62: "[\REDUCTION RATE]" is missing here)",
                     "62: the file ends within this line: it has no line end"}),
              FaultsOf(text.substr(0, text.find("ReductionRate2") + 19)));
}

TEST(ControlFile, ByteOrderMarkIsTheOnlyFaultOfAFileThatIsFineBehindIt) {
    EXPECT_EQ(Texts{"1: the file starts with a byte order mark"},
              FaultsOf("\xEF\xBB\xBF" + Joined(SampleLines())));
}

TEST(ControlFile, EmptyFileIsNoControlFile) {
    EXPECT_EQ(Texts{R"(1: not a control parameter file: expected "I2-Output Control Parameter )"
                    R"(File", found "")"},
              FaultsOf(""));
}

TEST(ControlFile, AnotherKindOfFileGivesOneFault) {
    EXPECT_EQ(Texts{R"(1: not a control parameter file: expected "I2-Output Control Parameter )"
                    R"(File", found "project = 'Cover'")"},
              FaultsOf("project = 'Cover'\nrun = 3\n[target]\nsolver = 'ansys'\n"));
}

TEST(ControlFile, WideTextGivesOneFault) {
    std::string wide = "\xFF\xFE";
    for (const char letter : Joined(SampleLines())) {
        (wide += letter) += '\0';
    }
    ASSERT_EQ(1U, FaultsOf(wide).size());
    EXPECT_EQ(0U, FaultsOf(wide)[0].find("1: not a control parameter file"));
}

TEST(ControlFile, BinaryFileGivesOneFaultWithoutControlBytes) {
    std::string bytes;
    for (int i = 0; i < 100'000; ++i) {
        bytes += static_cast<char>(i * 7919 / 13);
    }
    const Texts faults = FaultsOf(bytes);
    ASSERT_EQ(1U, faults.size());
    EXPECT_TRUE(std::ranges::none_of(
        faults[0], [](char letter) { return static_cast<unsigned char>(letter) < 0x20; }));
    EXPECT_LT(faults[0].size(), 400U);
}

TEST(ControlFile, OneHugeLineGivesShortFaults) {
    std::string text = Joined(SampleLines());
    text.resize(10'000'000, 'x');
    const Texts faults = FaultsOf(text);
    ASSERT_EQ(2U, faults.size());
    EXPECT_EQ("65: \"" + std::string(160, 'x') + "...\" does not belong here", faults[0]);
}

TEST(ControlFile, NoMoreThanTwentyFaultsAreListed) {
    const Texts faults = FaultsOf(Joined(SampleLines()) + std::string(100'000, '\n'));
    ASSERT_EQ(21U, faults.size());
    EXPECT_EQ("65: an empty line does not belong here", faults[0]);
    EXPECT_EQ("84: an empty line does not belong here", faults[19]);
    EXPECT_EQ("84: more faults follow", faults[20]);
}

// ---- Random damage ------------------------------------------------------------------------------

/// Small changes at places that depend on the seed alone.
std::string Mutated(std::string text, std::mt19937& random) {
    const auto below = [&random](std::size_t bound) {
        return random() % std::max<std::size_t>(bound, 1);
    };
    for (std::size_t change = 0; change < 1 + below(6); ++change) {
        const std::size_t place = below(text.size());
        const std::size_t length = below(40);
        switch (below(4)) {
            case 0:
                text[place] = static_cast<char>(below(256));
                break;
            case 1:
                text.erase(place, length);
                break;
            case 2:
                text.insert(place, text.substr(below(text.size()), length));
                break;
            default:
                text.insert(place, length, static_cast<char>(below(256)));
        }
    }
    return text;
}

TEST(ControlFile, RandomDamageGivesFewFaultsWithinTheFile) {
    std::seed_seq seed{9064};
    std::mt19937 random(seed);
    const std::string sample = Joined(SampleLines());
    for (int round = 0; round < 3000; ++round) {
        const std::string text = Mutated(sample, random);
        const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
        std::vector<host::Fault> faults;
        host::ReadControlFile(text, faults);
        ASSERT_LE(faults.size(), 21U) << text;
        for (const host::Fault& fault : faults) {
            ASSERT_GE(fault.line, 1U) << text;
            ASSERT_LE(fault.line, lines) << text;
            ASSERT_FALSE(fault.message.empty()) << text;
        }
        ASSERT_TRUE(std::ranges::is_sorted(faults, {}, &host::Fault::line)) << text;
    }
}

TEST(ControlFile, EveryChangedByteIsFoundOnItsLine) {
    const std::string sample = Joined(SampleLines());
    std::size_t line = 1;
    for (std::size_t place = 0; place < sample.size(); ++place) {
        std::string text = sample;
        text[place] = '\x01';
        const bool isFreeText = line == 4 && place >= sample.find("D:\\Handover");
        if (sample[place] != '\n' && !isFreeText) {
            std::vector<host::Fault> faults;
            host::ReadControlFile(text, faults);
            ASSERT_EQ(1U, faults.size()) << text;
            ASSERT_EQ(line, faults[0].line) << text;
        }
        line += sample[place] == '\n' ? 1 : 0;
    }
}

// ---- Lines --------------------------------------------------------------------------------------

TEST(ControlFile, TextsAreSplitAtBothLineEnds) {
    EXPECT_EQ((Lines{"a", "", "b "}), host::SplitLines("a\n\r\nb \r\n"));
    EXPECT_EQ((Lines{"a", "b"}), host::SplitLines("a\nb"));
    EXPECT_EQ(Lines{}, host::SplitLines(""));
}

TEST(ControlFile, LinesOfAFileAreThoseThatWereRead) {
    EXPECT_EQ(SampleLines(), host::LinesOf(Sample()));
}

TEST(ControlFile, LinesFollowTheValues) {
    host::ControlFile file = Sample();
    file.values.OutFolder = std::string("D:\\E\0F", 6);  // printed up to the NUL byte
    file.values.MapFile = "D:\\mesh.inp";
    file.values.SolverName = "ANSYS";
    file.values.IsDeformedMesh = 0;
    file.values.IsMappedMesh = 1;
    file.values.IsAnnealingDeformedMesh = 1;
    file.values.OutputFlags[21] = 1;
    file.itemIds = {21, 0, 15, 0};
    file.values.WeldlineAngles[0] = 30.0006;
    Lines expected = SampleLines();
    expected[53 - 1] = "WeldlineAngle2 = 30.001";
    expected[27 - 1] = "[ANSYS_EOF]";
    expected.erase(expected.begin() + 17, expected.begin() + 25);
    expected.insert(expected.begin() + 17, "IsAnnealingstressOutput =\t1   (0:off,1:on)");
    expected.insert(expected.begin() + 17, expected[16]);
    expected.insert(expected.begin() + 16, "IsAnnealingDeformedMesh = 1 (0:off,1:on)");
    expected[13 - 1] = "IsMappedMesh = 1 (0:off,1:on)";
    expected[12 - 1] = "IsDeformedMesh = 0 (0:off,1:on)";
    expected[10 - 1] = "[ANSYS] ";
    expected[5 - 1] = "MapFile = D:\\mesh.inp";
    expected[4 - 1] = "OutFolder = D:\\E";
    EXPECT_EQ(expected, host::LinesOf(file));
}

TEST(ControlFile, AMeshThatIsNotMappedHasNoMapFile) {
    host::ControlFile file = Sample();
    file.values.MapFile = "D:\\mesh.inp";
    EXPECT_EQ("MapFile =  ", host::LinesOf(file)[4]);
    file.values.Is3DMappingShell = 1;
    EXPECT_EQ("MapFile = D:\\mesh.inp", host::LinesOf(file)[4]);
}

}  // namespace
