// The user's choices: into the list of the current solver, and from there into the items.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <vector>

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
        manager.SetEngineCurrentStatus(0, 0, 0, 0);
    }

    CZorbI2ItemStatus& Entry(int itemId) { return Selector().itemStatusLists[0][itemId]; }
};

void ExpectChoice(ProjectWithStatus& project, const EntryCase& entryCase, int newCheckState,
                  int newOptionValue) {
    CZorbI2ItemStatus& entry = project.Entry(9);
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
    EXPECT_EQ(project.manager.SetItemStatus(9, newCheckState, newOptionValue), accepted);
    EXPECT_EQ(entry.checkState, checkState);
    EXPECT_EQ(entry.optionValue, optionValue);
    EXPECT_EQ(entry.itemId, 9);
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
            EXPECT_FALSE(project.manager.SetItemStatus(0, newCheckState, newOptionValue));
            EXPECT_FALSE(project.manager.SetItemStatus(3, newCheckState, newOptionValue));
        }
    }
    EXPECT_EQ(project.Entry(0).optionValue, -2);
    EXPECT_EQ(project.Entry(0).checkState, -1);
    EXPECT_EQ(project.Entry(3).optionValue, -2);
    EXPECT_EQ(project.Entry(3).checkState, 0);
}

TEST(SetItemStatus, OptionItemRefusesANegativeOptionAndTakesAnyOther) {
    ProjectWithStatus project;
    EXPECT_FALSE(project.manager.SetItemStatus(0, 5, -1));
    EXPECT_EQ(project.Entry(0).optionValue, 2);
    EXPECT_TRUE(project.manager.SetItemStatus(0, -7, 1));
    EXPECT_EQ(project.Entry(0).optionValue, 1);
    EXPECT_TRUE(project.manager.SetItemStatus(0, -7, 2));
    EXPECT_EQ(project.Entry(0).optionValue, 2);
    EXPECT_EQ(project.Entry(0).checkState, -1);
    EXPECT_TRUE(project.manager.SetItemStatus(0, 0, 1000));  // not one of its options
    EXPECT_EQ(project.Entry(0).optionValue, 1000);
}

TEST(SetItemStatus, CheckItemTakesTheCheckStateAndLeavesTheOption) {
    ProjectWithStatus project;
    EXPECT_TRUE(project.manager.SetItemStatus(9, 1, 3));
    EXPECT_EQ(project.Entry(9).checkState, 1);
    EXPECT_EQ(project.Entry(9).optionValue, -1);
}

TEST(SetItemStatus, PositionOutsideTheListRaisesOutOfRange) {
    ProjectWithStatus project;
    for (const int index :
         {-1, 22, 23, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_EQ(OutOfRangeText([&] { project.manager.SetItemStatus(index, 1, 1); }),
                  "invalid vector<T> subscript")
            << index;
    }
    EXPECT_TRUE(project.manager.SetItemStatus(21, 1, -1));
    EXPECT_EQ(project.Entry(21).checkState, 1);
}

TEST(SetItemStatus, ChangesTheCurrentSolversListOnly) {
    ProjectWithStatus project;
    project.manager.SetItemStatus(13, 0, 6);
    project.manager.SetEngineCurrentStatus(4, 0, 0, 0);
    project.manager.SetItemStatus(13, 0, 3);
    const auto& lists = project.Selector().itemStatusLists;
    EXPECT_EQ(lists[0][13].optionValue, 6);
    EXPECT_EQ(lists[4][13].optionValue, 3);
    for (const int solver : {1, 2, 3, 5, 6, 7, 8}) {
        EXPECT_EQ(lists[solver][13].optionValue, 0) << solver;
    }
    EXPECT_EQ(project.Engine().items[13]->optionValue, 0);
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
    for (int itemId = 0; itemId < 22; ++itemId) {
        project.Entry(itemId).checkState = 100 + itemId;
        project.Entry(itemId).optionValue = 200 + itemId;
    }
    project.manager.SetItemsValue();
    for (int itemId = 0; itemId < 22; ++itemId) {
        EXPECT_EQ(project.Engine().items[itemId]->checkState, 100 + itemId);
        EXPECT_EQ(project.Engine().items[itemId]->optionValue, 200 + itemId);
    }
}

TEST(SetItemsValue, GoesByTheIdOfTheEntryAndNotByPositionOrPointer) {
    ProjectWithStatus project;
    project.Entry(3).itemId = 4;
    project.Entry(3).checkState = 1;
    project.Entry(4).itemId = 3;
    project.Entry(4).checkState = 2;
    project.Entry(4).item = nullptr;
    project.manager.SetItemsValue();
    EXPECT_EQ(project.Engine().items[4]->checkState, 1);
    EXPECT_EQ(project.Engine().items[3]->checkState, 2);
}

TEST(SetItemsValue, LaterEntryForTheSameItemWins) {
    ProjectWithStatus project;
    project.Entry(3).checkState = 1;
    project.Entry(5).itemId = 3;
    project.Entry(5).checkState = 2;
    project.manager.SetItemsValue();
    EXPECT_EQ(project.Engine().items[3]->checkState, 2);
}

TEST(SetItemsValue, LeavesTheListAsItIs) {
    ProjectWithStatus project;
    project.manager.SetItemStatus(9, 1, -1);
    project.manager.SetItemsValue();
    EXPECT_EQ(project.Entry(9).checkState, 1);
    EXPECT_EQ(project.Entry(9).optionValue, -1);
    EXPECT_EQ(project.Selector().itemStatusLists[0].size(), 22U);
}

TEST(SetItemsValue, OfAnEmptyListChangesNothing) {
    ProjectWithStatus project;
    project.Selector().itemStatusLists[0].clear();
    const std::vector<int> options = OptionsOfAllItems(project);
    project.manager.SetItemsValue();
    EXPECT_EQ(OptionsOfAllItems(project), options);
}

TEST(SetItemsValue, CommitsTheCurrentSolversChoices) {
    ProjectWithStatus project;
    project.manager.SetItemStatus(13, 0, 6);
    project.manager.SetEngineCurrentStatus(4, 0, 0, 0);
    project.manager.SetItemStatus(13, 0, 3);
    project.manager.SetItemsValue();
    EXPECT_EQ(project.Engine().items[13]->optionValue, 3);
    project.manager.SetEngineCurrentStatus(0, 0, 0, 0);
    EXPECT_EQ(project.Engine().items[13]->optionValue, 3);
    project.manager.SetItemsValue();
    EXPECT_EQ(project.Engine().items[13]->optionValue, 6);
}

TEST(SetItemsValue, SkipsAnItemThatIsNotThere) {
    ProjectWithStatus project;
    project.Engine().items[3].reset();
    project.Entry(4).checkState = 1;
    project.manager.SetItemsValue();
    EXPECT_EQ(project.Engine().items[3], nullptr);
    EXPECT_EQ(project.Engine().items[4]->checkState, 1);
}

TEST(GetItem, ReadsAllEightFields) {
    OpenProject project;
    CZorbI2Item item;
    item.options = {{77, "of an earlier item"}};
    ASSERT_TRUE(project.manager.GetItem(0, 15, &item));
    EXPECT_EQ(item.category, 0);
    EXPECT_EQ(item.itemId, 15);
    EXPECT_TRUE(item.isAvailable);
    EXPECT_EQ(item.checkState, -1);
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
    for (const int itemId :
         {22, -1, 23, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        for (const int category : {0, 1, 2}) {
            EXPECT_FALSE(project.manager.GetItem(category, itemId, &item)) << itemId;
        }
    }
    EXPECT_EQ(item.title, "mine");
}

TEST(GetItem, RefusesANullItem) {
    OpenProject project;
    for (int itemId = -1; itemId <= 22; ++itemId) {
        EXPECT_FALSE(project.manager.GetItem(0, itemId, nullptr)) << itemId;
    }
}

TEST(GetItem, RefusesEveryOtherCategoryThanTheItemsOwn) {
    constexpr int categories[] = {0, 0, 2, 0, 0, 0, 1, 2, 0, 0, 2, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    OpenProject project;
    for (int itemId = 0; itemId < 22; ++itemId) {
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
    EXPECT_TRUE(project.manager.GetItem(1, 12, &item));
    EXPECT_EQ(item.title, "Fiber material property output");
    EXPECT_FALSE(project.manager.GetItem(0, 12, &item));
}

TEST(GetItem, IntoTheEnginesOwnItemLeavesItWhole) {
    OpenProject project;
    CZorbI2Item* own = project.Engine().items[13].get();
    EXPECT_TRUE(project.manager.GetItem(0, 13, own));
    EXPECT_EQ(own->options.size(), 7U);
    EXPECT_EQ(own->title, "Density output");
}

TEST(GetItem, ReadsCommittedChoicesOnly) {
    ProjectWithStatus project;
    CZorbI2Item item;
    project.manager.SetItemStatus(9, 1, -1);
    ASSERT_TRUE(project.manager.GetItem(0, 9, &item));
    EXPECT_EQ(item.checkState, 0);
    project.manager.SetItemsValue();
    ASSERT_TRUE(project.manager.GetItem(0, 9, &item));
    EXPECT_EQ(item.checkState, 1);
}

TEST(GetItemAllOptions, ReplacesTheMapByTheItemsOptions) {
    OpenProject project;
    std::map<int, std::string> options = {{77, "of an earlier item"}};
    EXPECT_TRUE(project.manager.GetItemAllOptions(1, options));
    EXPECT_THAT(options, ElementsAre(Pair(0, "Exclude runner"), Pair(1, "Include runner")));
}

TEST(GetItemAllOptions, OfAnItemWithoutResultsAreTheReason) {
    OpenProject project(support::PlainProject(), ResultFiles::none);
    std::map<int, std::string> options;
    EXPECT_TRUE(project.manager.GetItemAllOptions(1, options));
    EXPECT_THAT(options, ElementsAre(Pair(-2, "No runners")));
}

TEST(GetItemAllOptions, WithoutOptionsIsFalseAndEmptiesTheMap) {
    OpenProject project;
    project.Engine().items[3]->options.clear();
    std::map<int, std::string> options = {{77, "of an earlier item"}};
    EXPECT_FALSE(project.manager.GetItemAllOptions(3, options));
    EXPECT_THAT(options, IsEmpty());
}

TEST(GetItemAllOptions, IntoTheItemsOwnMapLeavesItWhole) {
    OpenProject project;
    std::map<int, std::string>& own = project.Engine().items[13]->options;
    EXPECT_TRUE(project.manager.GetItemAllOptions(13, own));
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
    items[6].reset();
    items[12].reset();
    EXPECT_TRUE(project.manager.HasPartItem());
    EXPECT_FALSE(project.manager.HasPartInsertItem());
    EXPECT_TRUE(project.manager.HasMoldbaseItem());
    for (const int itemId : {2, 7, 10}) {
        EXPECT_TRUE(project.manager.HasMoldbaseItem());
        items[itemId].reset();
    }
    EXPECT_FALSE(project.manager.HasMoldbaseItem());
    for (auto& item : items) {
        item.reset();
    }
    EXPECT_FALSE(project.manager.HasPartItem());
}
