// Reading control files: values, line ends, texts that are no control files, and the words.
#include "host/ControlFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "CZorbI2Item.h"
#include "tests/host/SampleControlFile.h"
#include "tests/support/SampleProject.h"

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
    EXPECT_EQ("", values.MapFile);
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

TEST(ControlFile, GivesTheItemLinesInTheirOrder) {
    Texts found;
    for (const host::ItemLine& item : Sample().items) {
        found.push_back(std::to_string(item.line) + ": " + std::to_string(item.itemId) + " = " +
                        std::to_string(item.value));
    }
    EXPECT_EQ((Texts{"17: 0 = 1", "18: 1 = 0", "19: 11 = 1", "20: 13 = 1", "21: 14 = 0",
                     "22: 16 = 0", "23: 18 = 1", "24: 19 = 0", "25: 20 = 0"}),
              found);
}

TEST(ControlFile, AnItemMayStandTwice) {
    Lines lines = SampleLines();
    lines.insert(lines.begin() + 18, lines[17]);
    std::vector<host::Fault> faults;
    const host::ControlFile file = host::ReadControlFile(Joined(lines), faults);
    EXPECT_TRUE(faults.empty());
    ASSERT_EQ(10U, file.items.size());
    EXPECT_EQ(1, file.items[1].itemId);
    EXPECT_EQ(1, file.items[2].itemId);
    EXPECT_EQ(19U, file.items[2].line);
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
    EXPECT_EQ((Texts{"30: the file ends within this line: it has no line end",
                     R"(30: "SegmentY" and 33 more lines are missing here)",
                     "30: expected \"SegmentX = N (1~100)\", found \"SegmentX = 80 (1~\""}),
              FaultsOf(text.substr(0, text.find("SegmentX") + 17)));
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

TEST(ControlFile, HugeFileGivesOneFault) {
    std::string text = Joined(SampleLines());
    text.resize(50'000'000, 'x');
    EXPECT_EQ(Texts{"1: not a control parameter file: it is too large"}, FaultsOf(text));
}

TEST(ControlFile, ManyLinesBehindTheEndAreNotReportedOneByOne) {
    const Texts faults = FaultsOf(Joined(SampleLines()) + std::string(100'000, '\n'));
    ASSERT_EQ(7U, faults.size());
    EXPECT_EQ("65: an empty line does not belong here", faults[0]);
    EXPECT_EQ("70: 931 more lines from here on do not belong here", faults[5]);
    EXPECT_EQ("1000: too many lines: those after this one were not read", faults[6]);
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
        ASSERT_LE(faults.size(), 40U) << text;
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

// ---- Asked and found ----------------------------------------------------------------------------

TEST(ControlFile, EqualFilesDoNotDiffer) {
    EXPECT_EQ(Texts{}, host::Differences(Sample(), Sample()));
}

TEST(ControlFile, DifferencesAreNamedByKeyAndSection) {
    host::ControlFile asked = Sample();
    asked.values.OutFolder = "D:\\Elsewhere";
    asked.values.QuadraticElement = 0;
    asked.values.SolverName = "ANSYS";
    asked.values.IsAnnealingDeformedMesh = 1;
    asked.values.SegmentX = 30;
    asked.values.FiberThetaXSegment = 1;
    asked.values.InsertFiberThetaXSegment = 1;
    asked.values.DensityReduction = 10;
    asked.values.WeldlineAngles[2] = 100.0;
    asked.values.DigimatWeldlineAngle = 90.0;
    asked.values.ReductionRates[0] = 0.75;
    EXPECT_EQ((Texts{
                  R"(OutFolder is "D:\Handover\Cover", asked for was "D:\Elsewhere")",
                  R"(QuadraticElement is "1", asked for was "0")",
                  R"(SolverName is "MSCNASTRAN", asked for was "ANSYS")",
                  R"(IsAnnealingDeformedMesh is "0", asked for was "1")",
                  R"([MAP DOMAIN] SegmentX is "80", asked for was "30")",
                  R"([MATERIAL REDUCTION] FiberThetaXSegment is "15", asked for was "1")",
                  R"([PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment is "8", asked for was "1")",
                  R"([DENSITY REDUCTION] DensityReduction is "4", asked for was "10")",
                  R"([WELDLINE ANGLE] WeldlineAngle4 is "90.500", asked for was "100.000")",
                  R"([DIGIMAT WELDLINE ANGLE] WeldlineAngle is "135.000", asked for was "90.000")",
                  R"([REDUCTION RATE] ReductionRate1 is "0.800", asked for was "0.750")",
              }),
              host::Differences(asked, Sample()));
}

TEST(ControlFile, DifferencesOfItemsAreNamedByTheirKeys) {
    host::ControlFile asked = Sample();
    asked.values.OutputFlags[1] = 1;
    asked.items.pop_back();
    asked.items.push_back({21, 0, 0});
    EXPECT_EQ((Texts{R"(IsRunnerOutput is "0", asked for was "1")",
                     R"(DigimatTemperatureOutput is "0", asked for was missing)",
                     R"(IsAnnealingstressOutput is missing, asked for was "0")"}),
              host::Differences(asked, Sample()));
}

TEST(ControlFile, AnglesDifferOnlyAsPrinted) {
    host::ControlFile asked = Sample();
    asked.values.WeldlineAngles[0] = 30.0004;
    EXPECT_EQ(Texts{}, host::Differences(asked, Sample()));
    asked.values.WeldlineAngles[0] = 30.0006;
    EXPECT_EQ(1U, host::Differences(asked, Sample()).size());
}

TEST(ControlFile, FileOfABlockHasWhatIsPrinted) {
    CZorbI2CMIData block;
    block.MapFile = "D:\\mesh.inp";
    block.IsDeformedMesh = 1;
    block.IsAnnealingDeformedMesh = 2;
    block.OutputFlags[13] = 1;
    const host::ControlFile file = host::FileOf(block, {15, 13, 3, 13, 22, -1});
    EXPECT_EQ("", file.values.MapFile);
    EXPECT_EQ(0, file.values.IsAnnealingDeformedMesh);
    ASSERT_EQ(3U, file.items.size());
    EXPECT_EQ(3, file.items[0].itemId);
    EXPECT_EQ(0, file.items[0].value);
    EXPECT_EQ(13, file.items[2].itemId);
    EXPECT_EQ(1, file.items[2].value);
    block.IsMappedMesh = 1;
    EXPECT_EQ("D:\\mesh.inp", host::FileOf(block, {}).values.MapFile);
}

}  // namespace
