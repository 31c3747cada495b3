// Names of files and folders as the host's system takes them.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <zorbi2/ZorbI2Types.h>

#include "tests/library/HostSystem.h"
#include "tests/library/LibraryProject.h"
#include "tests/library/ScratchFolder.h"
#include "tests/library/installed_host/WholePass.h"

namespace {

namespace fs = std::filesystem;
using library_tests::AddFile;
using library_tests::BareProject;
using library_tests::ResultOf;
using library_tests::ScratchFolder;

TEST(FileNames, DifferingInCaseAreFoundWhereTheSystemFindsThem) {
    const ScratchFolder folder;
    AddFile("RUN01/COVER01.RSF");
    EXPECT_EQ(ResultOf(BareProject("Run01"), kItemFlowInducedStress),
              host_system::ignoresCaseOfNames ? kResultAvailable : kResultNoRsf);
}

TEST(FileNames, AnExtensionInCapitalsIsFoundWhereTheSystemFindsIt) {
    const ScratchFolder folder;
    AddFile("Run01/Cover01.RSF");
    EXPECT_EQ(ResultOf(BareProject("Run01"), kItemFlowInducedStress),
              host_system::ignoresCaseOfNames ? kResultAvailable : kResultNoRsf);
}

TEST(FileNames, AShotFileDifferingInCaseIsReadWhereTheSystemFindsIt) {
    const ScratchFolder folder;
    AddFile("Run01/COVER01.CMX", "<SOLID_MCM>\nFlagPrevShot=1\nValueShotRunID=2\n</SOLID_MCM>\n");
    AddFile("Run02/Cover02.k5o");
    EXPECT_EQ(ResultOf(BareProject("Run01\\"), kItemInsertFiberMaterial) == kResultAvailable,
              host_system::ignoresCaseOfNames);
}

class FolderSeparators : public testing::TestWithParam<std::string> {};

TEST_P(FolderSeparators, AllLeadToTheRun) {
    const ScratchFolder folder;
    AddFile("Projects/Cover/Run01/Cover01.rsf");
    AddFile("Projects/Cover/Run01/Cover01.k5o", "1004");
    AddFile("Projects/Cover/Run01/Cover01.cmx",
            "<SOLID_MCM>\nFlagPrevShot=1\nValueShotRunID=2\n</SOLID_MCM>\n");
    AddFile("Projects/Cover/Run02/Cover02.k5o");
    CZorbFEAInformation project = BareProject(GetParam());
    project.flags[CZorbFEAInformation::kHasFiber] = 1;
    CZorbI2EngineManager manager;
    manager.CreateEngine(&project);

    EXPECT_EQ(manager.GetProjectResults(kItemFlowInducedStress), kResultAvailable);
    EXPECT_EQ(manager.GetProjectResults(kItemFiberOrientation),
              kResultAvailable);  // through the result reader
    EXPECT_EQ(manager.GetProjectResults(kItemInsertFiberMaterial), kResultAvailable);
}

INSTANTIATE_TEST_SUITE_P(Folders, FolderSeparators,
                         testing::Values("Projects\\Cover\\Run01\\", "Projects\\Cover\\Run01",
                                         "Projects/Cover/Run01/", "Projects/Cover/Run01",
                                         ".\\Projects/Cover\\Run01", "Projects//Cover/./Run01"));

TEST(FileNames, TheControlFileGoesIntoAFolderWithForwardSlashes) {
    const ScratchFolder folder;
    fs::create_directories("Out/I2");
    const fs::path file = "Out/I2/Cover02.cmi";
    for (const char* outFolder : {"Out/I2", "Out/I2/"}) {
        whole_pass::WriteControlFile(library_tests::SolidProject("Run01"), outFolder);
        EXPECT_TRUE(fs::exists(file)) << outFolder;
        fs::remove(file);
    }
}

}  // namespace
