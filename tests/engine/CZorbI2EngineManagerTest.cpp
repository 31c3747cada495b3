// The manager: what it owns, and what it does around a bare engine.
#include <zorbi2/CZorbI2EngineManager.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <new>
#include <string>

#include <zorbi2/CZorbI2AccessCMIFile.h>
#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/CZorbI2WeldlineDataStatus.h>
#include <zorbi2/ZorbI2Types.h>

#include "tests/support/Errors.h"
#include "tests/support/FailingAllocations.h"
#include "tests/support/SampleProject.h"

using support::OpenProject;
using support::ResultFiles;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Manager, StartsWithNullPointers) {
    CZorbI2EngineManager manager;
    EXPECT_EQ(manager.engine, nullptr);
    EXPECT_EQ(manager.cmiData, nullptr);
    EXPECT_EQ(manager.accessCmiFile, nullptr);
    EXPECT_EQ(manager.GetZorbI2Engine(), nullptr);
    EXPECT_EQ(manager.GetZorbCMIData(), nullptr);
    EXPECT_EQ(manager.GetZorbAccessCMIFile(), nullptr);
}

TEST(Manager, SetsThePointersItselfWhateverTheMemoryHeld) {
    alignas(CZorbI2EngineManager) unsigned char memory[sizeof(CZorbI2EngineManager)];
    std::fill(std::begin(memory), std::end(memory), static_cast<unsigned char>(0xcd));
    auto* manager = new (memory) CZorbI2EngineManager;
    EXPECT_EQ(manager->engine, nullptr);
    EXPECT_EQ(manager->cmiData, nullptr);
    EXPECT_EQ(manager->accessCmiFile, nullptr);
    manager->~CZorbI2EngineManager();
}

TEST(Manager, ClosesWithoutAnyObject) {
    CZorbI2EngineManager manager;
    EXPECT_TRUE(manager.Close());
}

TEST(Manager, CloseReleasesNothing) {
    OpenProject project;
    const support::FailingAllocations watch;
    EXPECT_TRUE(project.manager.Close());
    EXPECT_EQ(watch.Count(), 0U);
    EXPECT_EQ(project.manager.GetItem(kCategoryPart, kItemFiberOrientation, nullptr), false);
    EXPECT_EQ(project.Engine().items[kItemFiberOrientation]->title, "Fiber orientation");
    EXPECT_TRUE(project.manager.Close());
}

TEST(Manager, GettersGiveTheThreeObjects) {
    OpenProject project;
    EXPECT_NE(project.manager.GetZorbI2Engine(), nullptr);
    EXPECT_EQ(project.manager.GetZorbI2Engine(), project.manager.engine);
    EXPECT_NE(project.manager.GetZorbCMIData(), nullptr);
    EXPECT_EQ(project.manager.GetZorbCMIData(), project.manager.cmiData);
    EXPECT_NE(project.manager.GetZorbAccessCMIFile(), nullptr);
    EXPECT_EQ(project.manager.GetZorbAccessCMIFile(), project.manager.accessCmiFile);
}

TEST(Manager, EachCreateMakesItsOwnObjectOnly) {
    support::WatchedPlatform files;
    CZorbI2EngineManager manager;
    EXPECT_TRUE(manager.CreateCMIAccess());
    EXPECT_EQ(manager.cmiData, nullptr);
    EXPECT_TRUE(manager.CreateCMIDataBlock());
    EXPECT_EQ(manager.engine, nullptr);
    EXPECT_TRUE(manager.CreateEngine(nullptr));
    EXPECT_NE(manager.engine, nullptr);
}

TEST(Manager, NewDataBlockIsResetAndNewWriterHasNoPath) {
    OpenProject project;
    const CZorbI2CMIData& data = *project.manager.GetZorbCMIData();
    EXPECT_EQ(data.SolverName, "");
    EXPECT_EQ(data.MapFile, "");
    EXPECT_EQ(data.OutFolder, "");
    EXPECT_EQ(data.FileVersion, 9064);
    EXPECT_EQ(data.DigimatWeldlineAngle, 135.0);
    EXPECT_EQ(project.manager.GetZorbAccessCMIFile()->filePath, "");
}

TEST(Manager, SecondCreateOverwritesThePointerAndFreesNothing) {
    OpenProject project;
    const std::unique_ptr<CZorbI2Engine> firstEngine(project.manager.engine);
    const std::unique_ptr<CZorbI2CMIData> firstData(project.manager.cmiData);
    const std::unique_ptr<CZorbI2AccessCMIFile> firstWriter(project.manager.accessCmiFile);
    firstData->SolverName = "first";
    firstWriter->filePath = "first";
    CZorbFEAInformation record = support::CompleteProject();
    EXPECT_TRUE(project.manager.CreateEngine(&record));
    EXPECT_TRUE(project.manager.CreateCMIDataBlock());
    EXPECT_TRUE(project.manager.CreateCMIAccess());
    EXPECT_NE(project.manager.engine, firstEngine.get());
    EXPECT_NE(project.manager.cmiData, firstData.get());
    EXPECT_NE(project.manager.accessCmiFile, firstWriter.get());
    EXPECT_EQ(firstEngine->items[kItemFiberOrientation]->title, "Fiber orientation");
    EXPECT_EQ(firstData->SolverName, "first");
    EXPECT_EQ(firstWriter->filePath, "first");
}

TEST(Manager, AssignmentCopiesThePointersAndNothingElse) {
    OpenProject project;
    CZorbI2EngineManager other;
    const support::FailingAllocations watch;
    CZorbI2EngineManager& result = (other = project.manager);
    EXPECT_EQ(watch.Count(), 0U);
    EXPECT_EQ(&result, &other);
    EXPECT_EQ(other.GetZorbI2Engine(), project.manager.GetZorbI2Engine());
    EXPECT_EQ(other.GetZorbCMIData(), project.manager.GetZorbCMIData());
    EXPECT_EQ(other.GetZorbAccessCMIFile(), project.manager.GetZorbAccessCMIFile());
    other.engine = nullptr;  // only one of the two may destroy the objects
    other.cmiData = nullptr;
    other.accessCmiFile = nullptr;
}

TEST(Manager, DestroysEngineDataBlockAndWriterInThisOrder) {
    support::WatchedPlatform files;
    CZorbFEAInformation record = support::PlainProject();
    auto manager = std::make_unique<CZorbI2EngineManager>();
    manager->CreateCMIAccess();
    manager->CreateCMIDataBlock();
    manager->CreateEngine(&record);
    const support::Address engine = support::AddressOf(manager->engine);
    const support::Address cmiData = support::AddressOf(manager->cmiData);
    const support::Address accessCmiFile = support::AddressOf(manager->accessCmiFile);
    const support::FailingAllocations watch;
    manager.reset();
    EXPECT_TRUE(watch.FreedInOrder({engine, cmiData, accessCmiFile}));
}

TEST(Manager, LeavesNothingBehind) {
    support::WatchedPlatform files;
    CZorbFEAInformation record = support::CompleteProject();
    const support::FailingAllocations watch;
    {
        CZorbI2EngineManager manager;
        manager.CreateEngine(&record);
        manager.CreateCMIDataBlock();
        manager.CreateCMIAccess();
        manager.SetOutFolder("a folder with a name that needs memory of its own");
        manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
        manager.SetPopItems();
        manager.WriteCMIFile(0);
        EXPECT_GT(watch.Live(), 100U);
        manager.Close();
    }
    EXPECT_EQ(watch.Live(), 0U);
}

TEST(Manager, ForwardsProjectResults) {
    OpenProject project;
    EXPECT_EQ(project.manager.GetProjectResults(kItemFiberOrientation), kResultAvailable);
    project.files.existing.clear();
    EXPECT_EQ(project.manager.GetProjectResults(kItemFiberOrientation), kResultNoO2w);
    EXPECT_EQ(project.manager.GetProjectResults(kItemDensity), kResultNoK5f);
    EXPECT_EQ(project.manager.GetProjectResults(kItemDigimatMucell), kResultNoCheck);
    EXPECT_EQ(project.manager.GetProjectResults(-1), kResultNoCheck);
    EXPECT_EQ(project.manager.GetProjectResults(kItemCount), kResultNoCheck);
}

TEST(Manager, ForwardsWeldlineData) {
    OpenProject project;
    EXPECT_TRUE(project.manager.SetWeldlineDataStatus(kSolverMscNastran, {10.0, 20.0, 30.0},
                                                      {0.5, 0.6, 0.7}));
    CZorbI2WeldlineDataStatus record;
    EXPECT_TRUE(project.manager.GetWeldlinePopData(kSolverMscNastran, &record));
    EXPECT_EQ(record.solverIndex, kSolverMscNastran);
    EXPECT_THAT(record.WeldlineAngles, ElementsAre(10.0, 20.0, 30.0));
    EXPECT_THAT(record.ReductionRates, ElementsAre(0.5, 0.6, 0.7));
    EXPECT_THAT(project.Engine().weldlineAngleSet->WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    project.manager.SetEngineCurrentStatus(kSolverMscNastran, kMeshOriginal, 0, 0);
    project.manager.SetWeldlineDataValue();
    EXPECT_THAT(project.Engine().weldlineAngleSet->WeldlineAngles, ElementsAre(10.0, 20.0, 30.0));
    EXPECT_THAT(project.Engine().weldlineAngleSet->ReductionRates, ElementsAre(0.5, 0.6, 0.7));
}

TEST(Manager, WritesTheOfferedItemsAndIgnoresTheNumber) {
    OpenProject project;
    project.manager.SetCMIFileFullPath("D:\\out", "Cover", 3, "cmi");
    project.manager.SetEngineCurrentStatus(kSolverLsDyna, kMesh3DMappingShell, 0, 0);
    project.manager.SetPopItems();
    EXPECT_TRUE(project.manager.WriteCMIFile(0));
    const std::string text = project.files.written["D:\\out\\Cover03.cmi"];
    EXPECT_NE(text.find("[LSDYNA] \n"), std::string::npos);
    EXPECT_NE(text.find("IsInitialstrainOutput =         0   (0:off,1:on)\n"), std::string::npos);
    EXPECT_TRUE(project.manager.WriteCMIFile(-1));
    EXPECT_EQ(project.files.written["D:\\out\\Cover03.cmi"], text);
}

TEST(Manager, WriteIsTrueWhenTheFolderDoesNotExist) {
    OpenProject project;
    project.manager.SetCMIFileFullPath("D:\\nowhere", "Cover", 3, "cmi");
    project.files.unwritable.insert("D:\\nowhere\\Cover03.cmi");
    project.manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    EXPECT_TRUE(project.manager.WriteCMIFile(0));
    EXPECT_EQ(project.files.events.back(), "open w D:\\nowhere\\Cover03.cmi");
    EXPECT_EQ(project.files.written.count("D:\\nowhere\\Cover03.cmi"), 0U);
}

TEST(Manager, WriteResetsTheDataBlockBeforeItFillsIt) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    project.Engine().weldlineAngleSet->WeldlineAngles.clear();  // ends the fill before its end
    CZorbI2CMIData& data = *project.manager.GetZorbCMIData();
    data.DigimatOption = 77;
    data.DigimatWeldlineAngle = 77.0;
    EXPECT_EQ(support::OutOfRangeText([&] { project.manager.WriteCMIFile(0); }),
              support::kInvalidSubscript);
    EXPECT_EQ(data.DigimatOption, 0);
    EXPECT_EQ(data.DigimatWeldlineAngle, 135.0);
    EXPECT_EQ(data.IsOriginalMesh, 1);
}

TEST(ManagerWithBareEngine, TakesTheSettings) {
    OpenProject project(support::ProjectWithoutCatalogue());
    project.manager.SetOutFolder("out");
    project.manager.SetMappedMeshFilePath("mesh");
    project.manager.SetCMIFileFullPath("D:\\out", "Cover", 3, "cmi");
    project.manager.SetViewEdit(true);
    project.manager.SetDigimatWeldlineData(10.0);
    EXPECT_EQ(project.Engine().outFolder, "out");
    EXPECT_EQ(project.Engine().mappedMeshFilePath, "mesh");
    EXPECT_EQ(project.Engine().cmiFileFullPath, "D:\\out\\Cover03.cmi");
    EXPECT_EQ(project.manager.GetZorbAccessCMIFile()->filePath, "D:\\out\\Cover03.cmi");
    EXPECT_TRUE(project.Engine().viewEdit);
    EXPECT_EQ(project.Engine().digimatWeldlineAngle, 10.0);
}

TEST(ManagerWithBareEngine, StillFindsOutAboutResults) {
    OpenProject project(support::ProjectWithoutCatalogue());
    EXPECT_EQ(project.manager.GetProjectResults(kItemInsertFiberMaterial), kResultAvailable);
    EXPECT_EQ(project.Engine().valueShotRunID, 2);
    EXPECT_EQ(project.manager.GetProjectResults(kItemDigimatMucell), kResultNoCheck);
}

TEST(ManagerWithBareEngine, HasNoItems) {
    OpenProject project(support::ProjectWithoutCatalogue());
    CZorbI2Item item;
    item.title = "mine";
    for (int itemId = -1; itemId <= kItemCount; ++itemId) {
        for (const int category : {kCategoryPart, kCategoryPartInsert, kCategoryMoldbase}) {
            EXPECT_FALSE(project.manager.GetItem(category, itemId, &item));
        }
    }
    EXPECT_EQ(item.title, "mine");
    EXPECT_FALSE(project.manager.HasPartItem());
    EXPECT_FALSE(project.manager.HasPartInsertItem());
    EXPECT_FALSE(project.manager.HasMoldbaseItem());
    std::map<int, std::string> options = {{1, "of an earlier item"}};
    EXPECT_FALSE(project.manager.GetItemAllOptions(kItemFiberOrientation, options));
    EXPECT_THAT(options, IsEmpty());
}

TEST(ManagerWithBareEngine, HasNoSolverStatus) {
    OpenProject project(support::ProjectWithoutCatalogue());
    int meshKind = -77;
    int quadraticElement = -77;
    int annealingMode = -77;
    project.manager.GetCurrentSolverStatus(kSolverAnsys, meshKind, quadraticElement, annealingMode);
    EXPECT_EQ(meshKind, -77);
    EXPECT_EQ(quadraticElement, -77);
    EXPECT_EQ(annealingMode, -77);
}

TEST(ManagerWithBareEngine, WriteLeavesTheDataBlockReset) {
    OpenProject project(support::ProjectWithoutCatalogue());
    project.manager.GetZorbCMIData()->IsMappedMesh = 1;
    project.manager.GetZorbCMIData()->MapFile = "mesh";
    EXPECT_TRUE(project.manager.WriteCMIFile(0));
    EXPECT_EQ(project.manager.GetZorbCMIData()->IsMappedMesh, 0);
    EXPECT_EQ(project.manager.GetZorbCMIData()->MapFile, "");
    EXPECT_EQ(project.manager.GetZorbCMIData()->FileVersion, 9064);
}

TEST(ManagerWithBareEngine, WriteIsTrueAndOpensNoFile) {
    OpenProject project(support::ProjectWithoutCatalogue());
    project.manager.SetCMIFileFullPath("D:\\out", "Cover", 3, "cmi");
    EXPECT_TRUE(project.manager.WriteCMIFile(0));
    EXPECT_THAT(project.files.events, IsEmpty());
}
