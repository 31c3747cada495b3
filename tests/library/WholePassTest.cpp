// Whole passes through the real library, as the host's dialog makes them.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "tests/library/HostSystem.h"
#include "tests/library/LibraryProject.h"
#include "tests/library/ScratchFolder.h"
#include "tests/library/installed_host/WholePass.h"

namespace {

using library_tests::AddFile;
using library_tests::BytesOf;
using library_tests::ScratchFolder;

const std::string runFolder = "Projects\\Cover\\Run03";

void AddResults() {
    for (const char* name :
         {"03.o2w", "03.rsf", "03.k5w", "03.k5f", "03.k5p", "03.k5c", "03_medi.crp"}) {
        AddFile(std::string("Projects/Cover/Run03/Cover") + name);
    }
}

void AddPreviousShot() {
    AddFile("Projects/Cover/Run03/Cover03.cmx",
            "<SOLID_MCM>\r\nFlagPrevShot = 1\r\nValueShotRunID = 2\r\n</SOLID_MCM>\r\n");
    AddFile("Projects/Cover/Run02/Cover02.k5o");
}

/// The golden file with the line ends of this system.
std::string ExpectedControlFile() {
    std::string expected;
    for (const char byte : BytesOf(ZORBI2_LIBRARY_TEST_DATA "/ControlFile.golden")) {
        expected += byte == '\n' ? host_system::lineEnd : std::string(1, byte);
    }
    return expected;
}

TEST(WholePass, WritesTheControlFileByteForByte) {
    const ScratchFolder folder;
    AddResults();
    AddPreviousShot();

    EXPECT_TRUE(whole_pass::WriteControlFile(whole_pass::Project(runFolder), "."));

    EXPECT_EQ(BytesOf("Cover03.cmi"), ExpectedControlFile());
}

TEST(WholePass, GivesTheSameFileEachTime) {
    constexpr int passes = 100;  // each leaves a shot file open
    const ScratchFolder folder;
    AddResults();
    AddPreviousShot();
    const std::string expected = ExpectedControlFile();
    for (int pass = 0; pass < passes; ++pass) {
        whole_pass::WriteControlFile(whole_pass::Project(runFolder), ".");
        ASSERT_EQ(BytesOf("Cover03.cmi"), expected) << pass;
    }
}

TEST(WholePass, LeavesNoMemoryBehind) {
    constexpr std::size_t passes = 300;
    constexpr std::size_t smallestBlock = 16;
    const ScratchFolder folder;
    AddResults();  // without a shot file, which would stay open
    const auto pass = [] { whole_pass::WriteControlFile(whole_pass::Project(runFolder), "."); };
    pass();
    pass();

    const std::size_t before = host_system::HeapBytesInUse();
    for (std::size_t i = 0; i < passes; ++i) {
        pass();
    }
    const std::size_t after = host_system::HeapBytesInUse();

    EXPECT_LT(after, before + passes * smallestBlock);
}

TEST(WholePass, EverySolverAndMeshKindWritesItsOwnFile) {
    const char* const keywords[kSolverCount] = {"ANSYS",     "ABAQUS",  "MSCNASTRAN",
                                                "NENASTRAN", "LSDYNA",  "MARC",
                                                "NXNASTRAN", "RADIOSS", "WORKBENCH"};
    const ScratchFolder folder;
    AddResults();
    CZorbFEAInformation project = whole_pass::Project(runFolder);
    CZorbI2EngineManager manager;
    manager.CreateEngine(&project);
    manager.CreateCMIDataBlock();
    manager.CreateCMIAccess();
    manager.SetCMIFileFullPath(".", "Cover", 3, "cmi");
    for (int solver = 0; solver < kSolverCount; ++solver) {
        for (int meshKind = 0; meshKind < 4; ++meshKind) {
            manager.SetEngineCurrentStatus(solver, meshKind, 0, 0);
            manager.SetPopItems();
            manager.SetItemsValue();
            manager.WriteCMIFile(0);
            const std::string text = BytesOf("Cover03.cmi");
            EXPECT_NE(text.find(std::string("[") + keywords[solver] + "_EOF]"), std::string::npos)
                << solver << " " << meshKind;
        }
    }
}

TEST(WholePass, TwoManagersDoNotMeet) {
    const ScratchFolder folder;
    AddResults();
    AddPreviousShot();
    CZorbFEAInformation other = library_tests::SolidProject("Elsewhere");
    CZorbI2EngineManager manager;
    manager.CreateEngine(&other);

    EXPECT_TRUE(whole_pass::WriteControlFile(whole_pass::Project(runFolder), "."));

    EXPECT_EQ(BytesOf("Cover03.cmi"), ExpectedControlFile());
    EXPECT_EQ(manager.GetProjectResults(3), -7);
}

}  // namespace
