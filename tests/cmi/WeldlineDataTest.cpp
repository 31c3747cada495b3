// Weld-line records and the working data, without an engine.
#include "cmi/WeldlineData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <zorbi2/ZorbI2Types.h>

#include "tests/support/Errors.h"

using support::kInvalidSubscript;
using support::OutOfRangeText;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using Table = std::vector<CZorbI2WeldlineDataStatus>;

Table FreshTable() {
    return cmi::BuildWeldlineTable(cmi::DefaultWeldlineData());
}

constexpr std::int32_t faultySolvers[] = {
    std::numeric_limits<std::int32_t>::min(), -2, -1, kSolverCount, kSolverCount + 1,
    std::numeric_limits<std::int32_t>::max()};

}  // namespace

TEST(WeldlineData, StartsWithThreeAnglesAndThreeRates) {
    const CZorbI2WeldlineDataStatus data = cmi::DefaultWeldlineData();
    EXPECT_EQ(data.solverIndex, kSolverAnsys);
    EXPECT_THAT(data.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(data.ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

TEST(WeldlineData, TableHasOneRecordPerSolverWithTheWorkingValues) {
    CZorbI2WeldlineDataStatus workingData;
    workingData.solverIndex = 77;
    workingData.WeldlineAngles = {1.0, 2.0, 3.0, 4.0};
    workingData.ReductionRates = {0.1};
    const Table table = cmi::BuildWeldlineTable(workingData);
    ASSERT_THAT(table, SizeIs(kSolverCount));
    for (std::int32_t solver = 0; solver < kSolverCount; ++solver) {
        EXPECT_EQ(table[solver].solverIndex, solver);
        EXPECT_THAT(table[solver].WeldlineAngles, ElementsAre(1.0, 2.0, 3.0, 4.0));
        EXPECT_THAT(table[solver].ReductionRates, ElementsAre(0.1));
    }
}

// ---- Storing into a record ----------------------------------------------------------------------

TEST(WeldlineDataStore, OverwritesTheFirstThreeOfOneRecordAndKeepsItsLength) {
    Table table = FreshTable();
    table[kSolverMscNastran].WeldlineAngles = {1.0, 2.0, 3.0, 4.0, 5.0};
    cmi::StoreWeldlineValues(table, kSolverMscNastran, {10.0, 20.0, 30.0, 40.0},
                             {0.5, 0.6, 0.7, 0.8});
    EXPECT_THAT(table[kSolverMscNastran].WeldlineAngles, ElementsAre(10.0, 20.0, 30.0, 4.0, 5.0));
    EXPECT_THAT(table[kSolverMscNastran].ReductionRates, ElementsAre(0.5, 0.6, 0.7));
    EXPECT_EQ(table[kSolverMscNastran].solverIndex, kSolverMscNastran);
    for (std::int32_t other = 0; other < kSolverCount; ++other) {
        if (other == kSolverMscNastran) {
            continue;
        }
        EXPECT_THAT(table[other].WeldlineAngles, ElementsAre(30.0, 60.0, 90.0)) << other;
        EXPECT_THAT(table[other].ReductionRates, ElementsAre(0.8, 0.9, 0.95)) << other;
    }
}

TEST(WeldlineDataStore, RefusesASolverOutsideTheTable) {
    for (const std::int32_t solver : faultySolvers) {
        SCOPED_TRACE(solver);
        Table table = FreshTable();
        EXPECT_EQ(OutOfRangeText([&] {
                      cmi::StoreWeldlineValues(table, solver, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
                  }),
                  kInvalidSubscript);
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
    EXPECT_EQ(OutOfRangeText([&] {
                  cmi::StoreWeldlineValues(table, kSolverNxNastran, GetParam().angles,
                                           GetParam().rates);
              }),
              kInvalidSubscript);
    EXPECT_EQ(table[kSolverNxNastran].WeldlineAngles, GetParam().storedAngles);
    EXPECT_EQ(table[kSolverNxNastran].ReductionRates, GetParam().storedRates);
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
    table[kSolverNeNastran].WeldlineAngles = {30.0, 60.0};
    EXPECT_EQ(
        OutOfRangeText([&] {
            cmi::StoreWeldlineValues(table, kSolverNeNastran, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
        }),
        kInvalidSubscript);
    EXPECT_THAT(table[kSolverNeNastran].WeldlineAngles, ElementsAre(1.0, 2.0));
    EXPECT_THAT(table[kSolverNeNastran].ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

TEST(WeldlineDataStore, StopsWhereTheRecordsRatesEnd) {
    Table table = FreshTable();
    table[kSolverNeNastran].ReductionRates = {0.8};
    EXPECT_EQ(
        OutOfRangeText([&] {
            cmi::StoreWeldlineValues(table, kSolverNeNastran, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
        }),
        kInvalidSubscript);
    EXPECT_THAT(table[kSolverNeNastran].WeldlineAngles, ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(table[kSolverNeNastran].ReductionRates, ElementsAre(0.1));
}

// ---- Taking a record into the working data ------------------------------------------------------

TEST(WeldlineDataTake, ReplacesTheWorkingListsByTheFirstThreeOfTheRecord) {
    Table table = FreshTable();
    table[kSolverMarc].WeldlineAngles = {1.0, 2.0, 3.0, 4.0};
    table[kSolverMarc].ReductionRates = {0.1, 0.2, 0.3, 0.4, 0.5};
    CZorbI2WeldlineDataStatus workingData;
    workingData.solverIndex = 77;
    workingData.WeldlineAngles = {9.0};
    workingData.ReductionRates = {9.0, 9.0, 9.0, 9.0};

    cmi::TakeWeldlineValues(table, kSolverMarc, workingData);

    EXPECT_EQ(workingData.solverIndex, 77);
    EXPECT_THAT(workingData.WeldlineAngles, ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(workingData.ReductionRates, ElementsAre(0.1, 0.2, 0.3));
    EXPECT_THAT(table[kSolverMarc].WeldlineAngles, ElementsAre(1.0, 2.0, 3.0, 4.0));
}

TEST(WeldlineDataTake, OfARecordOutsideTheTableLeavesTheWorkingData) {
    for (const std::int32_t solver : faultySolvers) {
        SCOPED_TRACE(solver);
        CZorbI2WeldlineDataStatus workingData = cmi::DefaultWeldlineData();
        const Table table = FreshTable();
        EXPECT_EQ(OutOfRangeText([&] { cmi::TakeWeldlineValues(table, solver, workingData); }),
                  kInvalidSubscript);
        EXPECT_THAT(workingData.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
        EXPECT_THAT(workingData.ReductionRates, ElementsAre(0.8, 0.9, 0.95));
    }
}

TEST(WeldlineDataTake, OfARecordWithTwoAnglesLeavesThoseTwoAndNoRates) {
    Table table = FreshTable();
    table[kSolverAnsys].WeldlineAngles = {1.0, 2.0};
    CZorbI2WeldlineDataStatus workingData = cmi::DefaultWeldlineData();
    EXPECT_EQ(OutOfRangeText([&] { cmi::TakeWeldlineValues(table, kSolverAnsys, workingData); }),
              kInvalidSubscript);
    EXPECT_THAT(workingData.WeldlineAngles, ElementsAre(1.0, 2.0));
    EXPECT_THAT(workingData.ReductionRates, IsEmpty());
}

TEST(WeldlineDataTake, OfARecordWithoutAnglesLeavesBothListsEmpty) {
    Table table = FreshTable();
    table[kSolverAnsys].WeldlineAngles.clear();
    CZorbI2WeldlineDataStatus workingData = cmi::DefaultWeldlineData();
    EXPECT_EQ(OutOfRangeText([&] { cmi::TakeWeldlineValues(table, kSolverAnsys, workingData); }),
              kInvalidSubscript);
    EXPECT_THAT(workingData.WeldlineAngles, IsEmpty());
    EXPECT_THAT(workingData.ReductionRates, IsEmpty());
}

TEST(WeldlineDataTake, OfARecordWithOneRateLeavesAllAnglesAndThatRate) {
    Table table = FreshTable();
    table[kSolverAnsys].ReductionRates = {0.1};
    CZorbI2WeldlineDataStatus workingData = cmi::DefaultWeldlineData();
    EXPECT_EQ(OutOfRangeText([&] { cmi::TakeWeldlineValues(table, kSolverAnsys, workingData); }),
              kInvalidSubscript);
    EXPECT_THAT(workingData.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(workingData.ReductionRates, ElementsAre(0.1));
}
