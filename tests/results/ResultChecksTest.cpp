#include "results/ResultChecks.h"

#include <gtest/gtest.h>

#include <zorbi2/CZorbI2EngineManager.h>
#include <zorbi2/ZorbI2Types.h>

#include "tests/results/WatchedRun.h"

namespace {

using Lines = std::vector<std::string>;

}  // namespace

// ---- Fiber orientation ------------------------------------------------------------------------

TEST(FiberOrientation, O2wFileAloneSufficesInASolidProject) {
    WatchedRun run;
    run.info.flags[CZorbFEAInformation::kHasFiber] = 1;
    run.HasFile("Cover03.o2w");
    EXPECT_EQ(run.Check(kItemFiberOrientation), kResultAvailable);
}

TEST(FiberOrientation, OldK5oFileDoesNotSpoilTheO2wFile) {
    WatchedRun run;
    run.info.flags[CZorbFEAInformation::kHasFiber] = 1;
    run.HasFile("Cover03.o2w");
    run.HasFile("Cover03.k5o");
    run.reader.beginResult = 0;
    run.reader.version = 1003;
    EXPECT_EQ(run.Check(kItemFiberOrientation), kResultAvailable);
}

TEST(FiberOrientation, K5oFileOfVersion1003IsTooOldWithoutO2wFile) {
    WatchedRun run;
    run.info.flags[CZorbFEAInformation::kHasFiber] = 1;
    run.HasFile("Cover03.k5o");
    run.reader.beginResult = 0;
    run.reader.version = 1003;
    EXPECT_EQ(run.Check(kItemFiberOrientation), kResultNoO2w);
}

TEST(FiberOrientation, K5oFileOfVersion1004SufficesWithoutO2wFile) {
    WatchedRun run;
    run.info.flags[CZorbFEAInformation::kHasFiber] = 1;
    run.HasFile("Cover03.k5o");
    run.reader.beginResult = 0;
    run.reader.version = 1004;
    EXPECT_EQ(run.Check(kItemFiberOrientation), kResultAvailable);
}

TEST(FiberOrientation, VersionBeyond32BitsCountsWhole) {
    WatchedRun run;
    run.info.flags[CZorbFEAInformation::kHasFiber] = 1;
    run.HasFile("Cover03.k5o");
    run.reader.beginResult = 0;
    run.reader.version = 4294967296LL;  // its low half is 0
    EXPECT_EQ(run.Check(kItemFiberOrientation), kResultAvailable);
    run.reader.version = -4294966000LL;  // its low half is 1296
    EXPECT_EQ(run.Check(kItemFiberOrientation), kResultNoO2w);
}

TEST(FiberOrientation, SolidProjectWithoutFiberFlagTellsWhetherFilesExist) {
    WatchedRun run;
    EXPECT_EQ(run.Check(kItemFiberOrientation), kResultNoFiberResultsNorO2w);
    run.HasFile("Cover03.o2w");
    EXPECT_EQ(run.Check(kItemFiberOrientation), kResultNoFiberResults);
}

TEST(FiberOrientation, ShellProjectWithoutFiberFlagIsUnavailableWithOrWithoutRsoFile) {
    WatchedRun run;
    run.info.solverType = kShellProject;
    EXPECT_EQ(run.Check(kItemFiberOrientation), kResultNoFiberResults);
    run.HasFile("Cover03.rso");
    EXPECT_EQ(run.Check(kItemFiberOrientation), kResultNoFiberResults);
}

TEST(FiberOrientation, ReaderIsAskedAndClosedEvenWhenItCannotOpenTheFile) {
    WatchedRun run;
    run.reader.beginResult = 1;
    run.Check(kItemFiberOrientation);
    const std::string path = SystemPath("D:\\Proj\\Run03\\Cover03.k5o");
    EXPECT_EQ(run.reader.events, (Lines{"begin " + path, "version", "end"}));
}

TEST(FiberOrientation, ReaderLooksAtThePlainFileInAVoxelProjectToo) {
    WatchedRun run;
    run.info.flags[CZorbFEAInformation::kHasFiber] = 1;
    run.info.voxelFlag = 1;
    run.HasFile("Cover03_vox.k5o");
    run.reader.beginResult = 0;
    run.reader.version = 1004;
    EXPECT_EQ(run.Check(kItemFiberOrientation), kResultAvailable);
    EXPECT_EQ(run.reader.events[0], "begin " + SystemPath("D:\\Proj\\Run03\\Cover03.k5o"));
}

TEST(FiberOrientation, EverythingIsLookedAtEvenWhenTheFirstFileDecides) {
    WatchedRun run;
    run.info.flags[CZorbFEAInformation::kHasFiber] = 1;
    run.HasFile("Cover03.o2w");
    run.Check(kItemMicroMechanics);
    EXPECT_EQ(run.Events(),
              (Lines{"trace @@@ I2Engine Fiber Orientation Results SOLID",
                     "exists D:\\Proj\\Run03\\Cover03.o2w", "exists D:\\Proj\\Run03\\Cover03.O2W",
                     "exists D:\\Proj\\Run03\\Cover03.k5o", "exists D:\\Proj\\Run03\\Cover03.K5O",
                     "reader begin " + SystemPath("D:\\Proj\\Run03\\Cover03.k5o"), "reader version",
                     "reader end"}));
}

TEST(FiberOrientation, TracesWithoutFiberFlagKeepTheirTwoSpaces) {
    WatchedRun run;
    run.HasFile("Cover03.o2w");
    run.Check(kItemFiberOrientation);
    EXPECT_EQ(run.Events().back(), "trace @@@ I2Engine  HasFiber=false");
}

TEST(DigimatExport, SolidProjectIsAvailableWithoutAnyTest) {
    WatchedRun run;
    EXPECT_EQ(run.Check(kItemDigimatExport), kResultAvailable);
    EXPECT_EQ(run.Events(), Lines{});
}

// ---- Stress and strain ------------------------------------------------------------------------

TEST(ThermalStress, MissingFileLeavesADebugFile) {
    WatchedRun run;
    EXPECT_EQ(run.Check(kItemThermalStress), kResultNoK5w);
    EXPECT_EQ(run.platform.written.at("ThermalTest.txt"), "FileExt = .k5w\nChkResult = 0");
    EXPECT_EQ(run.platform.EventsOf("open"), Lines{"w ThermalTest.txt"});
    EXPECT_EQ(run.platform.EventsOf("close"), Lines{"ThermalTest.txt"});
}

TEST(ThermalStress, DebugFileReplacesAnEarlierOne) {
    WatchedRun run;
    run.Check(kItemThermalStress);
    run.Check(kItemThermalStress);
    EXPECT_EQ(run.platform.written.at("ThermalTest.txt"), "FileExt = .k5w\nChkResult = 0");
}

TEST(ThermalStress, DebugFileTellsOfAResultThatAppearsBetweenTheTwoTests) {
    WatchedRun run;
    static int looks;
    looks = 0;
    platform::CurrentCalls().pathExists = [](const char*) { return ++looks == 3; };
    EXPECT_EQ(run.Check(kItemThermalStress), kResultNoK5w);
    EXPECT_EQ(run.platform.written.at("ThermalTest.txt"), "FileExt = .k5w\nChkResult = 1");
}

TEST(ThermalStress, ExistingFileLeavesNoDebugFile) {
    WatchedRun run;
    run.HasFile("Cover03.k5w");
    EXPECT_EQ(run.Check(kItemThermalStress), kResultAvailable);
    EXPECT_TRUE(run.platform.written.empty());
}

TEST(ThermalStress, TraceShowsTwoSpacesForAnOstraMeshOnly) {
    WatchedRun run;
    for (const std::int32_t other : {0, 2, 257}) {
        run.info.voxelFlag = other;
        run.platform.events.clear();
        run.Check(kItemThermalStress);
        EXPECT_EQ(run.Events()[0],
                  "trace @@@ ZorbI2Engine GetThermalStressResults OstraMesh = false");
    }
    run.info.voxelFlag = 1;
    run.platform.events.clear();
    run.Check(kItemThermalStress);
    EXPECT_EQ(run.Events()[0], "trace @@@ ZorbI2Engine GetThermalStressResults  OstraMesh = true");
}

TEST(InitialStrain, ShellProjectWritesTheDebugFileEvenWhenAllFilesExist) {
    WatchedRun run;
    run.info.solverType = kShellProject;
    run.HasFile("Cover03.rsp");
    run.HasFile("Cover03.rsg");
    run.HasFile("Cover03.rsr");
    EXPECT_EQ(run.Check(kItemInitialStrain), kResultAvailable);
    EXPECT_EQ(run.platform.written.at("ShellIniStrain.txt"), "RSP = 1RSG = 1RSR = 1File = 1");
}

TEST(InitialStrain, DebugFileIsOneLineWithoutSeparators) {
    WatchedRun run;
    run.info.solverType = kShellProject;
    run.HasFile("Cover03.rsg");
    EXPECT_EQ(run.Check(kItemInitialStrain), kResultAvailable);
    EXPECT_EQ(run.platform.written.at("ShellIniStrain.txt"), "RSP = 0RSG = 1RSR = 0File = 1");
}

TEST(InitialStrain, SolidProjectWritesNoDebugFile) {
    WatchedRun run;
    EXPECT_EQ(run.Check(kItemInitialStrain), kResultNoK5f);
    EXPECT_EQ(run.platform.EventsOf("open"), Lines{});
}

TEST(DebugFiles, StandInTheCurrentFolderWhateverTheProjectsFolder) {
    WatchedRun run;
    run.info.projectFolder = "";
    run.info.solverType = kShellProject;
    run.Check(kItemThermalStress);
    run.Check(kItemInitialStrain);
    EXPECT_EQ(run.platform.EventsOf("open"), (Lines{"w ThermalTest.txt", "w ShellIniStrain.txt"}));
}

// ---- Codes that look like slips and are deliberate --------------------------------------------

TEST(InsertFlowPressure, SaysNoInsertAlsoWhenTheInsertExistsAndTheFileDoesNot) {
    WatchedRun run;
    run.info.flags[CZorbFEAInformation::kHasInsertedPart] = 1;
    EXPECT_EQ(run.Check(kItemInsertFlowPressure), kResultNoInsert);
}

TEST(MoldbasePressure, SaysNoMoldbaseNorFileAlsoWhenTheMoldbaseExists) {
    WatchedRun run;
    run.info.flags[CZorbFEAInformation::kHasMoldbase] = 1;
    EXPECT_EQ(run.Check(kItemMoldbasePressure), kResultNoMoldbaseNorK5f);
}

TEST(MoldbaseTemperature, TellsAMissingFileFromAMissingMoldbase) {
    WatchedRun run;
    EXPECT_EQ(run.Check(kItemMoldbaseTemperature), kResultNoMoldbaseNorK5c);
    run.info.flags[CZorbFEAInformation::kHasMoldbase] = 1;
    EXPECT_EQ(run.Check(kItemMoldbaseTemperature), kResultNoK5c);
}

// ---- Temperatures -----------------------------------------------------------------------------

TEST(PackingTemperature, K5fFileServesInInjectionCompressionProjectsOnly) {
    WatchedRun run;
    run.HasFile("Cover03.k5f");
    run.info.projectType = 5;
    EXPECT_EQ(run.Check(kItemPackingTemperature), kResultNoK5p);
    EXPECT_EQ(run.platform.EventsOf("trace"), Lines{});
    run.info.projectType = 6;
    EXPECT_EQ(run.Check(kItemPackingTemperature), kResultAvailable);
    EXPECT_EQ(run.platform.EventsOf("trace"),
              Lines{"@@@ I2Engine ICM project \"Packing Temperature Results\" no .k5p file"});
}

TEST(PackingTemperature, ShellProjectWritesNoDebugFile) {
    WatchedRun run;
    run.info.solverType = kShellProject;
    EXPECT_EQ(run.Check(kItemPackingTemperature), kResultNoK5p);
    EXPECT_EQ(run.platform.EventsOf("open"), Lines{});
}

TEST(EndOfCoolingTemperature, OnlyASolidProjectLooksForTheK5cFile) {
    WatchedRun run;
    run.HasFile("Cover03.rsc");
    EXPECT_EQ(run.Check(kItemEndOfCoolingTemperature), kResultNoK5c);
    for (const std::int32_t notSolid : {kShellProject, 2, -1}) {
        run.info.solverType = notSolid;
        EXPECT_EQ(run.Check(kItemEndOfCoolingTemperature), kResultAvailable) << notSolid;
    }
}

// ---- Part insert from a previous shot ---------------------------------------------------------

TEST(InsertFiberMaterial, WithoutShotFileThereIsNoPreviousShot) {
    WatchedRun run;
    EXPECT_EQ(run.Check(kItemInsertFiberMaterial), kResultNoInsertFiberResults);
    EXPECT_EQ(run.platform.EventsOf("trace").back(), "@@@ I2Engine .cmx file FlagPrevShot=0");
}

TEST(InsertFiberMaterial, FreshEngineHasNoPreviousShot) {
    WatchedRun run;
    CZorbI2EngineManager manager;
    CZorbFEAInformation info = run.info;
    info.flags[CZorbFEAInformation::kBuildCatalogue] = 1;
    ASSERT_TRUE(manager.CreateEngine(&info));
    run.platform.events.clear();
    EXPECT_EQ(manager.GetProjectResults(kItemInsertFiberMaterial), kResultNoInsertFiberResults);
    EXPECT_EQ(run.platform.EventsOf("trace").back(), "@@@ I2Engine .cmx file FlagPrevShot=0");
}

TEST(InsertFiberMaterial, LooksForTheK5oFileOfThePreviousRun) {
    WatchedRun run;
    run.platform.readable["D:\\Proj\\Run03\\Cover03.cmx"] =
        "<SOLID_MCM>\nVersion = 1\nFlagPrevShot = 1\nValueShotRunID = 2\n</SOLID_MCM>\n";
    EXPECT_EQ(run.Check(kItemInsertFiberMaterial), kResultNoInsertFiberResults);
    EXPECT_EQ(
        run.Events(),
        (Lines{"trace @@@ Engine read cmx file", "trace D:\\Proj\\Run03\\Cover03.cmx",
               "open r D:\\Proj\\Run03\\Cover03.cmx", "trace @@@ I2Engine .cmx file FlagPrevShot=1",
               "exists D:\\Proj\\Run02\\Cover02.k5o",
               "trace @@@ I2Engine does not have .k5o file"}));
    run.platform.existing = {"D:\\Proj\\Run02\\Cover02.k5o"};
    EXPECT_EQ(run.Check(kItemInsertFiberMaterial), kResultAvailable);
}

TEST(InsertFiberMaterial, ShotFileThatCannotBeReadAnyMoreLeavesTheLastAnswer) {
    WatchedRun run;
    run.platform.readable["D:\\Proj\\Run03\\Cover03.cmx"] =
        "<SOLID_MCM>\nFlagPrevShot=1\nValueShotRunID=2\n</SOLID_MCM>\n";
    run.platform.existing = {"D:\\Proj\\Run02\\Cover02.k5o"};
    EXPECT_EQ(run.Check(kItemInsertFiberMaterial), kResultAvailable);
    run.platform.readable.clear();
    EXPECT_EQ(run.Check(kItemInsertFiberMaterial), kResultAvailable);
}

// ---- Weld lines and Digimat -------------------------------------------------------------------

TEST(WeldLine, MeetingAngleCountsOnlyWhenTheFileExists) {
    for (const std::int32_t item : {kItemWeldLine, kItemDigimatWeldLine}) {
        WatchedRun run;
        EXPECT_EQ(run.Check(item), kResultNoK5f) << item;
        run.HasFile("Cover03.k5f");
        EXPECT_EQ(run.Check(item), kResultNoMeetingAngle) << item;
        run.info.flags[CZorbFEAInformation::kHasMeetingAngle] = 1;
        EXPECT_EQ(run.Check(item), kResultAvailable) << item;
    }
}

TEST(DigimatFiber, ShellProjectWithRsoFileOnlyLacksDigimatInformation) {
    WatchedRun run;
    run.info.solverType = kShellProject;
    EXPECT_EQ(run.Check(kItemDigimatFiber), kResultNoMediCrp);
    run.HasFile("Cover03.rso");
    EXPECT_EQ(run.Check(kItemDigimatFiber), kResultNoDigimatInformation);
}

TEST(DigimatFiber, SolidProjectNeverLooksForTheRsoFile) {
    WatchedRun run;
    run.info.solverType = kSolidProject;
    run.HasFile("Cover03.rso");
    EXPECT_EQ(run.Check(kItemDigimatFiber), kResultNoMediCrp);
    EXPECT_EQ(run.platform.EventsOf("exists"),
              (Lines{"D:\\Proj\\Run03\\Cover03_medi.crp", "D:\\Proj\\Run03\\Cover03.CRP",
                     "D:\\Proj\\Run03\\Cover03.k5o", "D:\\Proj\\Run03\\Cover03.K5O"}));
}

TEST(DigimatStress, LooksForTheK5wFileOnlyWhenTheRsfFileIsMissing) {
    WatchedRun run;
    EXPECT_EQ(run.Check(kItemDigimatStress), kResultNeitherRsfNorK5w);
    EXPECT_EQ(run.platform.EventsOf("exists"),
              (Lines{"D:\\Proj\\Run03\\Cover03.rsf", "D:\\Proj\\Run03\\Cover03.RSF",
                     "D:\\Proj\\Run03\\Cover03.k5w", "D:\\Proj\\Run03\\Cover03.K5W"}));
    run.HasFile("Cover03.rsf");
    run.platform.events.clear();
    EXPECT_EQ(run.Check(kItemDigimatStress), kResultAvailable);
    EXPECT_EQ(run.Events(), (Lines{"exists D:\\Proj\\Run03\\Cover03.rsf",
                                   "exists D:\\Proj\\Run03\\Cover03.RSF"}));
}

TEST(DigimatTemperature, LooksForTheK5cFileOnlyWhenTheK5pFileIsMissing) {
    WatchedRun run;
    EXPECT_EQ(run.Check(kItemDigimatTemperature), kResultNeitherK5pNorK5c);
    EXPECT_EQ(run.platform.EventsOf("exists"),
              (Lines{"D:\\Proj\\Run03\\Cover03.k5p", "D:\\Proj\\Run03\\Cover03.K5P",
                     "D:\\Proj\\Run03\\Cover03.k5c", "D:\\Proj\\Run03\\Cover03.K5C"}));
    run.HasFile("Cover03.k5p");
    run.platform.events.clear();
    EXPECT_EQ(run.Check(kItemDigimatTemperature), kResultAvailable);
    EXPECT_EQ(run.Events(), (Lines{"exists D:\\Proj\\Run03\\Cover03.k5p",
                                   "exists D:\\Proj\\Run03\\Cover03.K5P"}));
}
