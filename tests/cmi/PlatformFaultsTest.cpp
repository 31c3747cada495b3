// What a whole pass does when the system's file calls fail: the answers stay the same, and every
// file that was opened is closed.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2EngineManager.h>
#include <zorbi2/CZorbI2Item.h>
#include <zorbi2/ZorbI2Types.h>

#include "platform/PlatformCalls.h"
#include "tests/support/SampleProject.h"
#include "tests/support/WatchedPlatform.h"

namespace {

/// Which of the runtime's calls fails in a pass, and for files whose path ends so.
struct Fault {
    enum class Call { open, write, close };

    const char* name;
    Call call;
    const char* pathEnd;
};

std::ostream& operator<<(std::ostream& stream, const Fault& fault) {
    return stream << fault.name;
}

/// Replaces calls by failing ones. Must not outlive the watched platform that it is put on.
class FaultyCalls {
public:
    explicit FaultyCalls(const Fault& fault) : fault_(fault), calls_(platform::CurrentCalls()) {
        current_ = this;
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

    int failures = 0;

private:
    bool Fails(Fault::Call call, const std::string& path) {
        const std::string end = fault_.pathEnd;
        const bool isFaulty = call == fault_.call && path.size() >= end.size() &&
                              path.compare(path.size() - end.size(), end.size(), end) == 0;
        failures += isFaulty ? 1 : 0;
        return isFaulty;
    }

    static std::FILE* Open(const char* path, const char* mode) {
        if (current_->Fails(Fault::Call::open, path)) {
            return nullptr;
        }
        std::FILE* file = current_->calls_.openFile(path, mode);
        current_->openedLast_ = path;
        return file;
    }

    // The engine has one file at a time to write to, so it is the one opened last.
    static int Write(const char* text, std::FILE* file) {
        return current_->Fails(Fault::Call::write, current_->openedLast_)
                   ? EOF
                   : current_->calls_.writeText(text, file);
    }

    // A failing fclose closes the stream all the same.
    static int Close(std::FILE* file) {
        const int result = current_->calls_.closeFile(file);
        return current_->Fails(Fault::Call::close, current_->openedLast_) ? EOF : result;
    }

    static inline FaultyCalls* current_ = nullptr;
    Fault fault_;
    platform::Calls calls_;
    std::string openedLast_;
};

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
        const FaultyCalls faulty(GetParam());
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
        const FaultyCalls faulty(GetParam());
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
    testing::Values(Fault{"OpeningTheControlFile", Fault::Call::open, ".cmi"},
                    Fault{"WritingTheControlFile", Fault::Call::write, ".cmi"},
                    Fault{"ClosingTheControlFile", Fault::Call::close, ".cmi"},
                    Fault{"OpeningTheThermalDebugFile", Fault::Call::open, "ThermalTest.txt"},
                    Fault{"WritingTheThermalDebugFile", Fault::Call::write, "ThermalTest.txt"},
                    Fault{"ClosingTheThermalDebugFile", Fault::Call::close, "ThermalTest.txt"},
                    Fault{"OpeningTheStrainDebugFile", Fault::Call::open, "ShellIniStrain.txt"},
                    Fault{"WritingTheStrainDebugFile", Fault::Call::write, "ShellIniStrain.txt"},
                    Fault{"ClosingTheStrainDebugFile", Fault::Call::close, "ShellIniStrain.txt"},
                    Fault{"OpeningTheShotFile", Fault::Call::open, ".cmx"}),
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
