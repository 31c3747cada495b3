// Whole passes through the real library, as the host's dialog makes them.
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>

#include <zorbi2/ZorbI2Types.h>

#include "tests/library/HostSystem.h"
#include "tests/library/LibraryProject.h"
#include "tests/library/ScratchFolder.h"
#include "tests/library/installed_host/WholePass.h"

namespace {

using library_tests::BytesOf;
using library_tests::ScratchFolder;

namespace fs = std::filesystem;

const std::string runFolder = "cover\\Run02";

void AddExample() {
    fs::copy(ZORBI2_EXAMPLE, "cover", fs::copy_options::recursive);
}

/// Without its shot file, which stays open after each reading.
void AddExampleWithoutShotFile() {
    AddExample();
    fs::remove("cover/Run02/Cover02.cmx");
}

/// The file that stands beside the example, with the line ends of this system.
std::string ExpectedControlFile() {
    std::string expected;
    for (const char byte : BytesOf("cover/expected/Cover02.cmi")) {
        expected += byte == '\n' ? host_system::lineEnd : std::string(1, byte);
    }
    return expected;
}

TEST(WholePass, WritesTheControlFileByteForByte) {
    const ScratchFolder folder;
    AddExample();

    EXPECT_TRUE(whole_pass::WriteControlFile(whole_pass::Project(runFolder), "."));

    EXPECT_EQ(BytesOf("Cover02.cmi"), ExpectedControlFile());
}

TEST(WholePass, GivesTheSameFileEachTime) {
    constexpr int passes = 100;  // each leaves a shot file open
    const ScratchFolder folder;
    AddExample();
    const std::string expected = ExpectedControlFile();
    for (int pass = 0; pass < passes; ++pass) {
        whole_pass::WriteControlFile(whole_pass::Project(runFolder), ".");
        ASSERT_EQ(BytesOf("Cover02.cmi"), expected) << pass;
    }
}

TEST(WholePass, LeavesNoMemoryBehind) {
    constexpr std::size_t passes = 300;
    constexpr std::size_t smallestBlock = 16;
    const ScratchFolder folder;
    AddExampleWithoutShotFile();
    const auto makePasses = [] {
        for (std::size_t i = 0; i < passes; ++i) {
            whole_pass::WriteControlFile(whole_pass::Project(runFolder), ".");
        }
    };
    makePasses();  // the runtime keeps memory of its own

    const std::size_t before = host_system::HeapBytesInUse();
    makePasses();
    const std::size_t after = host_system::HeapBytesInUse();

    EXPECT_LT(after, before + passes * smallestBlock);
}

TEST(WholePass, EverySolverAndMeshKindWritesItsOwnFile) {
    const ScratchFolder folder;
    AddExampleWithoutShotFile();
    CZorbFEAInformation project = whole_pass::Project(runFolder);
    CZorbI2EngineManager manager;
    manager.CreateEngine(&project);
    manager.CreateCMIDataBlock();
    manager.CreateCMIAccess();
    manager.SetCMIFileFullPath(".", "Cover", 2, "cmi");
    for (int solver = 0; solver < kSolverCount; ++solver) {
        for (int meshKind = 0; meshKind <= kMesh3DMappingShell; ++meshKind) {
            manager.SetEngineCurrentStatus(solver, meshKind, 0, 0);
            manager.SetPopItems();
            manager.SetItemsValue();
            manager.WriteCMIFile(0);
            const std::string text = BytesOf("Cover02.cmi");
            EXPECT_NE(text.find(std::string("[") + kSolverKeywords[solver].keyword + "_EOF]"),
                      std::string::npos)
                << solver << " " << meshKind;
        }
    }
}

TEST(WholePass, TwoManagersDoNotMeet) {
    const ScratchFolder folder;
    AddExample();
    CZorbFEAInformation other = library_tests::SolidProject("Elsewhere");
    CZorbI2EngineManager manager;
    manager.CreateEngine(&other);

    EXPECT_TRUE(whole_pass::WriteControlFile(whole_pass::Project(runFolder), "."));

    EXPECT_EQ(BytesOf("Cover02.cmi"), ExpectedControlFile());
    EXPECT_EQ(manager.GetProjectResults(kItemFlowInducedStress), kResultNoRsf);
}

}  // namespace
