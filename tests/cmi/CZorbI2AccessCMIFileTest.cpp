// The writer of the control parameter file: where it writes, in which order, and what it does when
// the system fails it.
#include <zorbi2/CZorbI2AccessCMIFile.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/CZorbI2EngineManager.h>
#include <zorbi2/ZorbI2Types.h>

#include "tests/support/ControlFileText.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WatchedPlatform.h"

using support::TemporaryFolder;
using support::WatchedPlatform;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Ids = std::vector<std::int32_t>;

std::string ItemLines(const Ids& part, const Ids& partInsert, const Ids& moldbase,
                      const CZorbI2CMIData& data) {
    WatchedPlatform files;
    CZorbI2AccessCMIFile writer;
    writer.filePath = "D:\\Out\\Cover01.cmi";
    writer.Write(part, partInsert, moldbase, data);
    return support::ItemLinesOf(files.written["D:\\Out\\Cover01.cmi"]);
}

}  // namespace

// ---- Order of the items -------------------------------------------------------------------------

TEST(CMIFileWriter, SortsTheItemsOfAllThreeListsTogether) {
    EXPECT_EQ(
        ItemLines({kItemWeldLine, kItemRunner}, {kItemInsertFiberMaterial, kItemInsertFlowPressure},
                  {kItemMoldbaseTemperature, kItemMoldbaseMesh}, CZorbI2CMIData()),
        "IsRunnerOutput =                0   (0:off,1:on)\n"
        "IsMoldbaseOutput =              0   (0:off,1:on)\n"
        "IsFlowPressureOutput =          0   (0:off,1:on)\n"
        "IsMoldbaseTempOutput =          0   (0:off,1:on)\n"
        "IsPartInsertMaterialReduction = 0   (0:off,1:on)\n"
        "IsWeldlineOutput =              0   (0:off,1:on)\n");
}

TEST(CMIFileWriter, PrintsAnItemOfTwoListsTwice) {
    CZorbI2CMIData data;
    data.OutputFlags[kItemFiberOrientation] = 1;
    EXPECT_EQ(ItemLines({kItemDensity, kItemFiberOrientation}, {}, {kItemFiberOrientation}, data),
              "IsDoMaterialReduction =         1   (0:off,1:on)\n"
              "IsDoMaterialReduction =         1   (0:off,1:on)\n"
              "IsDensityOutput =               0   (0:off,1:on)\n");
}

TEST(CMIFileWriter, PrintsAnItemTwiceInOneListTwice) {
    EXPECT_EQ(ItemLines({}, {kItemInitialStrain, kItemInitialStrain}, {}, CZorbI2CMIData()),
              "IsInitialstrainOutput =         0   (0:off,1:on)\n"
              "IsInitialstrainOutput =         0   (0:off,1:on)\n");
}

TEST(CMIFileWriter, SkipsMicroMechanicsInEveryList) {
    EXPECT_EQ(ItemLines({kItemMicroMechanics}, {kItemMicroMechanics},
                        {kItemMicroMechanics, kItemMoldbaseMesh}, CZorbI2CMIData()),
              "IsMoldbaseOutput =              0   (0:off,1:on)\n");
}

TEST(CMIFileWriter, SkipsIdsOutsideTheCatalogue) {
    EXPECT_EQ(ItemLines({-1, kItemCount}, {kItemAnnealingStress}, {4711}, CZorbI2CMIData()),
              "IsAnnealingstressOutput =\t0   (0:off,1:on)\n");
}

TEST(CMIFileWriter, WithEmptyListsWritesNoItemLine) {
    EXPECT_EQ(ItemLines({}, {}, {}, CZorbI2CMIData()), "");
}

TEST(CMIFileWriter, LeavesListsAndBlockAsTheyAre) {
    WatchedPlatform files;
    CZorbI2AccessCMIFile writer;
    writer.filePath = "f";
    const Ids part = {kItemFlowInducedStress, kItemRunner};
    CZorbI2CMIData data;
    data.SolverName = "MARC";
    writer.Write(part, {}, {}, data);
    EXPECT_THAT(part, ElementsAre(kItemFlowInducedStress, kItemRunner));
    EXPECT_EQ(data.SolverName, "MARC");
    EXPECT_EQ(writer.filePath, "f");
}

// ---- The file -----------------------------------------------------------------------------------

TEST(CMIFileWriter, StartsWithAnEmptyPath) {
    CZorbI2EngineManager manager;
    EXPECT_EQ(manager.GetZorbAccessCMIFile(), nullptr);
    EXPECT_TRUE(manager.CreateCMIAccess());
    ASSERT_NE(manager.GetZorbAccessCMIFile(), nullptr);
    EXPECT_EQ(manager.GetZorbAccessCMIFile()->filePath, "");
}

TEST(CMIFileWriter, OpensExactlyTheStoredPathForWritingTextAndClosesIt) {
    WatchedPlatform files;
    CZorbI2AccessCMIFile writer;
    writer.filePath = "D:\\M\xfcller \\out/Cover01.cmi";
    writer.Write({kItemFiberOrientation}, {}, {}, CZorbI2CMIData());
    EXPECT_THAT(files.events, ElementsAre("open w D:\\M\xfcller \\out/Cover01.cmi",
                                          "close D:\\M\xfcller \\out/Cover01.cmi"));
}

TEST(CMIFileWriter, WritesNothingWhenTheFileCannotBeOpened) {
    WatchedPlatform files;
    files.unwritable.insert("X:\\none.cmi");
    CZorbI2AccessCMIFile writer;
    writer.filePath = "X:\\none.cmi";
    writer.Write({kItemFiberOrientation}, {}, {}, CZorbI2CMIData());
    EXPECT_THAT(files.events, ElementsAre("open w X:\\none.cmi"));
    EXPECT_THAT(files.written, IsEmpty());
}

TEST(CMIFileWriter, TriesAnEmptyPathLikeAnyOther) {
    WatchedPlatform files;
    files.unwritable.insert("");
    CZorbI2AccessCMIFile().Write({}, {}, {}, CZorbI2CMIData());
    EXPECT_THAT(files.events, ElementsAre("open w "));
}

TEST(CMIFileWriter, WritesTheSameBytesEachTime) {
    WatchedPlatform files;
    CZorbI2AccessCMIFile writer;
    writer.filePath = "f";
    writer.Write({kItemFiberOrientation}, {}, {}, CZorbI2CMIData());
    const std::string first = files.written["f"];
    writer.Write({kItemFiberOrientation}, {}, {}, CZorbI2CMIData());
    EXPECT_EQ(files.written["f"], first);
    EXPECT_FALSE(first.empty());
}

// ---- On the real file system --------------------------------------------------------------------

TEST(CMIFileWriter, ReplacesALongerFile) {
    const TemporaryFolder folder;
    folder.MakeFile("Cover01.cmi", std::string(100000, 'x'));
    CZorbI2AccessCMIFile writer;
    writer.filePath = folder.EnginePath("Cover01.cmi");

    writer.Write({}, {}, {}, CZorbI2CMIData());

    const std::string bytes = folder.BytesOf("Cover01.cmi");
    EXPECT_EQ(bytes.find('x'), std::string::npos);
    EXPECT_EQ(bytes.rfind("I2-Output Control Parameter File", 0), 0U);
}

TEST(CMIFileWriter, EndsLinesAsTheSystemDoes) {
    const TemporaryFolder folder;
    CZorbI2AccessCMIFile writer;
    writer.filePath = folder.EnginePath("Cover01.cmi");

    writer.Write({}, {}, {}, CZorbI2CMIData());

    const std::string bytes = folder.BytesOf("Cover01.cmi");
#ifdef _WIN32
    const std::string start = "I2-Output Control Parameter File\r\nFileVersion = 0\r\n[HEADER]\r\n";
    const std::string end = "ReductionRate3 = 0.000\r\n[\\REDUCTION RATE]\r\n";
#else
    const std::string start = "I2-Output Control Parameter File\nFileVersion = 0\n[HEADER]\n";
    const std::string end = "ReductionRate3 = 0.000\n[\\REDUCTION RATE]\n";
#endif
    EXPECT_EQ(bytes.substr(0, start.size()), start);
    ASSERT_GE(bytes.size(), end.size());
    EXPECT_EQ(bytes.substr(bytes.size() - end.size()), end);
}

TEST(CMIFileWriter, MakesNoFileInAFolderThatDoesNotExist) {
    const TemporaryFolder folder;
    CZorbI2AccessCMIFile writer;
    writer.filePath = folder.EnginePath("none\\Cover01.cmi");

    writer.Write({}, {}, {}, CZorbI2CMIData());

    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(CMIFileWriter, LeavesAFolderInTheFilesPlaceAlone) {
    const TemporaryFolder folder;
    folder.MakeFolder("Cover01.cmi");
    CZorbI2AccessCMIFile writer;
    writer.filePath = folder.EnginePath("Cover01.cmi");

    writer.Write({}, {}, {}, CZorbI2CMIData());

    EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "Cover01.cmi"));
}
