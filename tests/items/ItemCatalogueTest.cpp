#include "items/ItemCatalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <new>
#include <string>
#include <vector>

#include "tests/items/ExpectedCatalogue.h"
#include "tests/support/FailingAllocations.h"
#include "tests/support/SampleProject.h"

using support::OpenProject;
using support::ResultFiles;
using testing::ElementsAre;
using testing::Pair;

namespace {

constexpr int solverTypes[] = {0, 1, 2};

ResultCode EveryItemHasResults(std::int32_t /*itemId*/) {
    return 1;
}

ItemArray Catalogue(int solverType, const items::ResultCodeOf& resultCodeOf) {
    ItemArray items;
    items::BuildItemCatalogue(items, solverType, resultCodeOf);
    return items;
}

void ExpectTexts(const CZorbI2Item& item, const expected::Item& expectedItem) {
    EXPECT_EQ(item.itemId, expectedItem.itemId);
    EXPECT_EQ(item.category, expectedItem.category);
    EXPECT_EQ(item.checkState, expectedItem.checkState);
    EXPECT_EQ(item.title, expectedItem.title);
    EXPECT_EQ(item.description, expectedItem.description);
}

void ExpectAvailable(const CZorbI2Item& item, const expected::Item& expectedItem) {
    ExpectTexts(item, expectedItem);
    EXPECT_TRUE(item.isAvailable);
    EXPECT_EQ(item.options, expectedItem.options);
    EXPECT_EQ(item.optionValue, expectedItem.optionValue);
}

void ExpectMissing(const CZorbI2Item& item, const expected::Item& expectedItem,
                   const std::string& reason) {
    ExpectTexts(item, expectedItem);
    EXPECT_FALSE(item.isAvailable);
    EXPECT_THAT(item.options, ElementsAre(Pair(-2, reason)));
    EXPECT_EQ(item.optionValue, -2);
}

/// The items that are left null when one allocation after the other fails, in this order.
std::vector<int> ItemsLostToFailingAllocations() {
    std::vector<int> lost;
    const items::ResultCodeOf resultCodeOf = EveryItemHasResults;
    bool ranClean = false;
    for (std::size_t number = 0; !ranClean; ++number) {
        ItemArray items;
        try {
            const support::FailingAllocations failing(number,
                                                      support::FailingAllocations::Mode::once);
            items::BuildItemCatalogue(items, 0, resultCodeOf);
            ranClean = !failing.HasFailed();
        } catch (const std::bad_alloc&) {
            continue;  // no memory for a text or an option
        }
        for (int itemId = 0; itemId < 22; ++itemId) {
            if (!items[itemId]) {
                lost.push_back(itemId);
            }
        }
    }
    return lost;
}

}  // namespace

TEST(ItemCatalogue, EveryFieldOfEveryItemWithResults) {
    for (const int solverType : solverTypes) {
        OpenProject project(support::CompleteProject(solverType));
        for (const expected::Item& item : expected::CatalogueOf(solverType)) {
            SCOPED_TRACE(testing::Message()
                         << "solverType " << solverType << ", item " << item.itemId);
            ASSERT_NE(project.Engine().items[item.itemId], nullptr);
            ExpectAvailable(*project.Engine().items[item.itemId], item);
        }
    }
}

TEST(ItemCatalogue, EveryFieldOfEveryItemWithoutAnyResultFile) {
    for (const int solverType : solverTypes) {
        OpenProject project(support::PlainProject(solverType), ResultFiles::none);
        const std::map<int, std::string> reasons = expected::MissingResultsOf(solverType);
        for (const expected::Item& item : expected::CatalogueOf(solverType)) {
            SCOPED_TRACE(testing::Message()
                         << "solverType " << solverType << ", item " << item.itemId);
            ASSERT_NE(project.Engine().items[item.itemId], nullptr);
            const auto reason = reasons.find(item.itemId);
            if (reason == reasons.end()) {
                ExpectAvailable(*project.Engine().items[item.itemId], item);
            } else {
                ExpectMissing(*project.Engine().items[item.itemId], item, reason->second);
            }
        }
    }
}

TEST(ItemCatalogue, WithoutResultsEveryItemButThe17thHasOnlyTheReason) {
    OpenProject project(support::PlainProject(1), ResultFiles::none);
    for (const auto& item : project.Engine().items) {
        ASSERT_NE(item, nullptr);
        ASSERT_EQ(item->options.size(), 1U) << "item " << item->itemId;
        if (item->itemId == 17) {
            EXPECT_TRUE(item->isAvailable);
            EXPECT_THAT(item->options, ElementsAre(Pair(-1, "No such features")));
        } else {
            EXPECT_EQ(item->options.begin()->first, -2) << "item " << item->itemId;
            EXPECT_NE(item->options.begin()->second, "") << "item " << item->itemId;
            EXPECT_EQ(item->optionValue, -2) << "item " << item->itemId;
        }
    }
}

TEST(ItemCatalogue, DigimatExportIsACheckItemForShellProjectsOnly) {
    OpenProject shell(support::CompleteProject(1));
    const CZorbI2Item& item = *shell.Engine().items[11];
    EXPECT_EQ(item.checkState, 0);
    EXPECT_THAT(item.options, ElementsAre(Pair(-1, "No such features")));
    EXPECT_EQ(item.optionValue, -1);
}

TEST(ItemCatalogue, DigimatExportHasTwoOptionsForAllOtherProjects) {
    for (const int solverType : {-1, 0, 2}) {
        OpenProject project(support::CompleteProject(solverType));
        const CZorbI2Item& item = *project.Engine().items[11];
        EXPECT_EQ(item.checkState, -1);
        EXPECT_THAT(item.options, ElementsAre(Pair(0, "Digimat"), Pair(1, "Converse")));
        EXPECT_EQ(item.optionValue, 0);
    }
}

TEST(ItemCatalogue, DefaultsAreMediumForFibersConstantForDensityAndMoriTanaka) {
    OpenProject project;
    const ItemArray& items = project.Engine().items;
    EXPECT_EQ(items[0]->options.at(items[0]->optionValue), "Material reduction-Medium");
    EXPECT_EQ(items[12]->options.at(items[12]->optionValue), "Material reduction-Medium");
    EXPECT_EQ(items[13]->options.at(items[13]->optionValue), "Constant density");
    EXPECT_EQ(items[15]->options.at(items[15]->optionValue), "Mori-Tanaka model");
}

TEST(ItemCatalogue, DensityHasSevenOptionsInKeyOrder) {
    OpenProject project;
    std::map<int, std::string> options;
    EXPECT_TRUE(project.manager.GetItemAllOptions(13, options));
    EXPECT_THAT(options,
                ElementsAre(Pair(0, "Constant density"), Pair(1, "Density reduction-Min"),
                            Pair(2, "Density reduction-Low"), Pair(3, "Density reduction-Medium"),
                            Pair(4, "Density reduction-High"), Pair(5, "Density reduction-Max"),
                            Pair(6, "Density reduction-None")));
}

TEST(ItemCatalogue, AsksForResultsInItsOwnOrderAndNeverForThe17th) {
    std::vector<int> asked;
    Catalogue(0, [&asked](std::int32_t itemId) {
        asked.push_back(itemId);
        return 1;
    });
    EXPECT_THAT(asked, ElementsAre(15, 0, 1, 12, 13, 4, 3, 5, 8, 11, 16, 18, 19, 20, 9, 14, 21, 6,
                                   2, 7, 10));
}

TEST(ItemCatalogue, BuildsItemsInTheSameOrderAndOneWithoutMemoryStaysNull) {
    EXPECT_THAT(
        ItemsLostToFailingAllocations(),
        ElementsAre(15, 0, 1, 12, 13, 4, 3, 5, 8, 11, 16, 17, 18, 19, 20, 9, 14, 21, 6, 2, 7, 10));
}

TEST(ItemCatalogue, OnlyCodeOneMeansAvailable) {
    for (const int code : {-27, -1, 0, 2, 15, 255}) {
        for (const auto& item : Catalogue(0, [code](std::int32_t) { return code; })) {
            EXPECT_EQ(item->isAvailable, item->itemId == 17)
                << "code " << code << ", item " << item->itemId;
        }
    }
}

TEST(ItemCatalogue, EveryItemIsAvailableWhenAllResultsAre) {
    for (const auto& item : Catalogue(0, EveryItemHasResults)) {
        EXPECT_TRUE(item->isAvailable) << "item " << item->itemId;
    }
}

TEST(ItemCatalogue, ReasonIsTheMessageOfTheItemsOwnCode) {
    const ItemArray items = Catalogue(0, [](std::int32_t itemId) {
        constexpr int codes[] = {-24, -23, -19, -18, -17};
        return codes[itemId % 5];
    });
    EXPECT_EQ(items[0]->options.at(-2), "No meeting angle information.");
    EXPECT_EQ(items[1]->options.at(-2), "No digimat information");
    EXPECT_EQ(items[2]->options.at(-2), "No part insert fiber results.");
    EXPECT_EQ(items[3]->options.at(-2), "No file *.k5c");
    EXPECT_EQ(items[4]->options.at(-2), "No moldbase nor file *.k5c.");
}

TEST(ItemOptions, UnavailableItemHasTheReasonWhateverItsId) {
    for (int itemId = 0; itemId < 22; ++itemId) {
        std::map<std::int32_t, std::string> options;
        EXPECT_EQ(items::BuildItemOptions(0, itemId, -3, false, options), -2);
        EXPECT_THAT(options, ElementsAre(Pair(-2, "No runners"))) << "item " << itemId;
    }
}

TEST(ItemOptions, AvailabilityDecidesAndNotTheCode) {
    std::map<std::int32_t, std::string> options;
    EXPECT_EQ(items::BuildItemOptions(0, 1, 1, false, options), -2);
    EXPECT_THAT(options, ElementsAre(Pair(-2, "Unknown messages")));
    options.clear();
    EXPECT_EQ(items::BuildItemOptions(0, 1, -3, true, options), 0);
    EXPECT_THAT(options, ElementsAre(Pair(0, "Exclude runner"), Pair(1, "Include runner")));
}

TEST(ItemOptions, AvailableItemHasItsSetAndDefault) {
    for (const int solverType : solverTypes) {
        for (const expected::Item& item : expected::CatalogueOf(solverType)) {
            std::map<std::int32_t, std::string> options;
            EXPECT_EQ(items::BuildItemOptions(solverType, item.itemId, 1, true, options),
                      item.optionValue);
            EXPECT_EQ(options, item.options) << "item " << item.itemId;
        }
    }
}
