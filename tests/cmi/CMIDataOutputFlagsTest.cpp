// The output flag of every item, over all options, check states and availability.
#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/ZorbI2Types.h>

#include "tests/support/FillInputs.h"

using support::FillInputs;

namespace {

/// The flag of an available item for one option, by the kind of item; check items by check state.
struct FlagRow {
    std::int32_t option;
    int reduction;   // fiber orientation, insert fiber material
    int runner;      // of the runner
    int density;     // of the density
    int noCheck;     // all other items, check state -1
    int unchecked;   // check state 0
    int checked;     // check state 1
    int checkedTwo;  // check state 2
};

// clang-format off
const std::vector<FlagRow> flagRows = {
    //   reduction runner density   check state -1  0  1  2
    {-3,     1,      0,     1,                   0, 0, 1, 0},
    {-2,     0,      0,     0,                   0, 0, 0, 0},
    {-1,     1,      0,     1,                   0, 0, 1, 0},
    { 0,     1,      0,     0,                   1, 1, 1, 1},
    { 1,     1,      1,     1,                   1, 1, 1, 1},
    { 2,     1,      0,     1,                   1, 1, 1, 1},
    { 3,     1,      0,     1,                   1, 1, 1, 1},
    { 4,     1,      0,     1,                   1, 1, 1, 1},
    { 5,     0,      0,     1,                   1, 1, 1, 1},
    { 6,     1,      0,     1,                   1, 1, 1, 1},
    { 7,     1,      0,     1,                   1, 1, 1, 1},
    { 8,     1,      0,     1,                   1, 1, 1, 1},
};
// clang-format on

int ExpectedFlag(std::int32_t itemId, std::int32_t checkState, const FlagRow& row) {
    switch (itemId) {
        case kItemFiberOrientation:
        case kItemInsertFiberMaterial:
            return row.reduction;
        case kItemRunner:
            return row.runner;
        case kItemDensity:
            return row.density;
        default:
            break;
    }
    switch (checkState) {
        case kNotACheckItem:
            return row.noCheck;
        case 0:
            return row.unchecked;
        case 1:
            return row.checked;
        default:
            return row.checkedTwo;
    }
}

class OutputFlagOfItem : public testing::TestWithParam<std::int32_t> {};

/// Checks the flags of all items; micromechanics has none.
void ExpectOnlyFlag(std::int32_t itemId, int expected, const CZorbI2CMIData& data) {
    for (std::int32_t other = 0; other < kItemCount; ++other) {
        EXPECT_EQ(data.OutputFlags[other],
                  other == itemId && itemId != kItemMicroMechanics ? expected : 0)
            << "flag " << other;
    }
}

}  // namespace

TEST_P(OutputFlagOfItem, FollowsOptionAndCheckStateWhenAvailable) {
    for (const FlagRow& row : flagRows) {
        for (const std::int32_t checkState : {kNotACheckItem, 0, 1, 2}) {
            SCOPED_TRACE("option " + std::to_string(row.option) + ", check state " +
                         std::to_string(checkState));
            FillInputs inputs;
            inputs.SetItem(GetParam(), true, checkState, row.option);
            ExpectOnlyFlag(GetParam(), ExpectedFlag(GetParam(), checkState, row),
                           inputs.FilledBlock());
        }
    }
}

TEST_P(OutputFlagOfItem, IsOffWhenNotAvailableWhateverIsChosen) {
    for (const FlagRow& row : flagRows) {
        for (const std::int32_t checkState : {kNotACheckItem, 0, 1, 2}) {
            SCOPED_TRACE("option " + std::to_string(row.option) + ", check state " +
                         std::to_string(checkState));
            FillInputs inputs;
            inputs.SetItem(GetParam(), false, checkState, row.option);
            ExpectOnlyFlag(GetParam(), 0, inputs.FilledBlock());
        }
    }
}

TEST_P(OutputFlagOfItem, IsOffForAnItemThatWasNeverBuilt) {
    FillInputs inputs;
    inputs.items[GetParam()].reset();
    ExpectOnlyFlag(GetParam(), 0, inputs.FilledBlock());
}

INSTANTIATE_TEST_SUITE_P(AllItems, OutputFlagOfItem, testing::Range(0, kItemCount),
                         [](const auto& row) { return "Item" + std::to_string(row.param); });

TEST(CMIDataOutputFlags, FlagOfMicroMechanicsStaysAsItIs) {
    FillInputs inputs;
    inputs.SetItem(kItemMicroMechanics, true, 1, 2);
    CZorbI2CMIData data;
    data.OutputFlags[kItemMicroMechanics] = 4711;

    cmi::FillCMIData(data, inputs.Source());

    EXPECT_EQ(data.OutputFlags[kItemMicroMechanics], 4711);
}

TEST(CMIDataOutputFlags, AreOffForUncheckedItemsAndOnForOptionItemsWithARealOption) {
    FillInputs inputs;
    for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
        inputs.SetItem(itemId, true, 0, kOptionNone);
    }
    for (const std::int32_t optionItem :
         {kItemFiberOrientation, kItemDigimatExport, kItemInsertFiberMaterial}) {
        inputs.SetItem(optionItem, true, kNotACheckItem, 0);
    }
    for (const std::int32_t optionItem : {kItemRunner, kItemDensity}) {
        inputs.SetItem(optionItem, true, kNotACheckItem, 1);
    }

    const CZorbI2CMIData data = inputs.FilledBlock();

    const std::set<std::int32_t> on = {kItemFiberOrientation, kItemRunner, kItemDigimatExport,
                                       kItemInsertFiberMaterial, kItemDensity};
    for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
        EXPECT_EQ(data.OutputFlags[itemId], on.count(itemId)) << "item " << itemId;
    }
}
