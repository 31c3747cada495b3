// Trace lines as the debugger gets them.
#include <gtest/gtest.h>

#include <zorbi2/ZorbI2Types.h>

#include "tests/library/HostSystem.h"
#include "tests/library/LibraryProject.h"
#include "tests/library/ScratchFolder.h"

namespace {

using host_system::DebuggerOutput;
using library_tests::AddFile;
using library_tests::BareProject;
using library_tests::ResultOf;
using library_tests::ScratchFolder;
using Lines = std::vector<std::wstring>;

constexpr int injectionCompression = 6;

TEST(Trace, TellsWhatIsMissingInTheOrderOfTheTests) {
    const ScratchFolder folder;
    CZorbFEAInformation project = BareProject("Run01\\");
    project.projectType = injectionCompression;
    CZorbI2EngineManager manager;
    manager.CreateEngine(&project);

    const DebuggerOutput debugger;
    for (const int itemId : {kItemFiberOrientation, kItemThermalStress, kItemPackingTemperature,
                             kItemInsertFiberMaterial}) {
        manager.GetProjectResults(itemId);
    }

    EXPECT_EQ(debugger.lines,
              (Lines{
                  L"@@@ I2Engine Fiber Orientation Results SOLID",
                  L"@@@ I2Engine HasFiber=false and .o2w/.k5o file not exist",
                  L"@@@ ZorbI2Engine GetThermalStressResults OstraMesh = false",
                  L"@@@ I2Engine ICM project \"Packing Temperature Results\" no .k5p file",
                  L"@@@ I2Engine ICM project \"Packing Temperature Results\" no .k5f file",
                  L"@@@ Engine read cmx file",
                  L"Run01\\Cover01.cmx",
                  L"@@@ I2Engine .cmx file FlagPrevShot=0",
              }));
}

TEST(Trace, TellsOfFiberFilesWithoutFiberResults) {
    const ScratchFolder folder;
    AddFile("Run01/Cover01.o2w");
    const DebuggerOutput debugger;

    EXPECT_EQ(ResultOf(BareProject("Run01"), kItemFiberOrientation), kResultNoFiberResults);

    EXPECT_EQ(debugger.lines, (Lines{L"@@@ I2Engine Fiber Orientation Results SOLID",
                                     L"@@@ I2Engine  HasFiber=false"}));
}

TEST(Trace, TellsOfFiberResultsWithoutFiles) {
    const ScratchFolder folder;
    CZorbFEAInformation project = BareProject("Run01");
    project.flags[CZorbFEAInformation::kHasFiber] = 1;
    const DebuggerOutput debugger;

    EXPECT_EQ(ResultOf(project, kItemFiberOrientation), kResultNoO2w);

    EXPECT_EQ(debugger.lines, (Lines{L"@@@ I2Engine Fiber Orientation Results SOLID",
                                     L"@@@ I2Engine .o2w/.k5 file not exist"}));
}

TEST(Trace, NamesTheVoxelMeshWithTwoSpaces) {
    const ScratchFolder folder;
    CZorbFEAInformation project = BareProject("Run01");
    project.voxelFlag = 1;
    const DebuggerOutput debugger;

    EXPECT_EQ(ResultOf(project, kItemThermalStress), kResultNoK5w);

    EXPECT_EQ(debugger.lines, Lines{L"@@@ ZorbI2Engine GetThermalStressResults  OstraMesh = true"});
}

TEST(Trace, FollowsTheShotFileToThePreviousShot) {
    const ScratchFolder folder;
    AddFile("Run01/Cover01.cmx",
            "<SOLID_MCM>\nFlagPrevShot = 1\nValueShotRunID = 2\n</SOLID_MCM>\n");
    const DebuggerOutput debugger;

    EXPECT_EQ(ResultOf(BareProject("Run01\\"), kItemInsertFiberMaterial),
              kResultNoInsertFiberResults);

    EXPECT_EQ(debugger.lines, (Lines{L"@@@ Engine read cmx file", L"Run01\\Cover01.cmx",
                                     L"@@@ I2Engine .cmx file FlagPrevShot=1",
                                     L"@@@ I2Engine does not have .k5o file"}));
}

TEST(Trace, CreationTracesTheChecksInTheOrderOfTheCatalogue) {
    const ScratchFolder folder;
    CZorbFEAInformation project = library_tests::SolidProject("Run01");
    CZorbI2EngineManager manager;
    const DebuggerOutput debugger;

    manager.CreateEngine(&project);

    EXPECT_EQ(debugger.lines,
              (Lines{
                  L"@@@ I2Engine Fiber Orientation Results SOLID",  // micromechanics
                  L"@@@ I2Engine HasFiber=false and .o2w/.k5o file not exist",
                  L"@@@ I2Engine Fiber Orientation Results SOLID",  // fiber orientation
                  L"@@@ I2Engine HasFiber=false and .o2w/.k5o file not exist",
                  L"@@@ Engine read cmx file",  // insert fiber material
                  L"Run01\\Cover01.cmx", L"@@@ I2Engine .cmx file FlagPrevShot=0",
                  L"@@@ ZorbI2Engine GetThermalStressResults OstraMesh = false",  // thermal stress
              }));
}

TEST(Trace, ChangesNoResult) {
    const ScratchFolder folder;
    AddFile("Run01/Cover01.o2w");
    const int untold = ResultOf(BareProject("Run01"), kItemFiberOrientation);
    const DebuggerOutput debugger;
    EXPECT_EQ(ResultOf(BareProject("Run01"), kItemFiberOrientation), untold);
    EXPECT_EQ(untold, kResultNoFiberResults);
}

}  // namespace
