#include "results/RunFiles.h"

#include <gtest/gtest.h>

#include <limits>

#include "results/ShotFile.h"
#include "tests/results/WatchedRun.h"
#include "tests/support/HostLocale.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using Lines = std::vector<std::string>;

Lines PathsLookedFor(WatchedRun& run, const results::ResultExtension& extension) {
    run.platform.events.clear();
    results::ResultFiles(run.info).LookFor(extension);
    return run.platform.EventsOf("exists");
}

/// The first of the paths, the one that decides.
std::string DecidingPath(WatchedRun& run, const results::ResultExtension& extension) {
    return PathsLookedFor(run, extension).at(0);
}

std::string PreviousPath(WatchedRun& run, std::int32_t previousRun, const std::string& extension) {
    run.platform.events.clear();
    results::PreviousShotFileExists(run.info, previousRun, extension);
    return run.platform.events.at(0);
}

}  // namespace

// ---- Run tag ----------------------------------------------------------------------------------

TEST(RunTag, HasTwoDigitsBelow10) {
    EXPECT_EQ(results::RunTag(0), "00");
    EXPECT_EQ(results::RunTag(9), "09");
}

TEST(RunTag, HasAsManyDigitsAsNeededFrom10) {
    EXPECT_EQ(results::RunTag(10), "10");
    EXPECT_EQ(results::RunTag(123), "123");
    EXPECT_EQ(results::RunTag(std::numeric_limits<std::int32_t>::max()), "2147483647");
}

TEST(RunTag, OfANegativeRunIsAZeroBeforeTheSign) {
    EXPECT_EQ(results::RunTag(-1), "0-1");
    EXPECT_EQ(results::RunTag(-10), "0-10");
    EXPECT_EQ(results::RunTag(std::numeric_limits<std::int32_t>::min()), "0-2147483648");
}

TEST(RunTag, HasNoGroupingInAnyLocale) {
    const support::HostLocale locale(support::kGermanLocale);
    EXPECT_EQ(results::RunTag(1234567), "1234567");
}

// ---- Folder -----------------------------------------------------------------------------------

TEST(ProjectFolder, GetsOneBackslashAtTheFirstTestAndKeepsIt) {
    WatchedRun run;
    run.info.projectFolder = "D:\\Proj\\Run03";
    results::ResultFiles(run.info).LookFor(".o2w");
    EXPECT_EQ(run.info.projectFolder, "D:\\Proj\\Run03\\");
    results::ResultFiles(run.info).LookFor(".o2w");
    EXPECT_EQ(run.info.projectFolder, "D:\\Proj\\Run03\\");
}

TEST(ProjectFolder, ThatEndsInABackslashIsLeftAlone) {
    WatchedRun run;
    run.info.projectFolder = "D:\\Proj\\Run03\\\\";
    results::ResultFiles(run.info).LookFor(".o2w");
    EXPECT_EQ(run.info.projectFolder, "D:\\Proj\\Run03\\\\");
}

TEST(ProjectFolder, ThatIsEmptyBecomesABackslash) {
    WatchedRun run;
    run.info.projectFolder = "";
    EXPECT_EQ(DecidingPath(run, ".o2w"), "\\Cover03.o2w");
    EXPECT_EQ(run.info.projectFolder, "\\");
}

TEST(ProjectFolder, ThatEndsInASlashTakesTheBackslashToo) {
    WatchedRun run;
    run.info.projectFolder = "D:/Proj/Run03/";
    EXPECT_EQ(DecidingPath(run, ".o2w"), "D:/Proj/Run03/\\Cover03.o2w");
}

TEST(ProjectFolder, IsUsedAsItStandsByAShotFileReadBeforeAnyTest) {
    WatchedRun run;
    run.info.projectFolder = "D:\\Proj\\Run03";
    results::ReadShotFile(run.info, run.flagPrevShot, run.valueShotRunID);
    EXPECT_EQ(run.platform.EventsOf("open"), Lines{"r D:\\Proj\\Run03Cover03.cmx"});
    EXPECT_EQ(run.info.projectFolder, "D:\\Proj\\Run03");
}

TEST(ProjectFolder, IsNotNormalizedByThePreviousShotTest) {
    WatchedRun run;
    run.info.projectFolder = "D:\\Proj";
    EXPECT_EQ(PreviousPath(run, 2, ".k5o"), "exists D:\\ProjRun02\\Cover02.k5o");
    EXPECT_EQ(run.info.projectFolder, "D:\\Proj");
}

// ---- Result files of the run ------------------------------------------------------------------

TEST(ResultFile, IsNamedAfterFolderProjectAndRun) {
    WatchedRun run;
    EXPECT_EQ(results::ResultBasePath(run.info), "D:\\Proj\\Run03\\Cover03");
    EXPECT_EQ(DecidingPath(run, ".o2w"), "D:\\Proj\\Run03\\Cover03.o2w");
    run.info.runNumber = 12;
    EXPECT_EQ(DecidingPath(run, ".o2w"), "D:\\Proj\\Run03\\Cover12.o2w");
}

TEST(ResultFile, CrpTakesTheMediSuffixInAnyCase) {
    WatchedRun run;
    EXPECT_EQ(DecidingPath(run, ".crp"), "D:\\Proj\\Run03\\Cover03_medi.crp");
    EXPECT_EQ(DecidingPath(run, ".CRP"), "D:\\Proj\\Run03\\Cover03_medi.CRP");
    EXPECT_EQ(DecidingPath(run, ".Crp"), "D:\\Proj\\Run03\\Cover03_medi.Crp");
}

TEST(ResultFile, ExtensionsThatOnlyResembleCrpTakeNoSuffix) {
    WatchedRun run;
    EXPECT_EQ(DecidingPath(run, ".crx"), "D:\\Proj\\Run03\\Cover03.crx");
    EXPECT_EQ(DecidingPath(run, "_crp"), "D:\\Proj\\Run03\\Cover03_crp");
}

TEST(ResultFile, K5oTakesTheVoxSuffixInAVoxelProjectInAnyCase) {
    WatchedRun run;
    run.info.voxelFlag = 1;
    EXPECT_EQ(DecidingPath(run, ".k5o"), "D:\\Proj\\Run03\\Cover03_vox.k5o");
    EXPECT_EQ(DecidingPath(run, ".K5O"), "D:\\Proj\\Run03\\Cover03_vox.K5O");
    EXPECT_EQ(DecidingPath(run, ".k5O"), "D:\\Proj\\Run03\\Cover03_vox.k5O");
}

TEST(ResultFile, OtherExtensionsTakeNoVoxSuffixInAVoxelProject) {
    WatchedRun run;
    run.info.voxelFlag = 1;
    EXPECT_EQ(DecidingPath(run, ".k5f"), "D:\\Proj\\Run03\\Cover03.k5f");
    EXPECT_EQ(DecidingPath(run, "_k5o"), "D:\\Proj\\Run03\\Cover03_k5o");
    EXPECT_EQ(DecidingPath(run, ".crp"), "D:\\Proj\\Run03\\Cover03_medi.crp");
}

TEST(ResultFile, OnlyVoxelFlag1AddsTheVoxSuffix) {
    WatchedRun run;
    for (const std::int32_t other : {0, 2, -1, 257}) {
        run.info.voxelFlag = other;
        EXPECT_EQ(DecidingPath(run, ".k5o"), "D:\\Proj\\Run03\\Cover03.k5o") << other;
    }
}

TEST(ResultFile, IsLookedForASecondTimeInUpperCaseWithoutSuffix) {
    WatchedRun run;
    run.info.voxelFlag = 1;
    EXPECT_EQ(PathsLookedFor(run, ".k5o"),
              (Lines{"D:\\Proj\\Run03\\Cover03_vox.k5o", "D:\\Proj\\Run03\\Cover03.K5O"}));
    EXPECT_EQ(PathsLookedFor(run, ".crp"),
              (Lines{"D:\\Proj\\Run03\\Cover03_medi.crp", "D:\\Proj\\Run03\\Cover03.CRP"}));
}

TEST(ResultFile, OnlyTheFirstPathDecides) {
    WatchedRun run;
    run.HasFile("Cover03.K5F");
    EXPECT_FALSE(results::ResultFiles(run.info).LookFor(".k5f"));
    run.platform.existing.clear();
    run.HasFile("Cover03.k5f");
    EXPECT_TRUE(results::ResultFiles(run.info).LookFor(".k5f"));
}

TEST(ResultFile, WithoutItsSuffixDoesNotCount) {
    WatchedRun run;
    run.info.voxelFlag = 1;
    run.HasFile("Cover03.crp");
    run.HasFile("Cover03.k5o");
    EXPECT_FALSE(results::ResultFiles(run.info).LookFor(".crp"));
    EXPECT_FALSE(results::ResultFiles(run.info).LookFor(".k5o"));
}

TEST(ResultFile, ExtensionIsUpperCasedAlikeInEveryLocale) {
    for (const char* name : {support::kTurkishLocale, support::kGermanLocale}) {
        const support::HostLocale locale(name);
        WatchedRun run;
        EXPECT_EQ(PathsLookedFor(run, ".ki\xe4")[1], "D:\\Proj\\Run03\\Cover03.KI\xe4") << name;
    }
}

TEST(ResultFile, IsFoundOnTheRealFileSystem) {
    const support::TemporaryFolder folder;
    folder.MakeFolder("Run03");
    folder.MakeFile("Run03/Cover03.k5f", "");
    folder.MakeFile("Run03/Cover03_medi.crp", "");
    CZorbFEAInformation info;
    info.projectName = "Cover";
    info.runNumber = 3;
    for (const std::string& runFolder :
         {folder.EnginePath("Run03"), folder.EnginePath("Run03") + "\\",
          (folder.Path() / "Run03").string() + "/"}) {
        info.projectFolder = runFolder;
        EXPECT_TRUE(results::ResultFiles(info).LookFor(".k5f")) << runFolder;
        EXPECT_TRUE(results::ResultFiles(info).LookFor(".crp")) << runFolder;
        EXPECT_FALSE(results::ResultFiles(info).LookFor(".o2w")) << runFolder;
    }
}

TEST(ResultFile, ThatIsAFolderCountsAsExisting) {
    const support::TemporaryFolder folder;
    folder.MakeFolder("Cover03.k5f");
    CZorbFEAInformation info;
    info.projectName = "Cover";
    info.runNumber = 3;
    info.projectFolder = folder.EnginePath("");
    EXPECT_TRUE(results::ResultFiles(info).LookFor(".k5f"));
}

// ---- Files of the previous shot's run ---------------------------------------------------------

TEST(PreviousShotFile, StandsInTheFolderBesideTheRuns) {
    WatchedRun run;
    EXPECT_EQ(PreviousPath(run, 2, ".k5o"), "exists D:\\Proj\\Run02\\Cover02.k5o");
    EXPECT_EQ(PreviousPath(run, -1, ".k5o"), "exists D:\\Proj\\Run0-1\\Cover0-1.k5o");
}

TEST(PreviousShotFile, LastRunInTheFolderCounts) {
    WatchedRun run;
    run.info.projectFolder = "D:\\Runs\\Proj\\Run11\\";
    EXPECT_EQ(PreviousPath(run, 12, ".k5o"), "exists D:\\Runs\\Proj\\Run12\\Cover12.k5o");
    run.info.projectFolder = "D:\\Run03\\MyRunning\\";
    EXPECT_EQ(PreviousPath(run, 12, ".k5o"), "exists D:\\Run03\\MyRun12\\Cover12.k5o");
}

TEST(PreviousShotFile, FolderWithoutRunGetsASubfolder) {
    WatchedRun run;
    run.info.projectFolder = "D:\\Proj\\";
    EXPECT_EQ(PreviousPath(run, 2, ".k5o"), "exists D:\\Proj\\Run02\\Cover02.k5o");
    run.info.projectFolder = "";
    EXPECT_EQ(PreviousPath(run, 2, ".k5o"), "exists Run02\\Cover02.k5o");
}

TEST(PreviousShotFile, RunIsFoundByItsExactCase) {
    WatchedRun run;
    run.info.projectFolder = "D:\\Run\\run03\\RUN\\";
    EXPECT_EQ(PreviousPath(run, 2, ".k5o"), "exists D:\\Run02\\Cover02.k5o");
}

TEST(PreviousShotFile, TakesNoSuffixAndNoSecondLook) {
    WatchedRun run;
    run.info.voxelFlag = 1;
    EXPECT_EQ(PreviousPath(run, 2, ".k5o"), "exists D:\\Proj\\Run02\\Cover02.k5o");
    EXPECT_EQ(run.Events().size(), 1U);
    EXPECT_EQ(PreviousPath(run, 2, ".crp"), "exists D:\\Proj\\Run02\\Cover02.crp");
}

TEST(PreviousShotFile, AnswersWhetherThePathExists) {
    WatchedRun run;
    EXPECT_FALSE(results::PreviousShotFileExists(run.info, 2, ".k5o"));
    run.platform.existing = {"D:\\Proj\\Run02\\Cover02.k5o"};
    EXPECT_TRUE(results::PreviousShotFileExists(run.info, 2, ".k5o"));
}
