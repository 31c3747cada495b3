// Weld-line records and the working data, without an engine.
#include "cmi/WeldlineData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using Table = std::vector<CZorbI2WeldlineDataStatus>;

Table FreshTable() {
    return cmi::BuildWeldlineTable(cmi::DefaultWeldlineData());
}

void ExpectSubscriptError(const std::function<void()>& operation) {
    try {
        operation();
        ADD_FAILURE() << "no error";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "invalid vector<T> subscript");
    }
}

constexpr std::int32_t faultySolvers[] = {std::numeric_limits<std::int32_t>::min(), -2, -1, 9, 10,
                                          std::numeric_limits<std::int32_t>::max()};

}  // namespace

TEST(WeldlineData, StartsWithThreeAnglesAndThreeRates) {
    const CZorbI2WeldlineDataStatus data = cmi::DefaultWeldlineData();
    EXPECT_EQ(data.solverIndex, 0);
    EXPECT_THAT(data.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(data.ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

TEST(WeldlineData, TableHasOneRecordPerSolverWithTheWorkingValues) {
    CZorbI2WeldlineDataStatus workingData;
    workingData.solverIndex = 77;
    workingData.WeldlineAngles = {1.0, 2.0, 3.0, 4.0};
    workingData.ReductionRates = {0.1};
    const Table table = cmi::BuildWeldlineTable(workingData);
    ASSERT_THAT(table, SizeIs(9));
    for (std::int32_t solver = 0; solver < 9; ++solver) {
        EXPECT_EQ(table[solver].solverIndex, solver);
        EXPECT_THAT(table[solver].WeldlineAngles, ElementsAre(1.0, 2.0, 3.0, 4.0));
        EXPECT_THAT(table[solver].ReductionRates, ElementsAre(0.1));
    }
}

// ---- Storing into a record ----------------------------------------------------------------------

TEST(WeldlineDataStore, OverwritesTheFirstThreeOfOneRecordAndKeepsItsLength) {
    Table table = FreshTable();
    table[2].WeldlineAngles = {1.0, 2.0, 3.0, 4.0, 5.0};
    cmi::StoreWeldlineValues(table, 2, {10.0, 20.0, 30.0, 40.0}, {0.5, 0.6, 0.7, 0.8});
    EXPECT_THAT(table[2].WeldlineAngles, ElementsAre(10.0, 20.0, 30.0, 4.0, 5.0));
    EXPECT_THAT(table[2].ReductionRates, ElementsAre(0.5, 0.6, 0.7));
    EXPECT_EQ(table[2].solverIndex, 2);
    for (const std::int32_t other : {0, 1, 3, 4, 5, 6, 7, 8}) {
        EXPECT_THAT(table[other].WeldlineAngles, ElementsAre(30.0, 60.0, 90.0)) << other;
        EXPECT_THAT(table[other].ReductionRates, ElementsAre(0.8, 0.9, 0.95)) << other;
    }
}

TEST(WeldlineDataStore, RefusesASolverOutsideTheTable) {
    for (const std::int32_t solver : faultySolvers) {
        SCOPED_TRACE(solver);
        Table table = FreshTable();
        ExpectSubscriptError([&] {
            cmi::StoreWeldlineValues(table, solver, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
        });
        for (const CZorbI2WeldlineDataStatus& record : table) {
            EXPECT_THAT(record.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
            EXPECT_THAT(record.ReductionRates, ElementsAre(0.8, 0.9, 0.95));
        }
    }
}

namespace {

struct PartialStore {
    const char* name;
    std::vector<double> angles;
    std::vector<double> rates;
    std::vector<double> storedAngles;  // the record starts with 30, 60, 90 and 0.8, 0.9, 0.95
    std::vector<double> storedRates;
};

std::ostream& operator<<(std::ostream& stream, const PartialStore& row) {
    return stream << row.name;
}

class ShortArguments : public testing::TestWithParam<PartialStore> {};

}  // namespace

TEST_P(ShortArguments, LeaveStoredWhatStoodBeforeTheFault) {
    Table table = FreshTable();
    ExpectSubscriptError(
        [&] { cmi::StoreWeldlineValues(table, 6, GetParam().angles, GetParam().rates); });
    EXPECT_EQ(table[6].WeldlineAngles, GetParam().storedAngles);
    EXPECT_EQ(table[6].ReductionRates, GetParam().storedRates);
}

INSTANTIATE_TEST_SUITE_P(
    WeldlineDataStore, ShortArguments,
    testing::Values(
        PartialStore{"NoAngles", {}, {0.1, 0.2, 0.3}, {30.0, 60.0, 90.0}, {0.8, 0.9, 0.95}},
        PartialStore{"OneAngle", {1.0}, {0.1, 0.2, 0.3}, {1.0, 60.0, 90.0}, {0.8, 0.9, 0.95}},
        PartialStore{"TwoAngles", {1.0, 2.0}, {0.1, 0.2, 0.3}, {1.0, 2.0, 90.0}, {0.8, 0.9, 0.95}},
        PartialStore{"NoRates", {1.0, 2.0, 3.0}, {}, {1.0, 2.0, 3.0}, {0.8, 0.9, 0.95}},
        PartialStore{"OneRate", {1.0, 2.0, 3.0}, {0.1}, {1.0, 2.0, 3.0}, {0.1, 0.9, 0.95}},
        PartialStore{"TwoRates", {1.0, 2.0, 3.0}, {0.1, 0.2}, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.95}},
        PartialStore{"Nothing", {}, {}, {30.0, 60.0, 90.0}, {0.8, 0.9, 0.95}}),
    [](const auto& row) { return row.param.name; });

TEST(WeldlineDataStore, StopsWhereTheRecordsAnglesEnd) {
    Table table = FreshTable();
    table[3].WeldlineAngles = {30.0, 60.0};
    ExpectSubscriptError([&] {
        cmi::StoreWeldlineValues(table, 3, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
    });
    EXPECT_THAT(table[3].WeldlineAngles, ElementsAre(1.0, 2.0));
    EXPECT_THAT(table[3].ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

TEST(WeldlineDataStore, StopsWhereTheRecordsRatesEnd) {
    Table table = FreshTable();
    table[3].ReductionRates = {0.8};
    ExpectSubscriptError([&] {
        cmi::StoreWeldlineValues(table, 3, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
    });
    EXPECT_THAT(table[3].WeldlineAngles, ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(table[3].ReductionRates, ElementsAre(0.1));
}

// ---- Taking a record into the working data ------------------------------------------------------

TEST(WeldlineDataTake, ReplacesTheWorkingListsByTheFirstThreeOfTheRecord) {
    Table table = FreshTable();
    table[5].WeldlineAngles = {1.0, 2.0, 3.0, 4.0};
    table[5].ReductionRates = {0.1, 0.2, 0.3, 0.4, 0.5};
    CZorbI2WeldlineDataStatus workingData;
    workingData.solverIndex = 77;
    workingData.WeldlineAngles = {9.0};
    workingData.ReductionRates = {9.0, 9.0, 9.0, 9.0};

    cmi::TakeWeldlineValues(table, 5, workingData);

    EXPECT_EQ(workingData.solverIndex, 77);
    EXPECT_THAT(workingData.WeldlineAngles, ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(workingData.ReductionRates, ElementsAre(0.1, 0.2, 0.3));
    EXPECT_THAT(table[5].WeldlineAngles, ElementsAre(1.0, 2.0, 3.0, 4.0));
}

TEST(WeldlineDataTake, OfARecordOutsideTheTableLeavesTheWorkingData) {
    for (const std::int32_t solver : faultySolvers) {
        SCOPED_TRACE(solver);
        CZorbI2WeldlineDataStatus workingData = cmi::DefaultWeldlineData();
        const Table table = FreshTable();
        ExpectSubscriptError([&] { cmi::TakeWeldlineValues(table, solver, workingData); });
        EXPECT_THAT(workingData.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
        EXPECT_THAT(workingData.ReductionRates, ElementsAre(0.8, 0.9, 0.95));
    }
}

TEST(WeldlineDataTake, OfARecordWithTwoAnglesLeavesThoseTwoAndNoRates) {
    Table table = FreshTable();
    table[0].WeldlineAngles = {1.0, 2.0};
    CZorbI2WeldlineDataStatus workingData = cmi::DefaultWeldlineData();
    ExpectSubscriptError([&] { cmi::TakeWeldlineValues(table, 0, workingData); });
    EXPECT_THAT(workingData.WeldlineAngles, ElementsAre(1.0, 2.0));
    EXPECT_THAT(workingData.ReductionRates, IsEmpty());
}

TEST(WeldlineDataTake, OfARecordWithoutAnglesLeavesBothListsEmpty) {
    Table table = FreshTable();
    table[0].WeldlineAngles.clear();
    CZorbI2WeldlineDataStatus workingData = cmi::DefaultWeldlineData();
    ExpectSubscriptError([&] { cmi::TakeWeldlineValues(table, 0, workingData); });
    EXPECT_THAT(workingData.WeldlineAngles, IsEmpty());
    EXPECT_THAT(workingData.ReductionRates, IsEmpty());
}

TEST(WeldlineDataTake, OfARecordWithOneRateLeavesAllAnglesAndThatRate) {
    Table table = FreshTable();
    table[0].ReductionRates = {0.1};
    CZorbI2WeldlineDataStatus workingData = cmi::DefaultWeldlineData();
    ExpectSubscriptError([&] { cmi::TakeWeldlineValues(table, 0, workingData); });
    EXPECT_THAT(workingData.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(workingData.ReductionRates, ElementsAre(0.1));
}
