// Every availability check in every situation that it can tell apart, against the expected tables.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <limits>

#include <zorbi2/ZorbI2Types.h>

#include "tests/results/ExpectedChecks.h"
#include "tests/results/WatchedRun.h"

namespace {

using expected::Situation;

constexpr std::array<std::int32_t, 4> solverTypes = {kSolidProject, kShellProject, 2, -1};
constexpr std::array<std::int32_t, 4> voxelFlags = {0, 1, 2, 257};
constexpr unsigned flagCombinations = 1U << expected::factFlags.size();

/// What the engine does and leaves behind, in the form of expected::Transcript.
std::vector<std::string> EngineTranscript(std::int32_t itemId, const Situation& situation) {
    WatchedRun run;
    run.info = situation.info;
    run.platform.existing = expected::ExistingPaths(situation);
    run.platform.unwritable = situation.unwritableFiles;
    run.reader.beginResult = situation.beginResult;
    run.reader.version = situation.version;
    run.flagPrevShot = situation.flagPrevShot;
    run.valueShotRunID = situation.valueShotRunID;
    if (situation.hasShotFile) {
        run.platform.readable[expected::ShotFilePath(situation)] = situation.shotFile;
    }
    const std::int32_t code = run.Check(itemId);
    std::vector<std::string> transcript = run.Events();
    for (const auto& [path, content] : run.platform.written) {
        transcript.push_back("left in " + path + ": " + content);
    }
    transcript.push_back("folder " + run.info.projectFolder);
    transcript.push_back("flagPrevShot " + std::to_string(run.flagPrevShot));
    transcript.push_back("valueShotRunID " + std::to_string(run.valueShotRunID));
    transcript.push_back("code " + std::to_string(code));
    return transcript;
}

void ExpectAsRuled(std::int32_t itemId, const Situation& situation) {
    ASSERT_EQ(EngineTranscript(itemId, situation), expected::Transcript(itemId, situation))
        << expected::Described(situation);
}

void SetFlags(Situation& situation, unsigned combination) {
    for (std::size_t i = 0; i < expected::factFlags.size(); ++i) {
        situation.info.flags[expected::factFlags[i]] = (combination >> i) & 1U;
    }
}

std::string InUpperCase(std::string extension) {
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char character) { return static_cast<char>(std::toupper(character)); });
    return extension;
}

/// Every choice among the files of the extensions.
std::vector<std::set<std::string>> FileChoices(const std::set<std::string>& extensions) {
    std::vector<std::set<std::string>> choices = {{}};
    for (const std::string& extension : extensions) {
        const std::vector<std::set<std::string>> without = choices;
        for (std::set<std::string> choice : without) {
            choice.insert(extension);
            choices.push_back(choice);
        }
    }
    return choices;
}

/// The extensions in upper case: what is looked for after each file, without effect.
std::set<std::string> SecondLooks(const std::set<std::string>& extensions) {
    std::set<std::string> upper;
    for (const std::string& extension : extensions) {
        upper.insert(InUpperCase(extension));
    }
    return upper;
}

/// Runs the check with all flags and all of the files that it may look for, and with all or none
/// of those that must not count.
void ExpectAsRuledWithAllFilesAndFlags(std::int32_t itemId, Situation situation) {
    const std::set<std::string> extensions =
        expected::ExtensionsLookedFor(itemId, situation.info.solverType);
    // A set, since a check that looks for no file has no second looks either.
    const std::set<std::set<std::string>> allOrNone = {{}, SecondLooks(extensions)};
    for (const std::set<std::string>& secondLooks : allOrNone) {
        for (const std::set<std::string>& files : FileChoices(extensions)) {
            situation.files = files;
            situation.files.insert(secondLooks.begin(), secondLooks.end());
            for (unsigned flags = 0; flags < flagCombinations; ++flags) {
                SetFlags(situation, flags);
                ASSERT_NO_FATAL_FAILURE(ExpectAsRuled(itemId, situation));
            }
        }
    }
}

/// Runs the check with every choice among the files that it may look for, those that must not
/// count included, and with all flags as they are.
void ExpectAsRuledWithAllFiles(std::int32_t itemId, Situation situation) {
    std::set<std::string> extensions =
        expected::ExtensionsLookedFor(itemId, situation.info.solverType);
    extensions.merge(SecondLooks(extensions));
    for (const std::set<std::string>& files : FileChoices(extensions)) {
        situation.files = files;
        ASSERT_NO_FATAL_FAILURE(ExpectAsRuled(itemId, situation));
    }
}

struct ReaderOutcome {
    int beginResult;
    long long version;
};

/// Only a check of a solid project's fiber orientation asks the reader.
std::vector<ReaderOutcome> ReaderOutcomes(std::int32_t itemId, std::int32_t solverType) {
    if ((itemId != kItemFiberOrientation && itemId != kItemMicroMechanics) ||
        solverType != kSolidProject) {
        return {{0, 1004}};
    }
    return {{0, 1003}, {0, 1004}, {0, 1005}, {0, -1}, {1, 1003}, {1, 1004}, {1, 1005}, {-1, 1004}};
}

/// Only the check of a solid project's packing temperature asks for the project type.
std::vector<std::int32_t> ProjectTypes(std::int32_t itemId, std::int32_t solverType) {
    if (itemId != kItemPackingTemperature || solverType != kSolidProject) {
        return {0};
    }
    return {0, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 260};
}

class EveryResultCheck : public testing::TestWithParam<std::int32_t> {};

std::string ItemName(const testing::TestParamInfo<std::int32_t>& item) {
    return "Item" + std::to_string(item.param);
}

}  // namespace

TEST_P(EveryResultCheck, AnswersAndActsAsRuled) {
    for (const std::int32_t solverType : solverTypes) {
        for (const std::int32_t voxelFlag : voxelFlags) {
            for (const std::int32_t projectType : ProjectTypes(GetParam(), solverType)) {
                for (const ReaderOutcome& outcome : ReaderOutcomes(GetParam(), solverType)) {
                    Situation situation;
                    situation.info.solverType = solverType;
                    situation.info.voxelFlag = voxelFlag;
                    situation.info.projectType = projectType;
                    situation.beginResult = outcome.beginResult;
                    situation.version = outcome.version;
                    ASSERT_NO_FATAL_FAILURE(
                        ExpectAsRuledWithAllFilesAndFlags(GetParam(), situation));
                }
            }
        }
    }
}

TEST_P(EveryResultCheck, NormalizesTheFolderWithTheFirstFileTestOnly) {
    for (const std::int32_t solverType : solverTypes) {
        Situation situation;
        situation.info.projectFolder = "D:\\Proj\\Run03";
        situation.info.solverType = solverType;
        ASSERT_NO_FATAL_FAILURE(ExpectAsRuledWithAllFiles(GetParam(), situation));
    }
}

TEST_P(EveryResultCheck, ReadsNoOtherFlagAndNoCarriedField) {
    for (const std::int32_t solverType : solverTypes) {
        Situation situation;
        std::fill(std::begin(situation.info.flags), std::end(situation.info.flags), 1);
        situation.info.text3 = "D:\\Elsewhere\\";
        situation.info.text4 = ".k5o";
        situation.info.value5 = 1;
        situation.info.value9 = 1;
        situation.info.projectType = 6;
        situation.info.solverType = solverType;
        ASSERT_NO_FATAL_FAILURE(ExpectAsRuledWithAllFiles(GetParam(), situation));
    }
}

TEST_P(EveryResultCheck, TakesAnyFlagByteButZeroForYes) {
    for (const std::int32_t solverType : solverTypes) {
        for (const std::size_t position : expected::factFlags) {
            for (const unsigned char value : std::array<unsigned char, 3>{2, 128, 255}) {
                Situation situation;
                situation.info.solverType = solverType;
                situation.info.flags[position] = value;
                for (const bool hasFiles : {false, true}) {
                    if (hasFiles) {
                        situation.files = expected::ExtensionsLookedFor(GetParam(), solverType);
                    }
                    ASSERT_NO_FATAL_FAILURE(ExpectAsRuled(GetParam(), situation));
                }
            }
        }
    }
}

TEST_P(EveryResultCheck, GoesOnWithoutDebugFilesThatCannotBeCreated) {
    for (const std::int32_t solverType : solverTypes) {
        Situation situation;
        situation.info.solverType = solverType;
        situation.unwritableFiles = {"ThermalTest.txt", "ShellIniStrain.txt"};
        ASSERT_NO_FATAL_FAILURE(ExpectAsRuledWithAllFiles(GetParam(), situation));
    }
}

INSTANTIATE_TEST_SUITE_P(All, EveryResultCheck, testing::Range<std::int32_t>(0, kItemCount),
                         ItemName);

TEST(EveryPreviousShotCheck, AnswersAndActsAsRuled) {
    struct ShotFile {
        const char* content;  // null: there is none
        std::int32_t flagBefore, runBefore;
        std::int32_t flagAfter, runAfter;
        const char* previousRunTag;
    };
    // clang-format off
    const std::vector<ShotFile> shotFiles = {
        {nullptr, 0, 0,   0, 0,  "00"},
        {nullptr, 1, 12,  1, 12, "12"},
        {nullptr, 2, 12,  2, 12, "12"},
        {"",      1, 2,   1, 2,  "02"},
        {"<SOLID_MCM>\nFlagPrevShot=1\nValueShotRunID=2\n</SOLID_MCM>\n",   0, 0,   1, 2,   "02"},
        {"<SOLID_MCM>\nFlagPrevShot=0\nValueShotRunID=2\n</SOLID_MCM>\n",   1, 9,   0, 2,   "02"},
        {"<SOLID_MCM>\nFlagPrevShot=2\nValueShotRunID=2\n</SOLID_MCM>\n",   1, 9,   2, 2,   "02"},
        {"<SOLID_MCM>\nFlagPrevShot=257\nValueShotRunID=2\n</SOLID_MCM>\n", 1, 9,   257, 2, "02"},
        {"<SOLID_MCM>\nFlagPrevShot=1\n</SOLID_MCM>\n",                     0, 10,  1, 10,  "10"},
        {"<SOLID_MCM>\nValueShotRunID=-1\n</SOLID_MCM>\n",                  1, 10,  1, -1,  "0-1"},
        {"<SOLID_MCM>\nValueShotRunID=123\n</SOLID_MCM>\n",                 0, 10,  0, 123, "123"},
    };
    // clang-format on
    for (const ShotFile& shotFile : shotFiles) {
        Situation situation;
        situation.hasShotFile = shotFile.content != nullptr;
        situation.shotFile = situation.hasShotFile ? shotFile.content : "";
        situation.flagPrevShot = shotFile.flagBefore;
        situation.valueShotRunID = shotFile.runBefore;
        situation.flagPrevShotAfter = shotFile.flagAfter;
        situation.valueShotRunIDAfter = shotFile.runAfter;
        situation.previousRunTag = shotFile.previousRunTag;
        for (const std::int32_t solverType : solverTypes) {
            situation.info.solverType = solverType;
            for (const std::int32_t voxelFlag : voxelFlags) {
                situation.info.voxelFlag = voxelFlag;
                for (const bool hasK5o : {false, true}) {
                    situation.previousRunHasK5o = hasK5o;
                    situation.info.projectFolder = "D:\\Proj\\Run03\\";
                    ASSERT_NO_FATAL_FAILURE(
                        ExpectAsRuledWithAllFilesAndFlags(kItemInsertFiberMaterial, situation));
                    situation.info.projectFolder = "D:\\Proj\\Run03";
                    ASSERT_NO_FATAL_FAILURE(ExpectAsRuled(kItemInsertFiberMaterial, situation));
                }
            }
        }
    }
}

TEST(ItemWithoutCheck, GivesTheFixedCodeAndTouchesNothing) {
    constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
    for (const std::int32_t itemId : {kItemDigimatMucell, -1, -11, -21, kItemCount, kItemCount + 1,
                                      256, 260, 65536, largest, smallest, smallest + 4}) {
        for (const std::int32_t solverType : solverTypes) {
            WatchedRun run;
            run.info.projectFolder = "D:\\Proj\\Run03";
            run.info.solverType = solverType;
            std::fill(std::begin(run.info.flags), std::end(run.info.flags), 1);
            EXPECT_EQ(run.Check(itemId), kResultNoCheck) << itemId;
            EXPECT_EQ(run.Events(), std::vector<std::string>{}) << itemId;
            EXPECT_EQ(run.info.projectFolder, "D:\\Proj\\Run03") << itemId;
        }
    }
}
