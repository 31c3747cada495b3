// Reading control files: values, line ends, texts that are no control files, and the words.
#include "control_files/ControlFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
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
using samples::Read;
using samples::SampleLines;

using Texts = std::vector<std::string>;

TEST(ControlFile, GivesAllValuesByTheirKeys) {
    const host::ControlFile expected = {
        {"OutFolder", "D:\\Handover\\Cover"},
        {"MapFile", " "},
        {"SolverType", "0"},
        {"ProjectType", "6"},
        {"QuadraticElement", "1"},
        {"IDCompositeModel", "1"},
        {"SolverName", "MSCNASTRAN"},
        {"IsOriginalMesh", "0"},
        {"IsDeformedMesh", "1"},
        {"IsMappedMesh", "0"},
        {"Is3DMappingShell", "0"},
        {"IsDistributeModel", "0"},
        {"IsViewEditModelMapping", "1"},
        {"IsDoMaterialReduction", "1"},
        {"IsRunnerOutput", "0"},
        {"DigimatOutput", "1"},
        {"IsDensityOutput", "1"},
        {"IsWeldlineOutput", "0"},
        {"DigimatWeldlineOutput", "0"},
        {"DigimatFiberOutput", "1"},
        {"DigimatStressOutput", "0"},
        {"DigimatTemperatureOutput", "0"},
        {"IsDoDensityReduction", "1"},
        {"[MAP DOMAIN] SegmentX", "80"},
        {"[MAP DOMAIN] SegmentY", "70"},
        {"[MAP DOMAIN] SegmentZ", "60"},
        {"[MATERIAL REDUCTION] FiberThetaXSegment", "15"},
        {"[MATERIAL REDUCTION] FiberThetaYSegment", "15"},
        {"[MATERIAL REDUCTION] FiberThetaZSegment", "15"},
        {"[MATERIAL REDUCTION] FiberStrengthXSegment", "10"},
        {"[MATERIAL REDUCTION] FiberStrengthYSegment", "3"},
        {"[PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment", "8"},
        {"[PARTINSERT MATERIAL REDUCTION] FiberThetaYSegment", "8"},
        {"[PARTINSERT MATERIAL REDUCTION] FiberThetaZSegment", "8"},
        {"[PARTINSERT MATERIAL REDUCTION] FiberStrengthXSegment", "5"},
        {"[PARTINSERT MATERIAL REDUCTION] FiberStrengthYSegment", "2"},
        {"[DENSITY REDUCTION] DensityReduction", "4"},
        {"[WELDLINE ANGLE] WeldlineAngle2", "30.000"},
        {"[WELDLINE ANGLE] WeldlineAngle3", "60.000"},
        {"[WELDLINE ANGLE] WeldlineAngle4", "90.500"},
        {"[DIGIMAT WELDLINE ANGLE] WeldlineAngle", "135.000"},
        {"[REDUCTION RATE] ReductionRate1", "0.800"},
        {"[REDUCTION RATE] ReductionRate2", "0.900"},
        {"[REDUCTION RATE] ReductionRate3", "0.950"},
    };
    EXPECT_EQ(expected, host::ReadControlFile("sample.cmi", Joined(SampleLines())));
}

TEST(ControlFile, FaultsCarryTheFileAndTheExitCode) {
    const auto faults = Read("").faults;
    ASSERT_EQ(1U, faults.size());
    EXPECT_EQ("sample.cmi", faults[0].place.file);
    EXPECT_EQ(0U, faults[0].place.column);
    EXPECT_EQ(host::ExitCode::notAvailable, faults[0].code);
}

// ---- Line ends, and texts that are no control files ---------------------------------------------

TEST(ControlFile, LineEndsOfWindowsAreNoFault) {
    EXPECT_EQ(Texts{}, FaultsOf(Joined(SampleLines(), "\r\n")));
}

TEST(ControlFile, LineEndsOfWindowsAreNoPartOfAPath) {
    const std::string text = Joined(SampleLines(), "\r\n");
    EXPECT_EQ("D:\\Handover\\Cover", host::ReadControlFile("sample.cmi", text).at("OutFolder"));
}

TEST(ControlFile, MissingLastLineEndIsAFault) {
    std::string text = Joined(SampleLines());
    text.pop_back();
    EXPECT_EQ(Texts{At("[\\REDUCTION RATE]",
                       "the file ends in the middle of this line: there is no line ending")},
              FaultsOf(text));
}

TEST(ControlFile, FileCutOffWithinALineTellsWhereItEndsOnce) {
    const std::string text = Joined(SampleLines());
    EXPECT_EQ(Texts{At("ReductionRate2",
                       "the file ends in the middle of this line: there is no line ending")},
              FaultsOf(text.substr(0, text.find("ReductionRate2 = 0.") + 19)));
    EXPECT_EQ(Texts{At("[MAP DOMAIN]",
                       "the file ends in the middle of this line: there is no line ending")},
              FaultsOf(text.substr(0, text.find("[MAP DOMAIN]") + 4)));
}

TEST(ControlFile, FileCutOffAnywhereHasOneFault) {
    const std::string text = Joined(SampleLines());
    const std::size_t firstLine = text.find('\n');
    for (std::size_t length = firstLine; length < text.size(); ++length) {
        ASSERT_EQ(1U, FaultsOf(text.substr(0, length)).size()) << length;
    }
}

TEST(ControlFile, MixedLineEndsAreAFaultOfTheFirstLineThatDiffers) {
    std::string text = Joined(SampleLines());
    text.insert(text.find("SegmentY") - 1, "\r");
    EXPECT_EQ(Texts{At("SegmentX", "this line ends in CR LF, but those above end in LF")},
              FaultsOf(text));
    text = Joined(SampleLines(), "\r\n");
    text.erase(text.find("SegmentY") - 2, 1);
    EXPECT_EQ(Texts{At("SegmentX", "this line ends in LF, but those above end in CR LF")},
              FaultsOf(text));
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
    for (const char character : Joined(SampleLines())) {
        (wide += character) += '\0';
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
        faults[0], [](char byte) { return static_cast<unsigned char>(byte) < 0x20; }));
    EXPECT_LT(faults[0].size(), 400U);
}

TEST(ControlFile, OneHugeLineGivesShortFaults) {
    std::string text = Joined(SampleLines());
    text.resize(10'000'000, 'x');
    const Texts faults = FaultsOf(text + '\n');
    ASSERT_EQ(1U, faults.size());
    EXPECT_EQ(At(endOfFile, '"' + std::string(160, 'x') + "...\" does not belong here"), faults[0]);
}

TEST(ControlFile, AHugeNumberIsAFaultAsAnyOther) {
    Lines lines = SampleLines();
    lines[LineOf("WeldlineAngle2") - 1] = "WeldlineAngle2 = " + std::string(200'000, '1') + ".000";
    lines[LineOf("WeldlineAngle3") - 1] = "WeldlineAngle3 = inf";
    EXPECT_EQ(
        (Texts{
            At("WeldlineAngle2", R"(expected a line like "WeldlineAngle2 = 0.000", found )"
                                 R"("WeldlineAngle2 = )" +
                                     std::string(160 - 17, '1') + "...\""),
            At("WeldlineAngle3",
               R"(expected a line like "WeldlineAngle3 = 0.000", found "WeldlineAngle3 = inf")")}),
        FaultsOf(Joined(lines)));
}

TEST(ControlFile, SectionsWithoutTheirTagsDoNotMixTheirKeys) {
    const std::string closing = "[\\MATERIAL REDUCTION]";
    const std::string opening = "[PARTINSERT MATERIAL REDUCTION]";
    Lines lines = SampleLines();
    lines[LineOf(closing) - 1] = "#";
    lines[LineOf(opening) - 1] = "#";
    EXPECT_EQ((Texts{At(closing, R"(expected "[\MATERIAL REDUCTION] " (with a space at its end), )"
                                 R"(found "#")"),
                     At(opening, R"(expected "[PARTINSERT MATERIAL REDUCTION]", found "#")")}),
              FaultsOf(Joined(lines)));
}

TEST(ControlFile, NoMoreThanTwentyFaultsAreListed) {
    const Texts faults = FaultsOf(Joined(SampleLines()) + std::string(100'000, '\n'));
    ASSERT_EQ(21U, faults.size());
    EXPECT_EQ(At(endOfFile, "an empty line does not belong here"), faults[0]);
    EXPECT_EQ(At(endOfFile, 19, "an empty line does not belong here"), faults[19]);
    EXPECT_EQ(At(endOfFile, 19, "more errors follow"), faults[20]);
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

std::uint32_t NumberOfLine(const host::Problem& fault) {
    return fault.place.line;
}

TEST(ControlFile, RandomDamageGivesFewFaultsWithinTheFile) {
    std::seed_seq seed{9064};
    std::mt19937 random(seed);
    const std::string sample = Joined(SampleLines());
    for (int round = 0; round < 3000; ++round) {
        const std::string text = Mutated(sample, random);
        const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
        const auto faults = samples::FoundIn(text);
        ASSERT_LE(faults.size(), 21U) << text;
        for (const host::Problem& fault : faults) {
            ASSERT_GE(fault.place.line, 1U) << text;
            ASSERT_LE(fault.place.line, lines) << text;
            ASSERT_FALSE(fault.message.empty()) << text;
        }
        ASSERT_TRUE(std::ranges::is_sorted(faults, {}, NumberOfLine)) << text;
    }
}

TEST(ControlFile, EveryChangedByteIsFoundOnItsLine) {
    const std::string sample = Joined(SampleLines());
    const std::size_t pathLine = LineOf("OutFolder");
    std::size_t line = 1;
    for (std::size_t place = 0; place < sample.size(); ++place) {
        std::string text = sample;
        text[place] = '\x01';
        const bool isFreeText = line == pathLine && place >= sample.find("D:\\Handover");
        if (sample[place] != '\n' && !isFreeText) {
            const auto faults = Read(text).faults;
            ASSERT_EQ(1U, faults.size()) << text;
            ASSERT_EQ(line, faults[0].place.line) << text;
        }
        line += sample[place] == '\n' ? 1 : 0;
    }
}

TEST(ControlFile, NumbersArePrintedWithThreeDecimals) {
    EXPECT_EQ("30.001", host::Printed(30.0006));
    EXPECT_EQ("0.000", host::Printed(0.0));
    EXPECT_EQ("-0.500", host::Printed(-0.5));
    EXPECT_EQ(313U, host::Printed(std::numeric_limits<double>::max()).size());
}

}  // namespace
