// Reading the offered items, and the choices per solver.
#include <zorbi2/PopItemSelector.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include <zorbi2/ZorbI2Types.h>

#include "tests/support/Errors.h"
#include "tests/support/SampleProject.h"

using support::kInvalidSubscript;
using support::OpenProject;
using support::OutOfRangeText;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

using ReadOperation = bool (CZorbI2EngineManager::*)(int, CZorbI2Item*, CZorbI2ItemStatus*);

/// One of the three groups of offered items.
struct Group {
    const char* name;
    ReadOperation read;
    std::vector<std::int32_t> PopItemSelector::*offered;
    std::int32_t PopItemSelector::*count;
    std::vector<int> ids;  ///< offered for the original ANSYS mesh of a solid project
};

const Group groups[] = {
    {"part",
     &CZorbI2EngineManager::GetPartPopItem,
     &PopItemSelector::partPopItems,
     &PopItemSelector::partCount,
     {15, 0, 1, 4, 3, 5, 8, 9, 11, 16, 18, 19, 20, 13, 14}},
    {"part insert",
     &CZorbI2EngineManager::GetPartInsertPopItem,
     &PopItemSelector::partInsertPopItems,
     &PopItemSelector::partInsertCount,
     {6, 12}},
    {"moldbase",
     &CZorbI2EngineManager::GetMoldBasePopItem,
     &PopItemSelector::moldbasePopItems,
     &PopItemSelector::moldbaseCount,
     {2, 7, 10}},
};

/// The original ANSYS mesh of a solid project, with its items offered and counted.
class AnsysProject : public OpenProject {
public:
    AnsysProject() {
        manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
        manager.SetPopItems();
        manager.HasPopItem();
    }

    bool Read(const Group& group, int position) {
        return (manager.*group.read)(position, &item, &status);
    }

    CZorbI2Item item;
    CZorbI2ItemStatus status;
};

/// Records of a host that a refused call must leave alone.
void MarkRecords(AnsysProject& project) {
    project.item.title = "mine";
    project.status.optionValue = 77;
}

void ExpectRecordsUntouched(const AnsysProject& project) {
    EXPECT_EQ(project.item.title, "mine");
    EXPECT_EQ(project.status.optionValue, 77);
}

}  // namespace

TEST(PopItems, AreReadByPositionInOfferingOrderUntilFalse) {
    AnsysProject project;
    for (const Group& group : groups) {
        SCOPED_TRACE(group.name);
        std::vector<int> ids;
        for (int position = 0; project.Read(group, position); ++position) {
            ids.push_back(project.item.itemId);
            EXPECT_EQ(project.status.itemId, project.item.itemId);
        }
        EXPECT_EQ(ids, group.ids);
    }
}

TEST(PopItems, ComeWithTheWholeItemAndTheStatusOfTheCurrentSolver) {
    AnsysProject project;
    project.Selector().itemStatusLists[kSolverAnsys][kItemInsertFiberMaterial].optionValue = 4;
    project.Selector().itemStatusLists[kSolverAbaqus][kItemInsertFiberMaterial].optionValue = 1;
    ASSERT_TRUE(project.manager.GetPartInsertPopItem(1, &project.item, &project.status));
    EXPECT_EQ(project.status.item, project.Engine().items[kItemInsertFiberMaterial].get());
    EXPECT_EQ(project.status.itemId, kItemInsertFiberMaterial);
    EXPECT_EQ(project.status.checkState, kNotACheckItem);
    EXPECT_EQ(project.status.optionValue, 4);
    EXPECT_EQ(project.item.category, kCategoryPartInsert);
    EXPECT_TRUE(project.item.isAvailable);
    EXPECT_EQ(project.item.checkState, kNotACheckItem);
    EXPECT_EQ(project.item.optionValue, 2);
    EXPECT_EQ(project.item.title, "Fiber material property output");
    EXPECT_THAT(project.item.options, SizeIs(6));
}

TEST(PopItems, ItemIsTheOneThatTheStatusEntryRefersTo) {
    AnsysProject project;
    project.Selector().itemStatusLists[kSolverAnsys][kItemMicroMechanics].item =
        project.Engine().items[kItemFlowInducedStress].get();
    ASSERT_TRUE(project.manager.GetPartPopItem(0, &project.item, &project.status));
    EXPECT_EQ(project.status.itemId, kItemMicroMechanics);
    EXPECT_EQ(project.item.itemId, kItemFlowInducedStress);
}

TEST(PopItems, CopyIsTheHostsOwn) {
    AnsysProject project;
    ASSERT_TRUE(project.manager.GetPartPopItem(1, &project.item, &project.status));
    project.item.options.clear();
    project.item.title = "changed";
    EXPECT_THAT(project.Engine().items[kItemFiberOrientation]->options, SizeIs(6));
    EXPECT_EQ(project.Engine().items[kItemFiberOrientation]->title, "Fiber orientation");
}

TEST(PopItems, RefuseANullItem) {
    AnsysProject project;
    MarkRecords(project);
    for (const Group& group : groups) {
        EXPECT_FALSE((project.manager.*group.read)(0, nullptr, &project.status)) << group.name;
    }
    ExpectRecordsUntouched(project);
}

TEST(PopItems, RefuseANegativePosition) {
    AnsysProject project;
    MarkRecords(project);
    for (const Group& group : groups) {
        EXPECT_FALSE(project.Read(group, -1)) << group.name;
    }
    ExpectRecordsUntouched(project);
}

TEST(PopItems, RefuseThePositionAtTheCountAndBeyond) {
    AnsysProject project;
    MarkRecords(project);
    for (const Group& group : groups) {
        const int count = static_cast<int>(group.ids.size());
        EXPECT_TRUE((project.manager.*group.read)(count - 1, &project.item, &project.status))
            << group.name;
        MarkRecords(project);
        EXPECT_FALSE(project.Read(group, count)) << group.name;
        EXPECT_FALSE(project.Read(group, count + 1)) << group.name;
        ExpectRecordsUntouched(project);
    }
}

TEST(PopItems, StaleCountAboveTheListRaisesOutOfRange) {
    AnsysProject project;
    for (const Group& group : groups) {
        const int last = static_cast<int>(group.ids.size()) - 1;
        (project.Selector().*group.offered).clear();
        MarkRecords(project);
        EXPECT_EQ(OutOfRangeText([&] { project.Read(group, last); }), kInvalidSubscript)
            << group.name;
        EXPECT_EQ(OutOfRangeText([&] { project.Read(group, 0); }), kInvalidSubscript) << group.name;
        ExpectRecordsUntouched(project);
    }
}

TEST(PopItems, OfferedAnewButNotCountedAreBoundByTheOldCounts) {
    AnsysProject project;
    project.manager.SetEngineCurrentStatus(kSolverLsDyna, kMesh3DMappingShell, 0,
                                           0);  // offers strain and temperatures
    project.manager.SetPopItems();
    EXPECT_TRUE(project.manager.GetPartPopItem(2, &project.item, &project.status));
    EXPECT_EQ(project.item.itemId, kItemEndOfCoolingTemperature);
    EXPECT_EQ(
        OutOfRangeText([&] { project.manager.GetPartPopItem(3, &project.item, &project.status); }),
        kInvalidSubscript);
    EXPECT_TRUE(project.manager.HasPopItem());
    EXPECT_FALSE(project.manager.GetPartPopItem(3, &project.item, &project.status));
}

TEST(PopItems, StaleCountBelowTheListHidesTheRest) {
    AnsysProject project;
    project.manager.SetEngineCurrentStatus(kSolverLsDyna, kMesh3DMappingShell, 0,
                                           0);  // offers strain and temperatures
    project.manager.SetPopItems();
    project.manager.HasPopItem();
    project.manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    project.manager.SetPopItems();
    EXPECT_TRUE(project.manager.GetPartPopItem(2, &project.item, &project.status));
    EXPECT_EQ(project.item.itemId, kItemRunner);
    EXPECT_FALSE(project.manager.GetPartPopItem(3, &project.item, &project.status));
}

TEST(PopItems, OfferedIdOutsideTheStatusListRaisesOutOfRange) {
    AnsysProject project;
    MarkRecords(project);
    for (const int id : {kItemCount, -1}) {
        project.Selector().partPopItems[0] = id;
        EXPECT_EQ(OutOfRangeText([&] { project.Read(groups[0], 0); }), kInvalidSubscript) << id;
    }
    ExpectRecordsUntouched(project);
}

TEST(PopItems, OneWithoutItsItemIsRefused) {
    AnsysProject project;
    project.Selector().itemStatusLists[kSolverAnsys][kItemMicroMechanics].item = nullptr;
    MarkRecords(project);
    EXPECT_FALSE(project.Read(groups[0], 0));
    EXPECT_FALSE(
        project.manager.GetPartPopItemByID(kItemMicroMechanics, &project.item, &project.status));
    ExpectRecordsUntouched(project);
}

TEST(PopItems, HaveTestsAnswerFromTheLastCount) {
    AnsysProject project;
    CZorbI2EngineManager& manager = project.manager;
    EXPECT_TRUE(manager.HasPartPopItem());
    EXPECT_TRUE(manager.HasPartInsertPopItem());
    EXPECT_TRUE(manager.HasMoldbasePopItem());
    manager.SetEngineCurrentStatus(100, kMeshOriginal, 0, 0);  // offers nothing
    manager.SetPopItems();
    EXPECT_TRUE(manager.HasPartPopItem());
    EXPECT_TRUE(manager.HasPartInsertPopItem());
    EXPECT_TRUE(manager.HasMoldbasePopItem());
    EXPECT_FALSE(manager.HasPopItem());
    EXPECT_FALSE(manager.HasPartPopItem());
    EXPECT_FALSE(manager.HasPartInsertPopItem());
    EXPECT_FALSE(manager.HasMoldbasePopItem());
    manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    manager.SetPopItems();
    EXPECT_FALSE(manager.HasPartPopItem());
}

TEST(PopItems, GroupsAreCountedEachForItself) {
    for (const Group& counted : groups) {
        AnsysProject project;
        PopItemSelector& selector = project.Selector();
        for (const Group& group : groups) {
            (selector.*group.offered).clear();
        }
        (selector.*counted.offered) = {kItemMoldbasePressure, kItemPackingTemperature};
        EXPECT_TRUE(project.manager.HasPopItem()) << counted.name;
        for (const Group& group : groups) {
            EXPECT_EQ(selector.*group.count, group.count == counted.count ? 2 : 0);
        }
        EXPECT_EQ(project.manager.HasPartPopItem(), counted.name == groups[0].name);
        EXPECT_EQ(project.manager.HasPartInsertPopItem(), counted.name == groups[1].name);
        EXPECT_EQ(project.manager.HasMoldbasePopItem(), counted.name == groups[2].name);
    }
}

TEST(PopItems, OneOfferedItemIsEnough) {
    AnsysProject project;
    for (const Group& group : groups) {
        (project.Selector().*group.offered).clear();
    }
    EXPECT_FALSE(project.manager.HasPopItem());
    project.Selector().moldbasePopItems = {kItemMoldbaseMesh};
    EXPECT_TRUE(project.manager.HasPopItem());
}

TEST(PopItemById, ReadsAnyItemOfferedOrNot) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(kSolverNeNastran, kMeshOriginal, 0, 0);
    for (int itemId = 0; itemId < kItemCount; ++itemId) {
        CZorbI2Item item;
        CZorbI2ItemStatus status;
        EXPECT_TRUE(project.manager.GetPartPopItemByID(itemId, &item, &status)) << itemId;
        EXPECT_EQ(item.itemId, itemId);
        EXPECT_EQ(status.itemId, itemId);
        EXPECT_EQ(status.item, project.Engine().items[itemId].get());
    }
}

TEST(PopItemById, RefusesANullItem) {
    AnsysProject project;
    MarkRecords(project);
    EXPECT_FALSE(
        project.manager.GetPartPopItemByID(kItemFiberOrientation, nullptr, &project.status));
    ExpectRecordsUntouched(project);
}

TEST(PopItemById, RefusesNegativeIdsAndThoseFarPastTheList) {
    AnsysProject project;
    MarkRecords(project);
    for (const int itemId : {-2147483647 - 1, -kItemCount, -1, kItemCount + 1, 2147483647}) {
        EXPECT_FALSE(project.manager.GetPartPopItemByID(itemId, &project.item, &project.status))
            << itemId;
    }
    ExpectRecordsUntouched(project);
}

TEST(PopItemById, TheIdJustPastTheListRaisesOutOfRange) {
    AnsysProject project;
    MarkRecords(project);
    EXPECT_EQ(OutOfRangeText([&] {
                  project.manager.GetPartPopItemByID(kItemCount, &project.item, &project.status);
              }),
              kInvalidSubscript);
    ExpectRecordsUntouched(project);
    EXPECT_TRUE(
        project.manager.GetPartPopItemByID(kItemAnnealingStress, &project.item, &project.status));
    EXPECT_EQ(project.item.title, "Annealing stress output");
}

TEST(PopItemById, TheBoundIsTheLengthOfTheCurrentList) {
    AnsysProject project;
    project.Selector().itemStatusLists[kSolverAnsys].resize(10);
    EXPECT_TRUE(project.manager.GetPartPopItemByID(kItemEndOfCoolingTemperature, &project.item,
                                                   &project.status));
    EXPECT_FALSE(
        project.manager.GetPartPopItemByID(kItemDigimatExport, &project.item, &project.status));
    EXPECT_EQ(OutOfRangeText([&] {
                  project.manager.GetPartPopItemByID(kItemMoldbaseTemperature, &project.item,
                                                     &project.status);
              }),
              kInvalidSubscript);
}

TEST(PopItemSelector, StartsWithAnEqualListOfTheItemsOwnChoicesForEachSolver) {
    OpenProject project;
    for (const ItemStatusList& list : project.Selector().itemStatusLists) {
        ASSERT_THAT(list, SizeIs(kItemCount));
        for (int itemId = 0; itemId < kItemCount; ++itemId) {
            const CZorbI2Item* item = project.Engine().items[itemId].get();
            EXPECT_EQ(list[itemId].item, item);
            EXPECT_EQ(list[itemId].itemId, itemId);
            EXPECT_EQ(list[itemId].checkState, item->checkState);
            EXPECT_EQ(list[itemId].optionValue, item->optionValue);
        }
    }
}

TEST(PopItemSelector, StartsWithoutOffersCountsAndCurrentSolver) {
    CZorbFEAInformation record = support::CompleteProject(kShellProject);
    record.projectType = kProjectTypeMucell;
    record.voxelFlag = 258;
    OpenProject project(record);
    const PopItemSelector& selector = project.Selector();
    EXPECT_THAT(selector.partPopItems, SizeIs(0));
    EXPECT_THAT(selector.partInsertPopItems, SizeIs(0));
    EXPECT_THAT(selector.moldbasePopItems, SizeIs(0));
    EXPECT_EQ(selector.partCount, 0);
    EXPECT_EQ(selector.partInsertCount, 0);
    EXPECT_EQ(selector.moldbaseCount, 0);
    EXPECT_EQ(selector.currentItemStatusList, nullptr);
    EXPECT_EQ(selector.annealingMode, 0);
    EXPECT_EQ(selector.meshKind, 0);
    EXPECT_EQ(selector.quadraticElement, 0);
    EXPECT_EQ(selector.currentSolver, -1);
    EXPECT_EQ(selector.currentWeldlineIndex, -1);
    EXPECT_EQ(selector.solverType, 1);
    EXPECT_EQ(selector.projectType, kProjectTypeMucell);
    EXPECT_EQ(selector.voxelFlag, 2);
}

TEST(PopItemSelector, HasOneWeldlineRecordPerSolver) {
    OpenProject project;
    ASSERT_THAT(project.Selector().weldlineTable, SizeIs(kSolverCount));
    for (int solver = 0; solver < kSolverCount; ++solver) {
        const CZorbI2WeldlineDataStatus& record = project.Selector().weldlineTable[solver];
        EXPECT_EQ(record.solverIndex, solver);
        EXPECT_THAT(record.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
        EXPECT_THAT(record.ReductionRates, ElementsAre(0.8, 0.9, 0.95));
    }
}

TEST(PopItemSelector, BeforeAnyStatusTheListIsLikeAnEmptyOne) {
    OpenProject project;
    CZorbI2EngineManager& manager = project.manager;
    CZorbI2Item item;
    CZorbI2ItemStatus status;
    EXPECT_EQ(OutOfRangeText([&] { manager.SetItemStatus(kItemFiberOrientation, 1, 1); }),
              kInvalidSubscript);
    EXPECT_EQ(
        OutOfRangeText([&] { manager.GetPartPopItemByID(kItemFiberOrientation, &item, &status); }),
        kInvalidSubscript);
    EXPECT_FALSE(manager.GetPartPopItemByID(kItemRunner, &item, &status));
    EXPECT_FALSE(manager.GetPartPopItem(0, &item, &status));
    manager.SetItemsValue();
    EXPECT_EQ(project.Engine().items[kItemFiberOrientation]->optionValue, 2);
    manager.SetPopItems();
    EXPECT_FALSE(manager.HasPopItem());
    project.Selector().partPopItems = {kItemFiberOrientation};
    project.Selector().partCount = 1;
    EXPECT_EQ(OutOfRangeText([&] { manager.GetPartPopItem(0, &item, &status); }),
              kInvalidSubscript);
}
