// The two debug files, which land wherever the host's current folder is.
#include <gtest/gtest.h>

#include <filesystem>

#include <zorbi2/ZorbI2Types.h>

#include "tests/library/HostSystem.h"
#include "tests/library/LibraryProject.h"
#include "tests/library/ScratchFolder.h"

namespace {

namespace fs = std::filesystem;
using host_system::lineEnd;
using library_tests::AddFile;
using library_tests::BareProject;
using library_tests::BytesOf;
using library_tests::ResultOf;
using library_tests::ScratchFolder;

TEST(DebugFiles, ThermalTestLandsInTheCurrentFolder) {
    const ScratchFolder folder;
    AddFile("ThermalTest.txt", "what an earlier check has left, and longer than what comes now");

    EXPECT_EQ(ResultOf(BareProject("Run01"), kItemThermalStress), kResultNoK5w);

    EXPECT_EQ(BytesOf("ThermalTest.txt"), "FileExt = .k5w" + lineEnd + "ChkResult = 0");
}

TEST(DebugFiles, ThermalTestIsNotWrittenForAResultThatExists) {
    const ScratchFolder folder;
    AddFile("Run01/Cover01.k5w");

    EXPECT_EQ(ResultOf(BareProject("Run01"), kItemThermalStress), kResultAvailable);

    EXPECT_FALSE(fs::exists("ThermalTest.txt"));
}

TEST(DebugFiles, ShellIniStrainLandsInTheCurrentFolder) {
    const ScratchFolder folder;
    AddFile("Run01/Cover01.rsg");
    CZorbFEAInformation project = BareProject("Run01");
    project.solverType = kShellProject;

    EXPECT_EQ(ResultOf(project, kItemInitialStrain), kResultAvailable);

    EXPECT_EQ(BytesOf("ShellIniStrain.txt"), "RSP = 0RSG = 1RSR = 0File = 1");
}

TEST(DebugFiles, FollowTheCurrentFolder) {
    const ScratchFolder folder;
    CZorbFEAInformation project = BareProject("..\\Run01");
    CZorbI2EngineManager manager;
    manager.CreateEngine(&project);
    for (const char* desk : {"First", "Second"}) {
        fs::create_directory(desk);
        fs::current_path(desk);
        manager.GetProjectResults(kItemThermalStress);
        fs::current_path("..");
    }

    EXPECT_TRUE(fs::exists("First/ThermalTest.txt"));
    EXPECT_TRUE(fs::exists("Second/ThermalTest.txt"));
    EXPECT_FALSE(fs::exists("ThermalTest.txt"));
}

}  // namespace
