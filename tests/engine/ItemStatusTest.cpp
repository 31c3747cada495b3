// The user's choices: into the list of the current solver, and from there into the items.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <vector>

#include <zorbi2/ZorbI2Types.h>

#include "tests/support/Errors.h"
#include "tests/support/SampleProject.h"

using support::OpenProject;
using support::OutOfRangeText;
using support::ResultFiles;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

/// What an entry of the list does with a choice.
enum class Kind { refusesAll, takesOption, takesCheckState, acceptsWithoutChange };

struct EntryCase {
    int optionValue;
    int checkState;
    Kind kind;
};

// clang-format off
constexpr EntryCase entryCases[] = {
    {-2, -1, Kind::refusesAll},
    {-2,  0, Kind::refusesAll},
    {-2,  1, Kind::refusesAll},
    {-2,  2, Kind::refusesAll},
    {-1, -1, Kind::takesOption},
    {-1,  0, Kind::takesCheckState},
    {-1,  1, Kind::takesCheckState},
    {-1,  2, Kind::takesCheckState},
    { 0, -1, Kind::takesOption},
    { 0,  0, Kind::acceptsWithoutChange},
    { 0,  1, Kind::acceptsWithoutChange},
    { 0,  2, Kind::acceptsWithoutChange},
    { 3, -1, Kind::takesOption},
    { 3,  0, Kind::acceptsWithoutChange},
    { 3,  1, Kind::acceptsWithoutChange},
    { 3,  2, Kind::acceptsWithoutChange},
};
// clang-format on

constexpr int newValues[] = {-7, -1, 0, 1, 5};

/// A project with a solver chosen.
class ProjectWithStatus : public OpenProject {
public:
    explicit ProjectWithStatus(ResultFiles results = ResultFiles::all)
        : OpenProject(support::CompleteProject(), results) {
        manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    }

    CZorbI2ItemStatus& Entry(int itemId) {
        return Selector().itemStatusLists[kSolverAnsys][itemId];
    }
};

void ExpectChoice(ProjectWithStatus& project, const EntryCase& entryCase, int newCheckState,
                  int newOptionValue) {
    CZorbI2ItemStatus& entry = project.Entry(kItemEndOfCoolingTemperature);
    entry.optionValue = entryCase.optionValue;
    entry.checkState = entryCase.checkState;

    bool accepted = false;
    int checkState = entryCase.checkState;
    int optionValue = entryCase.optionValue;
    switch (entryCase.kind) {
        case Kind::refusesAll:
            break;
        case Kind::takesOption:
            accepted = newOptionValue >= 0;
            optionValue = accepted ? newOptionValue : optionValue;
            break;
        case Kind::takesCheckState:
            accepted = newCheckState >= 0;
            checkState = accepted ? newCheckState : checkState;
            break;
        case Kind::acceptsWithoutChange:
            accepted = true;
            break;
    }
    EXPECT_EQ(
        project.manager.SetItemStatus(kItemEndOfCoolingTemperature, newCheckState, newOptionValue),
        accepted);
    EXPECT_EQ(entry.checkState, checkState);
    EXPECT_EQ(entry.optionValue, optionValue);
    EXPECT_EQ(entry.itemId, kItemEndOfCoolingTemperature);
}

std::vector<int> OptionsOfAllItems(OpenProject& project) {
    std::vector<int> values;
    for (const auto& item : project.Engine().items) {
        values.push_back(item->optionValue);
    }
    return values;
}

std::vector<int> CheckStatesOfAllItems(OpenProject& project) {
    std::vector<int> values;
    for (const auto& item : project.Engine().items) {
        values.push_back(item->checkState);
    }
    return values;
}

}  // namespace

TEST(SetItemStatus, DecidesByTheKindOfEntry) {
    ProjectWithStatus project;
    for (const EntryCase& entryCase : entryCases) {
        for (const int newCheckState : newValues) {
            for (const int newOptionValue : newValues) {
                SCOPED_TRACE(testing::Message()
                             << "entry with option " << entryCase.optionValue << " and check state "
                             << entryCase.checkState << ", new check state " << newCheckState
                             << ", new option " << newOptionValue);
                ExpectChoice(project, entryCase, newCheckState, newOptionValue);
            }
        }
    }
}

TEST(SetItemStatus, RefusesAnItemWithoutResultsWhateverTheValues) {
    ProjectWithStatus project(ResultFiles::none);
    for (const int newCheckState : newValues) {
        for (const int newOptionValue : newValues) {
            EXPECT_FALSE(project.manager.SetItemStatus(kItemFiberOrientation, newCheckState,
                                                       newOptionValue));
            EXPECT_FALSE(project.manager.SetItemStatus(kItemFlowInducedStress, newCheckState,
                                                       newOptionValue));
        }
    }
    EXPECT_EQ(project.Entry(kItemFiberOrientation).optionValue, kOptionResultsMissing);
    EXPECT_EQ(project.Entry(kItemFiberOrientation).checkState, kNotACheckItem);
    EXPECT_EQ(project.Entry(kItemFlowInducedStress).optionValue, kOptionResultsMissing);
    EXPECT_EQ(project.Entry(kItemFlowInducedStress).checkState, 0);
}

TEST(SetItemStatus, OptionItemRefusesANegativeOptionAndTakesAnyOther) {
    ProjectWithStatus project;
    EXPECT_FALSE(project.manager.SetItemStatus(kItemFiberOrientation, 5, -1));
    EXPECT_EQ(project.Entry(kItemFiberOrientation).optionValue, 2);
    EXPECT_TRUE(project.manager.SetItemStatus(kItemFiberOrientation, -7, 1));
    EXPECT_EQ(project.Entry(kItemFiberOrientation).optionValue, 1);
    EXPECT_TRUE(project.manager.SetItemStatus(kItemFiberOrientation, -7, 2));
    EXPECT_EQ(project.Entry(kItemFiberOrientation).optionValue, 2);
    EXPECT_EQ(project.Entry(kItemFiberOrientation).checkState, kNotACheckItem);
    EXPECT_TRUE(
        project.manager.SetItemStatus(kItemFiberOrientation, 0, 1000));  // not one of its options
    EXPECT_EQ(project.Entry(kItemFiberOrientation).optionValue, 1000);
}

TEST(SetItemStatus, CheckItemTakesTheCheckStateAndLeavesTheOption) {
    ProjectWithStatus project;
    EXPECT_TRUE(project.manager.SetItemStatus(kItemEndOfCoolingTemperature, 1, 3));
    EXPECT_EQ(project.Entry(kItemEndOfCoolingTemperature).checkState, 1);
    EXPECT_EQ(project.Entry(kItemEndOfCoolingTemperature).optionValue, kOptionNone);
}

TEST(SetItemStatus, PositionOutsideTheListRaisesOutOfRange) {
    ProjectWithStatus project;
    for (const int index : {-1, kItemCount, kItemCount + 1, std::numeric_limits<int>::min(),
                            std::numeric_limits<int>::max()}) {
        EXPECT_EQ(OutOfRangeText([&] { project.manager.SetItemStatus(index, 1, 1); }),
                  support::kInvalidSubscript)
            << index;
    }
    EXPECT_TRUE(project.manager.SetItemStatus(kItemAnnealingStress, 1, -1));
    EXPECT_EQ(project.Entry(kItemAnnealingStress).checkState, 1);
}

TEST(SetItemStatus, ChangesTheCurrentSolversListOnly) {
    ProjectWithStatus project;
    project.manager.SetItemStatus(kItemDensity, 0, 6);
    project.manager.SetEngineCurrentStatus(kSolverLsDyna, kMeshOriginal, 0, 0);
    project.manager.SetItemStatus(kItemDensity, 0, 3);
    const auto& lists = project.Selector().itemStatusLists;
    EXPECT_EQ(lists[kSolverAnsys][kItemDensity].optionValue, 6);
    EXPECT_EQ(lists[kSolverLsDyna][kItemDensity].optionValue, 3);
    for (int solver = 0; solver < kSolverCount; ++solver) {
        if (solver != kSolverAnsys && solver != kSolverLsDyna) {
            EXPECT_EQ(lists[solver][kItemDensity].optionValue, 0) << solver;
        }
    }
    EXPECT_EQ(project.Engine().items[kItemDensity]->optionValue, 0);
}

TEST(SetItemsValue, RightAfterConstructionLeavesTheCatalogueAsItIs) {
    for (const ResultFiles results : {ResultFiles::all, ResultFiles::none}) {
        ProjectWithStatus project(results);
        const std::vector<int> options = OptionsOfAllItems(project);
        const std::vector<int> checkStates = CheckStatesOfAllItems(project);
        project.manager.SetItemsValue();
        EXPECT_EQ(OptionsOfAllItems(project), options);
        EXPECT_EQ(CheckStatesOfAllItems(project), checkStates);
    }
}

TEST(SetItemsValue, CommitsBothValuesOfEveryEntry) {
    ProjectWithStatus project;
    for (int itemId = 0; itemId < kItemCount; ++itemId) {
        project.Entry(itemId).checkState = 100 + itemId;
        project.Entry(itemId).optionValue = 200 + itemId;
    }
    project.manager.SetItemsValue();
    for (int itemId = 0; itemId < kItemCount; ++itemId) {
        EXPECT_EQ(project.Engine().items[itemId]->checkState, 100 + itemId);
        EXPECT_EQ(project.Engine().items[itemId]->optionValue, 200 + itemId);
    }
}

TEST(SetItemsValue, GoesByTheIdOfTheEntryAndNotByPositionOrPointer) {
    ProjectWithStatus project;
    project.Entry(kItemFlowInducedStress).itemId = kItemThermalStress;
    project.Entry(kItemFlowInducedStress).checkState = 1;
    project.Entry(kItemThermalStress).itemId = kItemFlowInducedStress;
    project.Entry(kItemThermalStress).checkState = 2;
    project.Entry(kItemThermalStress).item = nullptr;
    project.manager.SetItemsValue();
    EXPECT_EQ(project.Engine().items[kItemThermalStress]->checkState, 1);
    EXPECT_EQ(project.Engine().items[kItemFlowInducedStress]->checkState, 2);
}

TEST(SetItemsValue, LaterEntryForTheSameItemWins) {
    ProjectWithStatus project;
    project.Entry(kItemFlowInducedStress).checkState = 1;
    project.Entry(kItemInitialStrain).itemId = kItemFlowInducedStress;
    project.Entry(kItemInitialStrain).checkState = 2;
    project.manager.SetItemsValue();
    EXPECT_EQ(project.Engine().items[kItemFlowInducedStress]->checkState, 2);
}

TEST(SetItemsValue, LeavesTheListAsItIs) {
    ProjectWithStatus project;
    project.manager.SetItemStatus(kItemEndOfCoolingTemperature, 1, -1);
    project.manager.SetItemsValue();
    EXPECT_EQ(project.Entry(kItemEndOfCoolingTemperature).checkState, 1);
    EXPECT_EQ(project.Entry(kItemEndOfCoolingTemperature).optionValue, kOptionNone);
    EXPECT_EQ(project.Selector().itemStatusLists[kSolverAnsys].size(), std::size_t{kItemCount});
}

TEST(SetItemsValue, OfAnEmptyListChangesNothing) {
    ProjectWithStatus project;
    project.Selector().itemStatusLists[kSolverAnsys].clear();
    const std::vector<int> options = OptionsOfAllItems(project);
    project.manager.SetItemsValue();
    EXPECT_EQ(OptionsOfAllItems(project), options);
}

TEST(SetItemsValue, CommitsTheCurrentSolversChoices) {
    ProjectWithStatus project;
    project.manager.SetItemStatus(kItemDensity, 0, 6);
    project.manager.SetEngineCurrentStatus(kSolverLsDyna, kMeshOriginal, 0, 0);
    project.manager.SetItemStatus(kItemDensity, 0, 3);
    project.manager.SetItemsValue();
    EXPECT_EQ(project.Engine().items[kItemDensity]->optionValue, 3);
    project.manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    EXPECT_EQ(project.Engine().items[kItemDensity]->optionValue, 3);
    project.manager.SetItemsValue();
    EXPECT_EQ(project.Engine().items[kItemDensity]->optionValue, 6);
}

TEST(SetItemsValue, SkipsAnItemThatIsNotThere) {
    ProjectWithStatus project;
    project.Engine().items[kItemFlowInducedStress].reset();
    project.Entry(kItemThermalStress).checkState = 1;
    project.manager.SetItemsValue();
    EXPECT_EQ(project.Engine().items[kItemFlowInducedStress], nullptr);
    EXPECT_EQ(project.Engine().items[kItemThermalStress]->checkState, 1);
}

TEST(GetItem, ReadsEveryField) {
    OpenProject project;
    CZorbI2Item item;
    item.options = {{77, "of an earlier item"}};
    ASSERT_TRUE(project.manager.GetItem(kCategoryPart, kItemMicroMechanics, &item));
    EXPECT_EQ(item.category, kCategoryPart);
    EXPECT_EQ(item.itemId, kItemMicroMechanics);
    EXPECT_TRUE(item.isAvailable);
    EXPECT_EQ(item.checkState, kNotACheckItem);
    EXPECT_THAT(item.options,
                ElementsAre(Pair(0, "Traditional composite model"), Pair(1, "Halpin-Tsai model"),
                            Pair(2, "Mori-Tanaka model")));
    EXPECT_EQ(item.optionValue, 2);
    EXPECT_EQ(item.title, "Mirco mechanics model");
    EXPECT_EQ(item.description, "");
}

TEST(GetItem, RefusesIdsOutsideTheCatalogue) {
    OpenProject project;
    CZorbI2Item item;
    item.title = "mine";
    for (const int itemId : {kItemCount, -1, kItemCount + 1, std::numeric_limits<int>::min(),
                             std::numeric_limits<int>::max()}) {
        for (const int category : {kCategoryPart, kCategoryPartInsert, kCategoryMoldbase}) {
            EXPECT_FALSE(project.manager.GetItem(category, itemId, &item)) << itemId;
        }
    }
    EXPECT_EQ(item.title, "mine");
}

TEST(GetItem, RefusesANullItem) {
    OpenProject project;
    for (int itemId = -1; itemId <= kItemCount; ++itemId) {
        EXPECT_FALSE(project.manager.GetItem(kCategoryPart, itemId, nullptr)) << itemId;
    }
}

TEST(GetItem, RefusesEveryOtherCategoryThanTheItemsOwn) {
    constexpr int categories[] = {0, 0, 2, 0, 0, 0, 1, 2, 0, 0, 2, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    static_assert(std::size(categories) == kItemCount);
    OpenProject project;
    for (int itemId = 0; itemId < kItemCount; ++itemId) {
        for (const int category : {-1, 0, 1, 2, 3}) {
            CZorbI2Item item;
            item.title = "mine";
            const bool isOwn = category == categories[itemId];
            EXPECT_EQ(project.manager.GetItem(category, itemId, &item), isOwn)
                << "category " << category << ", item " << itemId;
            EXPECT_EQ(item.title == "mine", !isOwn);
        }
    }
}

TEST(GetItem, FiberMaterialOutputBelongsToThePartInsert) {
    OpenProject project;
    CZorbI2Item item;
    EXPECT_TRUE(project.manager.GetItem(kCategoryPartInsert, kItemInsertFiberMaterial, &item));
    EXPECT_EQ(item.title, "Fiber material property output");
    EXPECT_FALSE(project.manager.GetItem(kCategoryPart, kItemInsertFiberMaterial, &item));
}

TEST(GetItem, IntoTheEnginesOwnItemLeavesItWhole) {
    OpenProject project;
    CZorbI2Item* own = project.Engine().items[kItemDensity].get();
    EXPECT_TRUE(project.manager.GetItem(kCategoryPart, kItemDensity, own));
    EXPECT_EQ(own->options.size(), 7U);
    EXPECT_EQ(own->title, "Density output");
}

TEST(GetItem, ReadsCommittedChoicesOnly) {
    ProjectWithStatus project;
    CZorbI2Item item;
    project.manager.SetItemStatus(kItemEndOfCoolingTemperature, 1, -1);
    ASSERT_TRUE(project.manager.GetItem(kCategoryPart, kItemEndOfCoolingTemperature, &item));
    EXPECT_EQ(item.checkState, 0);
    project.manager.SetItemsValue();
    ASSERT_TRUE(project.manager.GetItem(kCategoryPart, kItemEndOfCoolingTemperature, &item));
    EXPECT_EQ(item.checkState, 1);
}

TEST(GetItemAllOptions, ReplacesTheMapByTheItemsOptions) {
    OpenProject project;
    std::map<int, std::string> options = {{77, "of an earlier item"}};
    EXPECT_TRUE(project.manager.GetItemAllOptions(kItemRunner, options));
    EXPECT_THAT(options, ElementsAre(Pair(0, "Exclude runner"), Pair(1, "Include runner")));
}

TEST(GetItemAllOptions, OfAnItemWithoutResultsAreTheReason) {
    OpenProject project(support::PlainProject(), ResultFiles::none);
    std::map<int, std::string> options;
    EXPECT_TRUE(project.manager.GetItemAllOptions(kItemRunner, options));
    EXPECT_THAT(options, ElementsAre(Pair(kOptionResultsMissing, "No runners")));
}

TEST(GetItemAllOptions, WithoutOptionsIsFalseAndEmptiesTheMap) {
    OpenProject project;
    project.Engine().items[kItemFlowInducedStress]->options.clear();
    std::map<int, std::string> options = {{77, "of an earlier item"}};
    EXPECT_FALSE(project.manager.GetItemAllOptions(kItemFlowInducedStress, options));
    EXPECT_THAT(options, IsEmpty());
}

TEST(GetItemAllOptions, IntoTheItemsOwnMapLeavesItWhole) {
    OpenProject project;
    std::map<int, std::string>& own = project.Engine().items[kItemDensity]->options;
    EXPECT_TRUE(project.manager.GetItemAllOptions(kItemDensity, own));
    EXPECT_EQ(own.size(), 7U);
}

TEST(HasItem, OfAGroupGoesByTheCatalogueAndNotByTheOffer) {
    OpenProject project(support::PlainProject(), ResultFiles::none);
    EXPECT_TRUE(project.manager.HasPartItem());
    EXPECT_TRUE(project.manager.HasPartInsertItem());
    EXPECT_TRUE(project.manager.HasMoldbaseItem());
}

TEST(HasItem, OfAGroupIsFalseWithoutAnItemOfIt) {
    OpenProject project;
    ItemArray& items = project.Engine().items;
    items[kItemInsertFlowPressure].reset();
    items[kItemInsertFiberMaterial].reset();
    EXPECT_TRUE(project.manager.HasPartItem());
    EXPECT_FALSE(project.manager.HasPartInsertItem());
    EXPECT_TRUE(project.manager.HasMoldbaseItem());
    for (const int itemId : {kItemMoldbaseMesh, kItemMoldbasePressure, kItemMoldbaseTemperature}) {
        EXPECT_TRUE(project.manager.HasMoldbaseItem());
        items[itemId].reset();
    }
    EXPECT_FALSE(project.manager.HasMoldbaseItem());
    for (auto& item : items) {
        item.reset();
    }
    EXPECT_FALSE(project.manager.HasPartItem());
}
