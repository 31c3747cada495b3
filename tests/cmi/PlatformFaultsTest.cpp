// What a whole pass does when the system's file calls fail: the answers stay the same, and every
// file that was opened is closed.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <zorbi2/CZorbI2EngineManager.h>
#include <zorbi2/CZorbI2Item.h>
#include <zorbi2/ZorbI2Types.h>

#include "platform/PlatformCalls.h"
#include "tests/support/SampleProject.h"
#include "tests/support/WatchedPlatform.h"

namespace {

/// The runtime's calls that can fail.
enum class Call { exists, open, write, close };

/// Replaces calls by such that may fail. Must not outlive the watched platform that it is put on.
class FaultyCalls {
public:
    /// Whether a call fails that is about the file.
    using Fails = std::function<bool(Call call, const std::string& path)>;

    explicit FaultyCalls(Fails fails) : fails_(std::move(fails)), calls_(platform::CurrentCalls()) {
        current_ = this;
        platform::CurrentCalls().pathExists = Exists;
        platform::CurrentCalls().openFile = Open;
        platform::CurrentCalls().writeText = Write;
        platform::CurrentCalls().closeFile = Close;
    }
    ~FaultyCalls() {
        platform::CurrentCalls() = calls_;
        current_ = nullptr;
    }
    FaultyCalls(const FaultyCalls&) = delete;
    FaultyCalls& operator=(const FaultyCalls&) = delete;

    /// How many calls failed.
    int failures = 0;
    std::map<Call, int> failuresOf;

private:
    static bool Fail(Call call, const std::string& path) {
        const bool fails = current_->fails_(call, path);
        current_->failures += fails ? 1 : 0;
        current_->failuresOf[call] += fails ? 1 : 0;
        return fails;
    }

    static bool Exists(const char* path) {
        return !Fail(Call::exists, path) && current_->calls_.pathExists(path);
    }

    static std::FILE* Open(const char* path, const char* mode) {
        if (Fail(Call::open, path)) {
            return nullptr;
        }
        std::FILE* file = current_->calls_.openFile(path, mode);
        current_->openedLast_ = path;
        return file;
    }

    // The engine has one file at a time to write to, so it is the one opened last.
    static int Write(const char* text, std::FILE* file) {
        return Fail(Call::write, current_->openedLast_) ? EOF
                                                        : current_->calls_.writeText(text, file);
    }

    // A failing fclose closes the stream all the same.
    static int Close(std::FILE* file) {
        const int result = current_->calls_.closeFile(file);
        return Fail(Call::close, current_->openedLast_) ? EOF : result;
    }

    static inline FaultyCalls* current_ = nullptr;
    Fails fails_;
    platform::Calls calls_;
    std::string openedLast_;
};

/// One fault: the call fails for files whose path ends so.
struct Fault {
    const char* name;
    Call call;
    const char* pathEnd;

    bool Hits(Call otherCall, const std::string& path) const {
        const std::string end = pathEnd;
        return call == otherCall && path.size() >= end.size() &&
               path.compare(path.size() - end.size(), end.size(), end) == 0;
    }
};

std::ostream& operator<<(std::ostream& stream, const Fault& fault) {
    return stream << fault.name;
}

FaultyCalls::Fails Only(const Fault& fault) {
    return [fault](Call call, const std::string& path) { return fault.Hits(call, path); };
}

/// Paths that were opened and not closed, in order.
std::vector<std::string> LeftOpen(const support::WatchedPlatform& files) {
    std::vector<std::string> open;
    for (const std::string& path : files.EventsOf("open")) {
        open.push_back(path.substr(path.find(' ') + 1));
    }
    for (const std::string& path : files.EventsOf("close")) {
        open.erase(std::find(open.begin(), open.end(), path));
    }
    return open;
}

const std::string shotFile = "D:\\Proj\\Run03\\Cover03.cmx";
const std::string controlFile = "D:\\Out\\Cover03.cmi";

/// From the record to the written file.
void MakeWholePass(CZorbI2EngineManager& manager, int solverType) {
    CZorbFEAInformation record = support::CompleteProject(solverType);
    EXPECT_TRUE(manager.CreateEngine(&record));
    EXPECT_TRUE(manager.CreateCMIDataBlock());
    EXPECT_TRUE(manager.CreateCMIAccess());
    manager.SetCMIFileFullPath("D:\\Out", "Cover", 3, "cmi");
    manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    manager.SetPopItems();
    EXPECT_TRUE(manager.HasPopItem());
    EXPECT_TRUE(manager.WriteCMIFile(0));
}

class FaultyPlatform : public testing::TestWithParam<Fault> {
protected:
    FaultyPlatform() {
        files.existing.insert("D:\\Proj\\Run03\\Cover03.rsg");
        files.existing.insert("D:\\Proj\\Run02\\Cover02.k5o");
        files.readable[shotFile] =
            "<SOLID_MCM>\nFlagPrevShot = 1\nValueShotRunID = 2\n</SOLID_MCM>\n";
    }

    /// A whole pass for a shell project: it looks for the results of all items, writes both debug
    /// files, reads the shot file and writes the control file.
    void WholePass() { MakeWholePass(manager, kShellProject); }

    support::WatchedPlatform files;
    CZorbI2EngineManager manager;
};

}  // namespace

TEST_P(FaultyPlatform, ChangesNoAnswerAndLeaksNoFile) {
    {
        const FaultyCalls faulty(Only(GetParam()));
        WholePass();
        EXPECT_EQ(faulty.failures, 1);
    }
    const bool hasShotFile = GetParam().pathEnd != std::string(".cmx");
    CZorbI2Item item;
    EXPECT_TRUE(manager.GetItem(kCategoryPart, kItemThermalStress, &item));
    EXPECT_EQ(item.options.at(kOptionResultsMissing), "No file *.k5w");
    EXPECT_TRUE(manager.GetItem(kCategoryPart, kItemInitialStrain, &item));
    EXPECT_TRUE(item.isAvailable);
    EXPECT_TRUE(manager.GetItem(kCategoryPartInsert, kItemInsertFiberMaterial, &item));
    EXPECT_EQ(item.isAvailable, hasShotFile);
    // The shot file is deliberately left open; nothing else is.
    EXPECT_EQ(LeftOpen(files), std::vector<std::string>(hasShotFile ? 1 : 0, shotFile));
}

TEST_P(FaultyPlatform, LeavesAnEngineThatWritesTheFileOnceTheFaultIsGone) {
    {
        const FaultyCalls faulty(Only(GetParam()));
        WholePass();
    }
    files.written.clear();
    EXPECT_TRUE(manager.WriteCMIFile(0));
    const std::string text = files.written[controlFile];
    EXPECT_EQ(text.rfind("I2-Output Control Parameter File\n", 0), 0U);
    EXPECT_NE(text.find("[\\REDUCTION RATE]\n"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    PlatformFaults, FaultyPlatform,
    testing::Values(Fault{"OpeningTheControlFile", Call::open, ".cmi"},
                    Fault{"WritingTheControlFile", Call::write, ".cmi"},
                    Fault{"ClosingTheControlFile", Call::close, ".cmi"},
                    Fault{"OpeningTheThermalDebugFile", Call::open, "ThermalTest.txt"},
                    Fault{"WritingTheThermalDebugFile", Call::write, "ThermalTest.txt"},
                    Fault{"ClosingTheThermalDebugFile", Call::close, "ThermalTest.txt"},
                    Fault{"OpeningTheStrainDebugFile", Call::open, "ShellIniStrain.txt"},
                    Fault{"WritingTheStrainDebugFile", Call::write, "ShellIniStrain.txt"},
                    Fault{"ClosingTheStrainDebugFile", Call::close, "ShellIniStrain.txt"},
                    Fault{"OpeningTheShotFile", Call::open, ".cmx"}),
    [](const auto& row) { return row.param.name; });

TEST(PlatformFaults, AllCallsFailingTogetherChangeNoAnswer) {
    support::WatchedPlatform files;
    platform::CurrentCalls().pathExists = [](const char*) { return false; };
    platform::CurrentCalls().openFile = [](const char*, const char*) -> std::FILE* {
        return nullptr;
    };
    CZorbI2EngineManager manager;
    MakeWholePass(manager, kSolidProject);
    EXPECT_EQ(manager.GetProjectResults(kItemThermalStress), kResultNoK5w);
    EXPECT_EQ(manager.GetProjectResults(kItemInsertFiberMaterial), kResultNoInsertFiberResults);
}

// ---- Each call of a pass in turn ----------------------------------------------------------------

namespace {

struct Tries {
    int solverType;
    bool isForGood;
};

/// Each item has its results, or says why not.
void ExpectSoundItems(CZorbI2EngineManager& manager) {
    for (int itemId = 0; itemId < kItemCount; ++itemId) {
        const CZorbI2Item& item = *manager.GetZorbI2Engine()->items[itemId];
        EXPECT_EQ(item.options.count(kOptionResultsMissing), item.isAvailable ? 0U : 1U) << itemId;
    }
}

std::string FileOfPass(support::WatchedPlatform& files, int solverType) {
    CZorbI2EngineManager manager;
    files.written.clear();
    MakeWholePass(manager, solverType);
    return files.written[controlFile];
}

class EachPlatformCall : public testing::TestWithParam<Tries> {};

}  // namespace

TEST_P(EachPlatformCall, FailsAndLeavesAFileThatIsWholeOrNone) {
    const Tries tries = GetParam();
    support::WatchedPlatform files;
    support::AddAllResults(files);
    const std::string whole = FileOfPass(files, tries.solverType);
    std::map<Call, int> failures;
    bool hasFailed = true;
    int number = 0;
    for (; hasFailed; ++number) {
        SCOPED_TRACE(number);
        files.events.clear();
        files.written.clear();
        CZorbI2EngineManager manager;
        {
            int count = 0;
            const FaultyCalls faulty([&](Call, const std::string&) {
                const int current = count++;
                return tries.isForGood ? current >= number : current == number;
            });
            MakeWholePass(manager, tries.solverType);
            hasFailed = faulty.failures != 0;
            for (const auto& [call, times] : faulty.failuresOf) {
                failures[call] += tries.isForGood ? 0 : times;
            }
        }
        ExpectSoundItems(manager);
        const std::vector<std::string> leftOpen = LeftOpen(files);
        EXPECT_TRUE(leftOpen.empty() || leftOpen == std::vector{shotFile});
        const std::string text = files.written[controlFile];
        EXPECT_TRUE(text.empty() || text.find("[\\REDUCTION RATE]\n") != std::string::npos);
        EXPECT_EQ(FileOfPass(files, tries.solverType), whole);
    }
    if (!tries.isForGood) {
        for (const Call call : {Call::exists, Call::open, Call::write, Call::close}) {
            EXPECT_GT(failures[call], 0);
        }
    }
    std::printf("%d calls of a pass failed %s\n", number - 1,
                tries.isForGood ? "for good" : "once");
}

INSTANTIATE_TEST_SUITE_P(PlatformFaults, EachPlatformCall,
                         testing::Values(Tries{kSolidProject, false}, Tries{kSolidProject, true},
                                         Tries{kShellProject, false}, Tries{kShellProject, true}),
                         [](const auto& row) {
                             return std::string(row.param.solverType == kSolidProject ? "Solid"
                                                                                      : "Shell") +
                                    (row.param.isForGood ? "ForGood" : "Once");
                         });
