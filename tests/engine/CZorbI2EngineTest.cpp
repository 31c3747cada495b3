// The engine as it is built from the host's record, and its settings.
#include <zorbi2/CZorbI2Engine.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2AccessCMIFile.h>
#include <zorbi2/ZorbI2Types.h>

#include "tests/support/Errors.h"
#include "tests/support/FailingAllocations.h"
#include "tests/support/SampleProject.h"

using support::AddressOf;
using support::OpenProject;
using support::OutOfRangeText;
using support::ResultFiles;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;

namespace {

void ExpectBare(CZorbI2Engine& engine) {
    EXPECT_THAT(engine.solverSlots, Each(IsNull()));
    EXPECT_THAT(engine.items, Each(IsNull()));
    EXPECT_EQ(engine.weldlineAngleSet, nullptr);
    EXPECT_EQ(engine.popItemSelector, nullptr);
    EXPECT_THAT(engine.solverOffered, IsEmpty());
    EXPECT_NE(engine.feaInformation, nullptr);
}

std::string PathFor(const std::string& folder, const std::string& name, int run,
                    const std::string& extension) {
    OpenProject project;
    project.manager.SetCMIFileFullPath(folder, name, run, extension);
    EXPECT_EQ(project.manager.GetZorbAccessCMIFile()->filePath, project.Engine().cmiFileFullPath);
    return project.Engine().cmiFileFullPath;
}

}  // namespace

TEST(Engine, CopiesEveryFieldOfTheRecord) {
    CZorbFEAInformation record;
    record.projectName = "Cover";
    record.runNumber = 11;
    record.projectFolder = "D:\\Proj";
    record.text3 = "third";
    record.text4 = "fourth";
    record.value5 = 5;
    record.solverType = 6;
    record.projectType = 7;
    record.voxelFlag = 8;
    record.value9 = 9;
    for (int position = 0; position < 20; ++position) {
        record.flags[position] = static_cast<unsigned char>(100 + position);
    }
    OpenProject project(record);
    const CZorbFEAInformation& copy = *project.Engine().feaInformation;
    EXPECT_EQ(copy.projectName, "Cover");
    EXPECT_EQ(copy.runNumber, 11);
    EXPECT_EQ(copy.projectFolder, "D:\\Proj");
    EXPECT_EQ(copy.text3, "third");
    EXPECT_EQ(copy.text4, "fourth");
    EXPECT_EQ(copy.value5, 5);
    EXPECT_EQ(copy.solverType, 6);
    EXPECT_EQ(copy.projectType, 7);
    EXPECT_EQ(copy.voxelFlag, 8);
    EXPECT_EQ(copy.value9, 9);
    for (int position = 0; position < 20; ++position) {
        EXPECT_EQ(copy.flags[position], 100 + position);
    }
}

TEST(Engine, LeavesTheHostsRecordAloneAndDoesNotLookAtItAgain) {
    support::WatchedPlatform files;
    CZorbI2EngineManager manager;
    CZorbFEAInformation record = support::PlainProject();
    record.projectFolder = "D:\\Proj\\Run03";
    manager.CreateEngine(&record);
    EXPECT_EQ(record.projectFolder, "D:\\Proj\\Run03");
    EXPECT_NE(manager.GetZorbI2Engine()->feaInformation.get(), &record);
    EXPECT_EQ(manager.GetZorbI2Engine()->feaInformation->projectFolder, "D:\\Proj\\Run03\\");

    record = CZorbFEAInformation();
    record.projectFolder = "E:\\";
    files.events.clear();
    manager.GetProjectResults(kItemDensity);
    EXPECT_THAT(files.events, ElementsAre("exists D:\\Proj\\Run03\\Cover03.k5f",
                                          "exists D:\\Proj\\Run03\\Cover03.K5F"));
}

TEST(Engine, OfANullRecordIsBareWithAnEmptyRecord) {
    support::WatchedPlatform files;
    CZorbI2EngineManager manager;
    EXPECT_TRUE(manager.CreateEngine(nullptr));
    ExpectBare(*manager.GetZorbI2Engine());
    const CZorbFEAInformation& record = *manager.GetZorbI2Engine()->feaInformation;
    EXPECT_EQ(record.projectName, "");
    EXPECT_EQ(record.runNumber, 0);
    EXPECT_EQ(record.projectFolder, "");
    EXPECT_EQ(record.text3, "");
    EXPECT_EQ(record.text4, "");
    EXPECT_EQ(record.value5, 0);
    EXPECT_EQ(record.solverType, 0);
    EXPECT_EQ(record.projectType, 0);
    EXPECT_EQ(record.voxelFlag, 0);
    EXPECT_EQ(record.value9, 0);
    EXPECT_THAT(record.flags, Each(0));
    EXPECT_FALSE(manager.GetZorbI2Engine()->viewEdit);
    EXPECT_THAT(files.events, IsEmpty());
}

TEST(Engine, BuildsTheCatalogueOnlyWhenItsFlagIsExactlyOne) {
    for (const int flag : {0, 2, 255}) {
        CZorbFEAInformation record = support::CompleteProject();
        record.flags[CZorbFEAInformation::kBuildCatalogue] = static_cast<unsigned char>(flag);
        OpenProject project(record);
        ExpectBare(project.Engine());
        EXPECT_EQ(project.Engine().feaInformation->flags[CZorbFEAInformation::kBuildCatalogue],
                  flag);
        EXPECT_THAT(project.files.events, IsEmpty());
    }
}

TEST(Engine, WithCatalogueHasAllItsParts) {
    OpenProject project;
    EXPECT_THAT(project.Engine().solverSlots, Each(NotNull()));
    EXPECT_THAT(project.Engine().items, Each(NotNull()));
    EXPECT_NE(project.Engine().weldlineAngleSet, nullptr);
    EXPECT_NE(project.Engine().popItemSelector, nullptr);
}

TEST(Engine, OffersAllSolversButRadiossAndWorkbenchForShellProjects) {
    OpenProject shell(support::CompleteProject(kShellProject));
    EXPECT_THAT(shell.Engine().solverOffered,
                ElementsAre(true, true, true, true, true, true, true, false, false));
}

TEST(Engine, OffersAllSolversForEveryOtherProject) {
    for (const int solverType : {-1, 0, 2, 257}) {
        OpenProject project(support::CompleteProject(solverType));
        EXPECT_THAT(project.Engine().solverOffered,
                    ElementsAre(true, true, true, true, true, true, true, true, true))
            << solverType;
    }
}

TEST(Engine, StartsWithEmptyPathsAndDefaults) {
    for (const CZorbFEAInformation& record :
         {support::CompleteProject(), support::ProjectWithoutCatalogue()}) {
        OpenProject project(record);
        EXPECT_EQ(project.Engine().outFolder, "");
        EXPECT_EQ(project.Engine().cmiFileFullPath, "");
        EXPECT_EQ(project.Engine().mappedMeshFilePath, "");
        EXPECT_EQ(project.Engine().digimatWeldlineAngle, kDefaultDigimatWeldlineAngle);
        EXPECT_FALSE(project.Engine().viewEdit);
    }
}

TEST(Engine, StartsWithTheWorkingWeldlineData) {
    OpenProject project;
    EXPECT_THAT(project.Engine().weldlineAngleSet->WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(project.Engine().weldlineAngleSet->ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

TEST(Engine, StartsWithTheShotFileValuesAtZero) {
    OpenProject project(support::PlainProject(), ResultFiles::none);
    EXPECT_EQ(project.Engine().flagPrevShot, 0);
    EXPECT_EQ(project.Engine().valueShotRunID, 0);
}

TEST(Engine, StartsWithTheShotFileValuesOfTheRun) {
    OpenProject project;
    EXPECT_EQ(project.Engine().flagPrevShot, 1);
    EXPECT_EQ(project.Engine().valueShotRunID, 2);
}

TEST(Engine, TakesViewEditFromTheRecordWithOrWithoutCatalogue) {
    for (const int buildCatalogue : {0, 1}) {
        for (const int viewEdit : {0, 1, 2}) {
            CZorbFEAInformation record = support::PlainProject();
            record.flags[CZorbFEAInformation::kBuildCatalogue] =
                static_cast<unsigned char>(buildCatalogue);
            record.flags[CZorbFEAInformation::kViewEditAtStart] =
                static_cast<unsigned char>(viewEdit);
            OpenProject project(record);
            EXPECT_EQ(project.Engine().viewEdit, viewEdit != 0);
        }
    }
}

TEST(Engine, DestroysSlotsItemsWeldlineDataSelectorRecordAndTextsInThisOrder) {
    OpenProject project;
    CZorbI2Engine& engine = project.Engine();
    engine.outFolder = "an output folder whose name needs memory";
    engine.cmiFileFullPath = "a file whose name needs memory";
    engine.mappedMeshFilePath = "a mapped mesh whose name needs memory";
    std::vector<support::Address> blocks;
    for (const auto& slot : engine.solverSlots) {
        blocks.push_back(AddressOf(slot.get()));
    }
    for (const auto& item : engine.items) {
        blocks.push_back(AddressOf(item.get()));
    }
    blocks.push_back(AddressOf(engine.weldlineAngleSet.get()));
    blocks.push_back(AddressOf(engine.popItemSelector.get()));
    blocks.push_back(AddressOf(engine.feaInformation.get()));
    blocks.push_back(AddressOf(engine.mappedMeshFilePath.data()));
    blocks.push_back(AddressOf(engine.cmiFileFullPath.data()));
    blocks.push_back(AddressOf(engine.outFolder.data()));
    blocks.push_back(AddressOf(&engine));
    const support::FailingAllocations watch;
    delete project.manager.engine;
    project.manager.engine = nullptr;
    EXPECT_TRUE(watch.FreedInOrder(blocks));
}

TEST(Settings, AreStoredAsTheyAre) {
    OpenProject project;
    project.manager.SetOutFolder("D:/out ");
    project.manager.SetMappedMeshFilePath("mesh\\..\\mapped.msh");
    project.manager.SetDigimatWeldlineData(-5.0);
    project.manager.SetViewEdit(true);
    EXPECT_EQ(project.Engine().outFolder, "D:/out ");
    EXPECT_EQ(project.Engine().mappedMeshFilePath, "mesh\\..\\mapped.msh");
    EXPECT_EQ(project.Engine().digimatWeldlineAngle, -5.0);
    EXPECT_TRUE(project.Engine().viewEdit);
    project.manager.SetViewEdit(false);
    EXPECT_FALSE(project.Engine().viewEdit);
    project.manager.SetOutFolder("");
    EXPECT_EQ(project.Engine().outFolder, "");
}

TEST(CmiFileFullPath, GetsABackslashTheRunTagAndADot) {
    EXPECT_EQ(PathFor("C:\\Work", "Part", 2, "cmi"), "C:\\Work\\Part02.cmi");
}

TEST(CmiFileFullPath, GetsNoSecondBackslash) {
    EXPECT_EQ(PathFor("D:\\out\\", "model", 12, "cmi"), "D:\\out\\model12.cmi");
}

TEST(CmiFileFullPath, WritesRunsBelowTenWithALeadingZero) {
    EXPECT_EQ(PathFor("D:\\out\\", "model", 0, "cmi"), "D:\\out\\model00.cmi");
    EXPECT_EQ(PathFor("D:\\out\\", "model", 9, "cmi"), "D:\\out\\model09.cmi");
    EXPECT_EQ(PathFor("D:\\out\\", "model", 10, "cmi"), "D:\\out\\model10.cmi");
    EXPECT_EQ(PathFor("D:\\out\\", "model", 123, "cmi"), "D:\\out\\model123.cmi");
}

TEST(CmiFileFullPath, WritesANegativeRunBehindAZero) {
    EXPECT_EQ(PathFor("D:\\out\\", "model", -1, "cmi"), "D:\\out\\model0-1.cmi");
}

TEST(CmiFileFullPath, TakesASlashForAnyOtherCharacter) {
    EXPECT_EQ(PathFor("/out/", "model", 1, "cmi"), "/out/\\model01.cmi");
}

TEST(CmiFileFullPath, TakesEmptyNameAndExtension) {
    EXPECT_EQ(PathFor("\\", "", 1, ""), "\\01.");
}

TEST(CmiFileFullPath, OfAnEmptyFolderRaisesOutOfRangeAndStays) {
    OpenProject project;
    project.manager.SetCMIFileFullPath("C:\\Work", "Part", 2, "cmi");
    EXPECT_EQ(OutOfRangeText([&] { project.manager.SetCMIFileFullPath("", "Other", 3, "cmi"); }),
              support::kInvalidPosition);
    EXPECT_EQ(project.Engine().cmiFileFullPath, "C:\\Work\\Part02.cmi");
    EXPECT_EQ(project.manager.GetZorbAccessCMIFile()->filePath, "C:\\Work\\Part02.cmi");
}
