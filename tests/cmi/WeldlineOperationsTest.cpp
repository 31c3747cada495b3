// Weld-line data through the manager: records per solver, the working data, and what reaches the
// file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2WeldlineDataStatus.h>
#include <zorbi2/ZorbI2Types.h>

#include "tests/support/ControlFileText.h"
#include "tests/support/Errors.h"
#include "tests/support/SampleProject.h"

using support::kInvalidSubscript;
using support::LineOf;
using support::OpenProject;
using support::OutOfRangeText;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr int faultySolvers[] = {std::numeric_limits<int>::min(), -1, kSolverCount,
                                 kSolverCount + 1, std::numeric_limits<int>::max()};

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
    for (int solver = 0; solver < kSolverCount; ++solver) {
        const CZorbI2WeldlineDataStatus record = RecordOf(project, solver);
        EXPECT_EQ(record.solverIndex, solver);
        EXPECT_THAT(record.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
        EXPECT_THAT(record.ReductionRates, ElementsAre(0.8, 0.9, 0.95));
    }
}

TEST(WeldlineOperations, SolversThatAreNotOfferedHaveRecordsToo) {
    OpenProject project(support::CompleteProject(kShellProject));
    EXPECT_EQ(RecordOf(project, kSolverWorkbench).solverIndex, kSolverWorkbench);
    EXPECT_TRUE(
        project.manager.SetWeldlineDataStatus(kSolverRadioss, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3}));
    EXPECT_THAT(RecordOf(project, kSolverRadioss).WeldlineAngles, ElementsAre(1.0, 2.0, 3.0));
}

// ---- SetWeldlineDataStatus ----------------------------------------------------------------------

TEST(WeldlineOperations, SettingARecordTakesThreeOfFourAnglesAndKeepsTheListThreeLong) {
    OpenProject project;
    EXPECT_TRUE(project.manager.SetWeldlineDataStatus(kSolverMscNastran, {10.0, 20.0, 30.0, 40.0},
                                                      {0.5, 0.6, 0.7}));
    const CZorbI2WeldlineDataStatus record = RecordOf(project, kSolverMscNastran);
    EXPECT_EQ(record.solverIndex, kSolverMscNastran);
    EXPECT_THAT(record.WeldlineAngles, ElementsAre(10.0, 20.0, 30.0));
    EXPECT_THAT(record.ReductionRates, ElementsAre(0.5, 0.6, 0.7));
    EXPECT_THAT(RecordOf(project, kSolverAbaqus).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(RecordOf(project, kSolverNeNastran).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
}

TEST(WeldlineOperations, SettingARecordOutsideTheSolversRaisesTheSubscriptError) {
    OpenProject project;
    for (const int solver : faultySolvers) {
        EXPECT_EQ(
            OutOfRangeText([&] {
                project.manager.SetWeldlineDataStatus(solver, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
            }),
            kInvalidSubscript);
    }
    for (int solver = 0; solver < kSolverCount; ++solver) {
        EXPECT_THAT(RecordOf(project, solver).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    }
}

TEST(WeldlineOperations, SettingTooFewAnglesStoresThoseThatAreThere) {
    OpenProject project;
    EXPECT_EQ(OutOfRangeText([&] {
                  project.manager.SetWeldlineDataStatus(kSolverLsDyna, {1.0, 2.0}, {0.1, 0.2, 0.3});
              }),
              kInvalidSubscript);
    EXPECT_THAT(RecordOf(project, kSolverLsDyna).WeldlineAngles, ElementsAre(1.0, 2.0, 90.0));
    EXPECT_THAT(RecordOf(project, kSolverLsDyna).ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

TEST(WeldlineOperations, SettingTooFewRatesStoresAllAnglesAndTheRatesThatAreThere) {
    OpenProject project;
    EXPECT_EQ(OutOfRangeText([&] {
                  project.manager.SetWeldlineDataStatus(kSolverLsDyna, {1.0, 2.0, 3.0}, {0.1});
              }),
              kInvalidSubscript);
    EXPECT_THAT(RecordOf(project, kSolverLsDyna).WeldlineAngles, ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(RecordOf(project, kSolverLsDyna).ReductionRates, ElementsAre(0.1, 0.9, 0.95));
}

TEST(WeldlineOperations, SettingARecordShortenedByHandStopsAtItsEnd) {
    OpenProject project;
    project.Selector().weldlineTable[kSolverLsDyna].WeldlineAngles.resize(1);
    EXPECT_EQ(
        OutOfRangeText([&] {
            project.manager.SetWeldlineDataStatus(kSolverLsDyna, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
        }),
        kInvalidSubscript);
    EXPECT_THAT(RecordOf(project, kSolverLsDyna).WeldlineAngles, ElementsAre(1.0));
    EXPECT_THAT(RecordOf(project, kSolverLsDyna).ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

TEST(WeldlineOperations, SettingARecordTakesAnyNumber) {
    OpenProject project;
    EXPECT_TRUE(
        project.manager.SetWeldlineDataStatus(kSolverAnsys, {-1.0, 0.0, 1e300}, {-2.0, 0.0, 7.0}));
    EXPECT_THAT(RecordOf(project, kSolverAnsys).WeldlineAngles, ElementsAre(-1.0, 0.0, 1e300));
    EXPECT_THAT(RecordOf(project, kSolverAnsys).ReductionRates, ElementsAre(-2.0, 0.0, 7.0));
}

TEST(WeldlineOperations, SettingTheRecordOfTheCurrentSolverDoesNotChangeTheWorkingData) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(kSolverNeNastran, kMeshOriginal, 0, 0);
    project.manager.SetWeldlineDataStatus(kSolverNeNastran, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
    EXPECT_THAT(WorkingData(project).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(WorkingData(project).ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

// ---- SetWeldlineDataValue -----------------------------------------------------------------------

TEST(WeldlineOperations, TakingTheRecordOfTheCurrentSolverReplacesTheWorkingLists) {
    OpenProject project;
    project.manager.SetWeldlineDataStatus(kSolverNeNastran, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
    WorkingData(project).WeldlineAngles = {9.0, 9.0, 9.0, 9.0};
    WorkingData(project).solverIndex = kSolverNxNastran;
    project.manager.SetEngineCurrentStatus(kSolverNeNastran, kMeshOriginal, 0, 0);
    project.manager.SetWeldlineDataValue();
    EXPECT_THAT(WorkingData(project).WeldlineAngles, ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(WorkingData(project).ReductionRates, ElementsAre(0.1, 0.2, 0.3));
    EXPECT_EQ(WorkingData(project).solverIndex, kSolverNxNastran);
}

TEST(WeldlineOperations, TakingARecordUsesOnlyItsFirstThreeElements) {
    OpenProject project;
    project.Selector().weldlineTable[kSolverAnsys].WeldlineAngles = {1.0, 2.0, 3.0, 4.0};
    project.Selector().weldlineTable[kSolverAnsys].ReductionRates = {0.1, 0.2, 0.3, 0.4};
    project.manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    project.manager.SetWeldlineDataValue();
    EXPECT_THAT(WorkingData(project).WeldlineAngles, ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(WorkingData(project).ReductionRates, ElementsAre(0.1, 0.2, 0.3));
}

TEST(WeldlineOperations, TakingARecordOutsideTheSolversLeavesTheWorkingData) {
    for (const int solver : faultySolvers) {
        OpenProject project;
        project.manager.SetEngineCurrentStatus(solver, kMeshOriginal, 0, 0);
        EXPECT_EQ(OutOfRangeText([&] { project.manager.SetWeldlineDataValue(); }),
                  kInvalidSubscript);
        EXPECT_THAT(WorkingData(project).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
        EXPECT_THAT(WorkingData(project).ReductionRates, ElementsAre(0.8, 0.9, 0.95));
    }
}

TEST(WeldlineOperations, TakingARecordWithTwoAnglesLeavesThoseTwoAndNoRates) {
    OpenProject project;
    project.Selector().weldlineTable[kSolverMarc].WeldlineAngles = {1.0, 2.0};
    project.manager.SetEngineCurrentStatus(kSolverMarc, kMeshOriginal, 0, 0);
    EXPECT_EQ(OutOfRangeText([&] { project.manager.SetWeldlineDataValue(); }), kInvalidSubscript);
    EXPECT_THAT(WorkingData(project).WeldlineAngles, ElementsAre(1.0, 2.0));
    EXPECT_THAT(WorkingData(project).ReductionRates, IsEmpty());
    EXPECT_EQ(OutOfRangeText([&] { project.manager.WriteCMIFile(0); }), kInvalidSubscript);
}

TEST(WeldlineOperations, TakingARecordWithTwoRatesLeavesAllAnglesAndThoseTwo) {
    OpenProject project;
    project.Selector().weldlineTable[kSolverMarc].ReductionRates = {0.1, 0.2};
    project.manager.SetEngineCurrentStatus(kSolverMarc, kMeshOriginal, 0, 0);
    EXPECT_EQ(OutOfRangeText([&] { project.manager.SetWeldlineDataValue(); }), kInvalidSubscript);
    EXPECT_THAT(WorkingData(project).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(WorkingData(project).ReductionRates, ElementsAre(0.1, 0.2));
}

// ---- GetWeldlinePopData -------------------------------------------------------------------------

TEST(WeldlineOperations, ReadingARecordReplacesLongerAndShorterLists) {
    OpenProject project;
    CZorbI2WeldlineDataStatus target;
    target.solverIndex = 77;
    target.WeldlineAngles = {1.0, 2.0, 3.0, 4.0, 5.0};
    EXPECT_TRUE(project.manager.GetWeldlinePopData(kSolverLsDyna, &target));
    EXPECT_EQ(target.solverIndex, kSolverLsDyna);
    EXPECT_THAT(target.WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
    EXPECT_THAT(target.ReductionRates, ElementsAre(0.8, 0.9, 0.95));
}

TEST(WeldlineOperations, ReadingARecordCopiesListsOfAnyLengthWhole) {
    OpenProject project;
    project.Selector().weldlineTable[kSolverAbaqus].WeldlineAngles = {1.0, 2.0, 3.0, 4.0};
    project.Selector().weldlineTable[kSolverAbaqus].ReductionRates.clear();
    const CZorbI2WeldlineDataStatus record = RecordOf(project, kSolverAbaqus);
    EXPECT_THAT(record.WeldlineAngles, ElementsAre(1.0, 2.0, 3.0, 4.0));
    EXPECT_THAT(record.ReductionRates, IsEmpty());
}

TEST(WeldlineOperations, ReadingARecordGivesACopyOfItsOwn) {
    OpenProject project;
    CZorbI2WeldlineDataStatus record = RecordOf(project, kSolverAbaqus);
    record.WeldlineAngles[0] = 1.0;
    EXPECT_THAT(RecordOf(project, kSolverAbaqus).WeldlineAngles, ElementsAre(30.0, 60.0, 90.0));
}

TEST(WeldlineOperations, ReadingARecordOutsideTheSolversLeavesTheTarget) {
    OpenProject project;
    for (const int solver : faultySolvers) {
        CZorbI2WeldlineDataStatus target;
        target.solverIndex = 77;
        target.WeldlineAngles = {1.0};
        EXPECT_EQ(OutOfRangeText([&] { project.manager.GetWeldlinePopData(solver, &target); }),
                  kInvalidSubscript);
        EXPECT_EQ(target.solverIndex, 77);
        EXPECT_THAT(target.WeldlineAngles, ElementsAre(1.0));
        EXPECT_THAT(target.ReductionRates, IsEmpty());
    }
}

// ---- What reaches the file ----------------------------------------------------------------------

TEST(WeldlineOperations, FileShowsTheStartingValuesUntilARecordIsTaken) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(kSolverNeNastran, kMeshOriginal, 0, 0);
    project.manager.SetWeldlineDataStatus(kSolverNeNastran, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
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
    project.manager.SetEngineCurrentStatus(kSolverNeNastran, kMeshOriginal, 0, 0);
    project.manager.SetWeldlineDataStatus(kSolverNeNastran, {15.5, 45.25, 75.125}, {0.5, 0.6, 0.7});
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
    project.manager.SetWeldlineDataStatus(kSolverNeNastran, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3});
    project.manager.SetEngineCurrentStatus(kSolverNeNastran, kMeshOriginal, 0, 0);
    project.manager.SetWeldlineDataValue();
    project.manager.SetEngineCurrentStatus(kSolverMarc, kMeshOriginal, 0, 0);
    EXPECT_EQ(LineOf(Write(project), "WeldlineAngle2"), "WeldlineAngle2 = 1.000\n");
    project.manager.SetWeldlineDataValue();
    EXPECT_EQ(LineOf(Write(project), "WeldlineAngle2"), "WeldlineAngle2 = 30.000\n");
}

TEST(WeldlineOperations, DigimatAngleTakesAnyNumber) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    project.manager.SetDigimatWeldlineData(-5.0);
    EXPECT_EQ(project.Engine().digimatWeldlineAngle, -5.0);
    EXPECT_EQ(LineOf(Write(project), "WeldlineAngle"), "WeldlineAngle = -5.000\n");
    project.manager.SetDigimatWeldlineData(1e20);
    EXPECT_EQ(LineOf(Write(project), "WeldlineAngle"),
              "WeldlineAngle = 100000000000000000000.000\n");
}
