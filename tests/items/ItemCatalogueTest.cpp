#include "items/ItemCatalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include <zorbi2/ZorbI2Types.h>

#include "tests/items/ExpectedCatalogue.h"
#include "tests/items/LostToFailingAllocations.h"
#include "tests/support/SampleProject.h"

using support::OpenProject;
using support::ResultFiles;
using testing::ElementsAre;
using testing::Pair;

namespace {

constexpr int solverTypes[] = {kSolidProject, kShellProject, 2};

/// In which the catalogue is built.
constexpr int buildingOrder[] = {15, 0,  1,  12, 13, 4,  3,  5, 8, 11, 16,
                                 17, 18, 19, 20, 9,  14, 21, 6, 2, 7,  10};

ResultCode EveryItemHasResults(std::int32_t /*itemId*/) {
    return kResultAvailable;
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
    EXPECT_THAT(item.options, ElementsAre(Pair(kOptionResultsMissing, reason)));
    EXPECT_EQ(item.optionValue, kOptionResultsMissing);
}

}  // namespace

TEST(ItemCatalogue, EveryFieldOfEveryItemWithResults) {
    for (const int solverType : solverTypes) {
        ASSERT_EQ(expected::CatalogueOf(solverType).size(), std::size_t{kItemCount});
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

TEST(ItemCatalogue, WithoutResultsEveryItemButDigimatMucellHasOnlyTheReason) {
    OpenProject project(support::PlainProject(kShellProject), ResultFiles::none);
    for (const auto& item : project.Engine().items) {
        ASSERT_NE(item, nullptr);
        ASSERT_EQ(item->options.size(), 1U) << "item " << item->itemId;
        if (item->itemId == kItemDigimatMucell) {
            EXPECT_TRUE(item->isAvailable);
            EXPECT_THAT(item->options, ElementsAre(Pair(kOptionNone, "No such features")));
        } else {
            EXPECT_EQ(item->options.begin()->first, kOptionResultsMissing)
                << "item " << item->itemId;
            EXPECT_NE(item->options.begin()->second, "") << "item " << item->itemId;
            EXPECT_EQ(item->optionValue, kOptionResultsMissing) << "item " << item->itemId;
        }
    }
}

TEST(ItemCatalogue, DigimatExportIsACheckItemForShellProjectsOnly) {
    OpenProject shell(support::CompleteProject(kShellProject));
    const CZorbI2Item& item = *shell.Engine().items[kItemDigimatExport];
    EXPECT_EQ(item.checkState, 0);
    EXPECT_THAT(item.options, ElementsAre(Pair(kOptionNone, "No such features")));
    EXPECT_EQ(item.optionValue, kOptionNone);
}

TEST(ItemCatalogue, DigimatExportHasTwoOptionsForAllOtherProjects) {
    for (const int solverType : {-1, 0, 2}) {
        OpenProject project(support::CompleteProject(solverType));
        const CZorbI2Item& item = *project.Engine().items[kItemDigimatExport];
        EXPECT_EQ(item.checkState, kNotACheckItem);
        EXPECT_THAT(item.options, ElementsAre(Pair(0, "Digimat"), Pair(1, "Converse")));
        EXPECT_EQ(item.optionValue, 0);
    }
}

TEST(ItemCatalogue, DefaultsAreMediumForFibersConstantForDensityAndMoriTanaka) {
    OpenProject project;
    const ItemArray& items = project.Engine().items;
    EXPECT_EQ(items[kItemFiberOrientation]->options.at(items[kItemFiberOrientation]->optionValue),
              "Material reduction-Medium");
    EXPECT_EQ(
        items[kItemInsertFiberMaterial]->options.at(items[kItemInsertFiberMaterial]->optionValue),
        "Material reduction-Medium");
    EXPECT_EQ(items[kItemDensity]->options.at(items[kItemDensity]->optionValue),
              "Constant density");
    EXPECT_EQ(items[kItemMicroMechanics]->options.at(items[kItemMicroMechanics]->optionValue),
              "Mori-Tanaka model");
}

TEST(ItemCatalogue, DensityHasSevenOptionsInKeyOrder) {
    OpenProject project;
    std::map<int, std::string> options;
    EXPECT_TRUE(project.manager.GetItemAllOptions(kItemDensity, options));
    EXPECT_THAT(options,
                ElementsAre(Pair(0, "Constant density"), Pair(1, "Density reduction-Min"),
                            Pair(2, "Density reduction-Low"), Pair(3, "Density reduction-Medium"),
                            Pair(4, "Density reduction-High"), Pair(5, "Density reduction-Max"),
                            Pair(6, "Density reduction-None")));
}

TEST(ItemCatalogue, AsksForResultsInItsOwnOrderAndNeverForDigimatMucell) {
    std::vector<int> order(std::begin(buildingOrder), std::end(buildingOrder));
    std::erase(order, kItemDigimatMucell);
    std::vector<int> asked;
    Catalogue(0, [&asked](std::int32_t itemId) {
        asked.push_back(itemId);
        return kResultAvailable;
    });
    EXPECT_EQ(asked, order);
}

TEST(ItemCatalogue, BuildsItemsInTheSameOrderAndOneWithoutMemoryStaysNull) {
    const std::vector<int> order(std::begin(buildingOrder), std::end(buildingOrder));
    const items::ResultCodeOf resultCodeOf = EveryItemHasResults;
    const auto build = [&](ItemArray& items) {
        items::BuildItemCatalogue(items, kSolidProject, resultCodeOf);
    };
    EXPECT_EQ(LostToFailingAllocations<ItemArray>(build), order);
}

TEST(ItemCatalogue, OnlyTheCodeOfAvailableResultsMeansAvailable) {
    for (const int code : {kResultNoK5s, kResultNoFiberResults, kResultNoFiberResultsNorO2w, 2,
                           kResultNoFiberResultsEither, 255}) {
        for (const auto& item : Catalogue(0, [code](std::int32_t) { return code; })) {
            EXPECT_EQ(item->isAvailable, item->itemId == kItemDigimatMucell)
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
        constexpr int codes[] = {kResultNoMeetingAngle, kResultNoDigimatInformation,
                                 kResultNoInsertFiberResults, kResultNoK5c,
                                 kResultNoMoldbaseNorK5c};
        return codes[itemId % 5];
    });
    EXPECT_EQ(items[kItemFiberOrientation]->options.at(kOptionResultsMissing),
              "No meeting angle information.");
    EXPECT_EQ(items[kItemRunner]->options.at(kOptionResultsMissing), "No digimat information");
    EXPECT_EQ(items[kItemMoldbaseMesh]->options.at(kOptionResultsMissing),
              "No part insert fiber results.");
    EXPECT_EQ(items[kItemFlowInducedStress]->options.at(kOptionResultsMissing), "No file *.k5c");
    EXPECT_EQ(items[kItemThermalStress]->options.at(kOptionResultsMissing),
              "No moldbase nor file *.k5c.");
}

TEST(ItemOptions, UnavailableItemHasTheReasonWhateverItsId) {
    for (int itemId = 0; itemId < kItemCount; ++itemId) {
        std::map<std::int32_t, std::string> options;
        EXPECT_EQ(items::BuildItemOptions(kSolidProject, itemId, kResultNoRunners, false, options),
                  kOptionResultsMissing);
        EXPECT_THAT(options, ElementsAre(Pair(kOptionResultsMissing, "No runners")))
            << "item " << itemId;
    }
}

TEST(ItemOptions, AvailabilityDecidesAndNotTheCode) {
    std::map<std::int32_t, std::string> options;
    EXPECT_EQ(items::BuildItemOptions(kSolidProject, kItemRunner, kResultAvailable, false, options),
              kOptionResultsMissing);
    EXPECT_THAT(options, ElementsAre(Pair(kOptionResultsMissing, "Unknown messages")));
    options.clear();
    EXPECT_EQ(items::BuildItemOptions(kSolidProject, kItemRunner, kResultNoRunners, true, options),
              0);
    EXPECT_THAT(options, ElementsAre(Pair(0, "Exclude runner"), Pair(1, "Include runner")));
}

TEST(ItemOptions, AvailableItemHasItsSetAndDefault) {
    for (const int solverType : solverTypes) {
        for (const expected::Item& item : expected::CatalogueOf(solverType)) {
            std::map<std::int32_t, std::string> options;
            EXPECT_EQ(
                items::BuildItemOptions(solverType, item.itemId, kResultAvailable, true, options),
                item.optionValue);
            EXPECT_EQ(options, item.options) << "item " << item.itemId;
        }
    }
}
