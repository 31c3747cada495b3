// The status of the solvers: kept per solver, mirrored for the current one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>

#include <zorbi2/ZorbI2Types.h>

#include "tests/support/SampleProject.h"

using support::OpenProject;
using testing::ElementsAre;

namespace {

/// Mesh kind, quadratic elements and annealing mode as read for a solver, -77 where untouched.
std::array<int, 3> StatusOf(OpenProject& project, int solver) {
    std::array<int, 3> status = {-77, -77, -77};
    project.manager.GetCurrentSolverStatus(solver, status[0], status[1], status[2]);
    return status;
}

std::array<int, 3> StatusOf(const SolverSlot& slot) {
    return {slot.meshKind, slot.quadraticElement, slot.annealingMode};
}

constexpr std::array<int, 3> untouched = {-77, -77, -77};
constexpr std::array<int, 3> zeros = {0, 0, 0};

}  // namespace

TEST(SolverStatus, IsKeptPerSolver) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(kSolverMscNastran, kMeshDeformed, 0,
                                           kAnnealingDeformedMesh);
    project.manager.SetEngineCurrentStatus(kSolverMarc, kMeshOriginal, 1, 0);
    EXPECT_THAT(StatusOf(project, kSolverMscNastran), ElementsAre(1, 0, 1));
    EXPECT_THAT(StatusOf(project, kSolverMarc), ElementsAre(0, 1, 0));
    EXPECT_EQ(project.Selector().currentItemStatusList,
              &project.Selector().itemStatusLists[kSolverMarc]);
}

TEST(SolverStatus, SetAgainReplacesTheValuesAndKeepsTheList) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(kSolverMscNastran, kMeshDeformed, 0,
                                           kAnnealingDeformedMesh);
    project.manager.SetEngineCurrentStatus(kSolverMscNastran, kMesh3DMappingShell, 7, -4);
    EXPECT_THAT(StatusOf(project, kSolverMscNastran), ElementsAre(3, 7, -4));
    EXPECT_EQ(project.Selector().currentItemStatusList,
              &project.Selector().itemStatusLists[kSolverMscNastran]);
}

TEST(SolverStatus, IsMirroredIntoTheSelector) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(kSolverNxNastran, kMeshDeformed, 2, 3);
    const PopItemSelector& selector = project.Selector();
    EXPECT_EQ(selector.currentSolver, kSolverNxNastran);
    EXPECT_EQ(selector.meshKind, 1);
    EXPECT_EQ(selector.quadraticElement, 2);
    EXPECT_EQ(selector.annealingMode, 3);
    EXPECT_EQ(selector.currentWeldlineIndex, kSolverNxNastran);
}

TEST(SolverStatus, OfEverySolverSelectsItsOwnSlotAndList) {
    OpenProject project;
    for (int solver = 0; solver < kSolverCount; ++solver) {
        project.manager.SetEngineCurrentStatus(solver, 10 + solver, 20 + solver, 30 + solver);
        EXPECT_EQ(project.Selector().currentItemStatusList,
                  &project.Selector().itemStatusLists[solver]);
    }
    for (int solver = 0; solver < kSolverCount; ++solver) {
        EXPECT_THAT(StatusOf(project, solver), ElementsAre(10 + solver, 20 + solver, 30 + solver));
    }
}

TEST(SolverStatus, IsReadFromTheSlotAndNotFromTheSelector) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(kSolverMscNastran, kMeshDeformed, 0,
                                           kAnnealingDeformedMesh);
    project.Selector().meshKind = 99;
    EXPECT_THAT(StatusOf(project, kSolverMscNastran), ElementsAre(1, 0, 1));
}

TEST(SolverStatus, IsZeroBeforeItIsSet) {
    OpenProject project;
    for (int solver = 0; solver < kSolverCount; ++solver) {
        EXPECT_EQ(StatusOf(project, solver), zeros);
    }
}

TEST(SolverStatus, OfASolverThatIsNotOfferedIsNotKeptButMakesItCurrent) {
    for (const int solver : {kSolverRadioss, kSolverWorkbench}) {
        OpenProject project(support::CompleteProject(kShellProject));
        project.manager.SetEngineCurrentStatus(kSolverMscNastran, kMeshDeformed, 0,
                                               kAnnealingDeformedMesh);
        project.manager.SetEngineCurrentStatus(solver, 2, 5, 6);
        EXPECT_EQ(StatusOf(project, solver), untouched);
        EXPECT_EQ(project.Engine().solverSlots[solver], nullptr);
        const PopItemSelector& selector = project.Selector();
        EXPECT_EQ(selector.currentSolver, solver);
        EXPECT_EQ(selector.meshKind, 2);
        EXPECT_EQ(selector.quadraticElement, 5);
        EXPECT_EQ(selector.annealingMode, 6);
        EXPECT_EQ(selector.currentItemStatusList, &selector.itemStatusLists[solver]);
        EXPECT_EQ(selector.currentWeldlineIndex, solver);
    }
}

TEST(SolverStatus, OutsideTheSolversKeepsSlotsAndListButNotTheWeldlineIndex) {
    for (const int solver : {kSolverCount, 100, -1, -2, std::numeric_limits<int>::min(),
                             std::numeric_limits<int>::max()}) {
        SCOPED_TRACE(solver);
        OpenProject project;
        project.manager.SetEngineCurrentStatus(kSolverNeNastran, kMeshDeformed, 2, 3);
        project.manager.SetEngineCurrentStatus(solver, 4, 5, 6);
        EXPECT_EQ(StatusOf(project, solver), untouched);
        for (const auto& slot : project.Engine().solverSlots) {
            EXPECT_EQ(StatusOf(*slot), slot->solverIndex == kSolverNeNastran
                                           ? (std::array<int, 3>{1, 2, 3})
                                           : zeros);
        }
        const PopItemSelector& selector = project.Selector();
        EXPECT_EQ(selector.currentSolver, solver);
        EXPECT_EQ(selector.meshKind, 4);
        EXPECT_EQ(selector.quadraticElement, 5);
        EXPECT_EQ(selector.annealingMode, 6);
        EXPECT_EQ(selector.currentItemStatusList, &selector.itemStatusLists[kSolverNeNastran]);
        EXPECT_EQ(selector.currentWeldlineIndex, solver);
    }
}

TEST(SolverStatus, OutsideTheSolversAtFirstLeavesNoList) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(kSolverCount, kMeshOriginal, 0, 0);
    EXPECT_EQ(project.Selector().currentItemStatusList, nullptr);
}

TEST(SolverStatus, DoesNotRebuildTheOfferedItems) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(kSolverLsDyna, kMesh3DMappingShell, 0, 0);
    project.manager.SetPopItems();
    project.manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    EXPECT_THAT(
        project.Selector().partPopItems,
        ElementsAre(kItemInitialStrain, kItemPackingTemperature, kItemEndOfCoolingTemperature));
}
