// Weld-line data through the manager: records per solver, the working data, and what reaches the
// file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2WeldlineDataStatus.h>

#include "tests/support/ControlFileText.h"
#include "tests/support/SampleProject.h"

using support::LineOf;
using support::OpenProject;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

void ExpectSubscriptError(const std::function<void()>& operation) {
    try {
        operation();
        ADD_FAILURE() << "no error";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "invalid vector<T> subscript");
    }
}

constexpr int faultySolvers[] = {std::numeric_limits<int>::min(), -1, 9, 10,
                                 std::numeric_limits<int>::max()};

CZorbI2WeldlineDataStatus RecordOf(OpenProject& project, int solver) {
    CZorbI2WeldlineDataStatus record;
    EXPECT_TRUE(project.manager.GetWeldlinePopData(solver, &record));
    return record;
}

CZorbI2WeldlineDataStatus& WorkingData(OpenProject& project) {
    return *project.Engine().weldlineAngleSet;
}

std::string Write(OpenProject& project) {
    project.manager.SetCMIFileFullPath("D:\\Out", "Cover", 3, "cmi");
    EXPECT_TRUE(project.manager.WriteCMIFile(0));
    return project.files.written["D:\\Out\\Cover03.cmi"];
}

/// The file's weld-line angles and its reduction rates, as they stand there.
std::string WrittenSections(const std::string& text) {
    const std::size_t start = text.find("[WELDLINE ANGLE]");
    return text.substr(start);
}

}  // namespace

// ---- A fresh engine -----------------------------------------------------------------------------

TEST(WeldlineOperations, EverySolverStartsWithTheSameAnglesAndRates) {
    OpenProject project;
    for (int solver = 0; solver < 9; ++solver) {
        const CZorbI2WeldlineDataStatus record = RecordOf(project, solver);
        EXPECT_EQ(record.solverIndex, solver);
        EXPECT_THAT(record.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
        EXPECT_THAT(record.ReductionRates, ElementsAre(0.8, 0.9, 0.95));
    }
}

TEST(WeldlineOperations, SolversThatAreNotOfferedHaveRecordsToo) {
    OpenProject project(support::CompleteProject(1));
    EXPECT_EQ(RecordOf(project, 8).solverIndex, 8);
    EXPECT_TRUE(project.manager.SetWeldlineDataStatus(7, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3}));
    EXPECT_THAT(RecordOf(project, 7).WeldlineAngles, ElementsAre(1.0, 2.0, 3.0));
}

// ---- SetWeldlineDataStatus ----------------------------------------------------------------------

TEST(WeldlineOperations, SettingARecordTakesThreeOfFourAnglesAndKeepsTheListThreeLong) {
    OpenProject project;
    EXPECT_TRUE(
        project.manager.SetWeldlineDataStatus(2, {10.0, 20.0, 30.0, 40.0}, {0.5, 0.6, 0.7}));
    const CZorbI2WeldlineDataStatus record = RecordOf(project, 2);
    EXPECT_EQ(record.solverIndex, 2);
    EXPECT_THAT(record.WeldlineAngles, ElementsAre(10.0, 20.0, 30.0));
    EXPECT_THAT(record.ReductionRates, ElementsAre(0.5, 0.6, 0.7));
    EXPECT_THAT(RecordOf(project, 1).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(RecordOf(project, 3).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
}

TEST(WeldlineOperations, SettingARecordOutsideTheNineSolversRaisesTheSubscriptError) {
    OpenProject project;
    for (const int solver : faultySolvers) {
        ExpectSubscriptError([&] {
            project.manager.SetWeldlineDataStatus(solver, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
        });
    }
    for (int solver = 0; solver < 9; ++solver) {
        EXPECT_THAT(RecordOf(project, solver).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    }
}

TEST(WeldlineOperations, SettingTooFewAnglesStoresThoseThatAreThere) {
    OpenProject project;
    ExpectSubscriptError([&] {
        project.manager.SetWeldlineDataStatus(4, {1.0, 2.0}, {0.1, 0.2, 0.3});
    });
    EXPECT_THAT(RecordOf(project, 4).WeldlineAngles, ElementsAre(1.0, 2.0, 90.0));
    EXPECT_THAT(RecordOf(project, 4).ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

TEST(WeldlineOperations, SettingTooFewRatesStoresAllAnglesAndTheRatesThatAreThere) {
    OpenProject project;
    ExpectSubscriptError([&] { project.manager.SetWeldlineDataStatus(4, {1.0, 2.0, 3.0}, {0.1}); });
    EXPECT_THAT(RecordOf(project, 4).WeldlineAngles, ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(RecordOf(project, 4).ReductionRates, ElementsAre(0.1, 0.9, 0.95));
}

TEST(WeldlineOperations, SettingARecordShortenedByHandStopsAtItsEnd) {
    OpenProject project;
    project.Selector().weldlineTable[4].WeldlineAngles.resize(1);
    ExpectSubscriptError([&] {
        project.manager.SetWeldlineDataStatus(4, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
    });
    EXPECT_THAT(RecordOf(project, 4).WeldlineAngles, ElementsAre(1.0));
    EXPECT_THAT(RecordOf(project, 4).ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

TEST(WeldlineOperations, SettingARecordTakesAnyNumber) {
    OpenProject project;
    EXPECT_TRUE(project.manager.SetWeldlineDataStatus(0, {-1.0, 0.0, 1e300}, {-2.0, 0.0, 7.0}));
    EXPECT_THAT(RecordOf(project, 0).WeldlineAngles, ElementsAre(-1.0, 0.0, 1e300));
    EXPECT_THAT(RecordOf(project, 0).ReductionRates, ElementsAre(-2.0, 0.0, 7.0));
}

TEST(WeldlineOperations, SettingTheRecordOfTheCurrentSolverDoesNotChangeTheWorkingData) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(3, 0, 0, 0);
    project.manager.SetWeldlineDataStatus(3, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
    EXPECT_THAT(WorkingData(project).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(WorkingData(project).ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

// ---- SetWeldlineDataValue -----------------------------------------------------------------------

TEST(WeldlineOperations, TakingTheRecordOfTheCurrentSolverReplacesTheWorkingLists) {
    OpenProject project;
    project.manager.SetWeldlineDataStatus(3, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
    WorkingData(project).WeldlineAngles = {9.0, 9.0, 9.0, 9.0};
    WorkingData(project).solverIndex = 6;
    project.manager.SetEngineCurrentStatus(3, 0, 0, 0);
    project.manager.SetWeldlineDataValue();
    EXPECT_THAT(WorkingData(project).WeldlineAngles, ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(WorkingData(project).ReductionRates, ElementsAre(0.1, 0.2, 0.3));
    EXPECT_EQ(WorkingData(project).solverIndex, 6);
}

TEST(WeldlineOperations, TakingARecordUsesOnlyItsFirstThreeElements) {
    OpenProject project;
    project.Selector().weldlineTable[0].WeldlineAngles = {1.0, 2.0, 3.0, 4.0};
    project.Selector().weldlineTable[0].ReductionRates = {0.1, 0.2, 0.3, 0.4};
    project.manager.SetEngineCurrentStatus(0, 0, 0, 0);
    project.manager.SetWeldlineDataValue();
    EXPECT_THAT(WorkingData(project).WeldlineAngles, ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(WorkingData(project).ReductionRates, ElementsAre(0.1, 0.2, 0.3));
}

TEST(WeldlineOperations, TakingARecordOutsideTheNineSolversLeavesTheWorkingData) {
    for (const int solver : faultySolvers) {
        OpenProject project;
        project.manager.SetEngineCurrentStatus(solver, 0, 0, 0);
        ExpectSubscriptError([&] { project.manager.SetWeldlineDataValue(); });
        EXPECT_THAT(WorkingData(project).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
        EXPECT_THAT(WorkingData(project).ReductionRates, ElementsAre(0.8, 0.9, 0.95));
    }
}

TEST(WeldlineOperations, TakingARecordWithTwoAnglesLeavesThoseTwoAndNoRates) {
    OpenProject project;
    project.Selector().weldlineTable[5].WeldlineAngles = {1.0, 2.0};
    project.manager.SetEngineCurrentStatus(5, 0, 0, 0);
    ExpectSubscriptError([&] { project.manager.SetWeldlineDataValue(); });
    EXPECT_THAT(WorkingData(project).WeldlineAngles, ElementsAre(1.0, 2.0));
    EXPECT_THAT(WorkingData(project).ReductionRates, IsEmpty());
    ExpectSubscriptError([&] { project.manager.WriteCMIFile(0); });
}

TEST(WeldlineOperations, TakingARecordWithTwoRatesLeavesAllAnglesAndThoseTwo) {
    OpenProject project;
    project.Selector().weldlineTable[5].ReductionRates = {0.1, 0.2};
    project.manager.SetEngineCurrentStatus(5, 0, 0, 0);
    ExpectSubscriptError([&] { project.manager.SetWeldlineDataValue(); });
    EXPECT_THAT(WorkingData(project).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(WorkingData(project).ReductionRates, ElementsAre(0.1, 0.2));
}

// ---- GetWeldlinePopData -------------------------------------------------------------------------

TEST(WeldlineOperations, ReadingARecordReplacesLongerAndShorterLists) {
    OpenProject project;
    CZorbI2WeldlineDataStatus target;
    target.solverIndex = 77;
    target.WeldlineAngles = {1.0, 2.0, 3.0, 4.0, 5.0};
    EXPECT_TRUE(project.manager.GetWeldlinePopData(4, &target));
    EXPECT_EQ(target.solverIndex, 4);
    EXPECT_THAT(target.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(target.ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

TEST(WeldlineOperations, ReadingARecordCopiesListsOfAnyLengthWhole) {
    OpenProject project;
    project.Selector().weldlineTable[1].WeldlineAngles = {1.0, 2.0, 3.0, 4.0};
    project.Selector().weldlineTable[1].ReductionRates.clear();
    const CZorbI2WeldlineDataStatus record = RecordOf(project, 1);
    EXPECT_THAT(record.WeldlineAngles, ElementsAre(1.0, 2.0, 3.0, 4.0));
    EXPECT_THAT(record.ReductionRates, IsEmpty());
}

TEST(WeldlineOperations, ReadingARecordGivesACopyOfItsOwn) {
    OpenProject project;
    CZorbI2WeldlineDataStatus record = RecordOf(project, 1);
    record.WeldlineAngles[0] = 1.0;
    EXPECT_THAT(RecordOf(project, 1).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
}

TEST(WeldlineOperations, ReadingARecordOutsideTheNineSolversLeavesTheTarget) {
    OpenProject project;
    for (const int solver : faultySolvers) {
        CZorbI2WeldlineDataStatus target;
        target.solverIndex = 77;
        target.WeldlineAngles = {1.0};
        ExpectSubscriptError([&] { project.manager.GetWeldlinePopData(solver, &target); });
        EXPECT_EQ(target.solverIndex, 77);
        EXPECT_THAT(target.WeldlineAngles, ElementsAre(1.0));
        EXPECT_THAT(target.ReductionRates, IsEmpty());
    }
}

// ---- What reaches the file ----------------------------------------------------------------------

TEST(WeldlineOperations, FileShowsTheStartingValuesUntilARecordIsTaken) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(3, 0, 0, 0);
    project.manager.SetWeldlineDataStatus(3, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
    EXPECT_EQ(WrittenSections(Write(project)),
              "[WELDLINE ANGLE]\n"
              "WeldlineAngle1 = 0.000\n"
              "WeldlineAngle2 = 30.000\n"
              "WeldlineAngle3 = 60.000\n"
              "WeldlineAngle4 = 90.000\n"
              "[\\WELDLINE ANGLE]\n"
              "[DIGIMAT WELDLINE ANGLE]\n"
              "WeldlineAngle = 135.000\n"
              "[\\DIGIMAT WELDLINE ANGLE]\n"
              "[REDUCTION RATE]\n"
              "ReductionRate1 = 0.800\n"
              "ReductionRate2 = 0.900\n"
              "ReductionRate3 = 0.950\n"
              "[\\REDUCTION RATE]\n");
}

TEST(WeldlineOperations, FileShowsTheThreeAnglesOneNumberHigher) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(3, 0, 0, 0);
    project.manager.SetWeldlineDataStatus(3, {15.5, 45.25, 75.125}, {0.5, 0.6, 0.7});
    project.manager.SetWeldlineDataValue();
    project.manager.SetDigimatWeldlineData(120.0);
    EXPECT_EQ(WrittenSections(Write(project)),
              "[WELDLINE ANGLE]\n"
              "WeldlineAngle1 = 0.000\n"
              "WeldlineAngle2 = 15.500\n"
              "WeldlineAngle3 = 45.250\n"
              "WeldlineAngle4 = 75.125\n"
              "[\\WELDLINE ANGLE]\n"
              "[DIGIMAT WELDLINE ANGLE]\n"
              "WeldlineAngle = 120.000\n"
              "[\\DIGIMAT WELDLINE ANGLE]\n"
              "[REDUCTION RATE]\n"
              "ReductionRate1 = 0.500\n"
              "ReductionRate2 = 0.600\n"
              "ReductionRate3 = 0.700\n"
              "[\\REDUCTION RATE]\n");
}

TEST(WeldlineOperations, FileKeepsTheRecordTakenLastWhenTheSolverChanges) {
    OpenProject project;
    project.manager.SetWeldlineDataStatus(3, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
    project.manager.SetEngineCurrentStatus(3, 0, 0, 0);
    project.manager.SetWeldlineDataValue();
    project.manager.SetEngineCurrentStatus(5, 0, 0, 0);
    EXPECT_EQ(LineOf(Write(project), "WeldlineAngle2"), "WeldlineAngle2 = 1.000\n");
    project.manager.SetWeldlineDataValue();
    EXPECT_EQ(LineOf(Write(project), "WeldlineAngle2"), "WeldlineAngle2 = 30.000\n");
}

TEST(WeldlineOperations, DigimatAngleTakesAnyNumber) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(0, 0, 0, 0);
    project.manager.SetDigimatWeldlineData(-5.0);
    EXPECT_EQ(project.Engine().digimatWeldlineAngle, -5.0);
    EXPECT_EQ(LineOf(Write(project), "WeldlineAngle ="), "WeldlineAngle = -5.000\n");
    project.manager.SetDigimatWeldlineData(1e20);
    EXPECT_EQ(LineOf(Write(project), "WeldlineAngle ="),
              "WeldlineAngle = 100000000000000000000.000\n");
}
