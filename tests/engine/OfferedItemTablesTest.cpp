// Which items are offered, for every kind of project and every status.
#include "engine/OfferedItemTables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <zorbi2/ZorbI2Types.h>

#include "tests/support/SampleProject.h"

using support::OpenProject;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

using Ids = std::vector<std::int32_t>;

struct Lists {
    Ids part;
    Ids partInsert;
    Ids moldbase;
};

// clang-format off
const std::map<std::string, Lists> tables = {
    {"-",   {{}, {}, {}}},
    {"T1",  {{15, 0, 1, 4, 3, 5, 8, 9, 11, 16, 17, 18, 19, 20, 13, 14}, {6, 12}, {2, 7, 10}}},
    {"T2",  {{15, 0, 1, 5, 8, 9, 11, 16, 17, 18, 19, 20, 13, 14}, {6, 12}, {2, 7, 10}}},
    {"T3",  {{15, 0, 1, 5, 8, 9, 13, 14}, {6, 12}, {2, 7, 10}}},
    {"T4",  {{15, 0, 1, 11, 16, 17, 18, 19, 20, 13, 14}, {12}, {}}},
    {"T5",  {{15, 0, 1, 11, 16, 17, 18, 19, 20, 13, 14}, {}, {}}},
    {"T6",  {{15, 0, 1, 11, 16, 17, 18, 19, 20, 13, 14, 21}, {}, {}}},
    {"T7",  {{15, 0, 1, 11, 16, 17, 18, 19, 20, 13, 14, 21}, {12}, {}}},
    {"T8",  {{15, 0, 1, 13, 14}, {}, {}}},
    {"T9",  {{15, 0, 1, 4, 3, 5, 8, 9, 13, 14}, {}, {}}},
    {"T10", {{5, 8, 9}, {}, {}}},
    {"T11", {{0, 5, 8}, {}, {}}},
    {"T12", {{0}, {}, {}}},
    {"T13", {{0, 5, 8, 11}, {}, {}}},
    {"T14", {{0, 11}, {}, {}}},
    {"T15", {{0, 5, 8, 9, 11}, {}, {}}},
};

/// Tables by mesh kind 0 to 3 and any other. Three names stand for annealing mode 0, 1 and other.
using Row = std::vector<std::string>;
const Row nothing = {"-", "-", "-", "-", "-"};

const std::map<int, Row> solidOffers = {
    {0, {"T1", "T4 T7 -",  "T1", "-",   "-"}},
    {1, {"T1", "T4 T7 T4", "T1", "-",   "-"}},
    {2, {"T2", "T5",       "T2", "-",   "-"}},
    {3, {"T3", "T8",       "T3", "-",   "-"}},
    {4, {"T1", "T5 T6 T5", "T1", "T10", "-"}},
    {5, {"T1", "T5 T6 T5", "T1", "-",   "-"}},
    {6, {"T3", "T8",       "T3", "-",   "-"}},
    {7, {"T2", "T5",       "T2", "-",   "-"}},
    {8, {"T9", "T9",       "T9", "T9",  "T9"}},
};

const std::map<int, Row> solidVoxelOffers = {
    {0, {"-",  "-",  "T1", "-",   "-"}},
    {1, {"-",  "-",  "T1", "-",   "-"}},
    {2, {"-",  "-",  "T2", "-",   "-"}},
    {3, {"-",  "-",  "T3", "-",   "-"}},
    {4, {"-",  "-",  "T1", "T10", "-"}},
    {5, {"-",  "-",  "T1", "-",   "-"}},
    {6, {"-",  "-",  "T3", "-",   "-"}},
    {7, {"-",  "-",  "T2", "-",   "-"}},
    {8, {"T9", "T9", "T9", "T9",  "T9"}},
};

const std::map<int, Row> shellOffers = {
    {0, {"T13", "T12", "T13", "-", "-"}},
    {1, {"T15", "T12", "T15", "-", "-"}},
    {2, {"T12", "T12", "T12", "-", "-"}},
    {3, {"T12", "T12", "T12", "-", "-"}},
    {4, {"T14", "T12", "T14", "-", "-"}},
    {5, {"T11", "T12", "T11", "-", "-"}},
    {6, {"T12", "T12", "T12", "-", "-"}},
    {7, {"T12", "T12", "T12", "-", "-"}},
};
// clang-format on

constexpr int solvers[] = {-2, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 100};
constexpr int meshKinds[] = {-1, 0, 1, 2, 3, 4, 5};
constexpr int annealingModes[] = {-1, 0, 1, 2};
constexpr int projectTypes[] = {0, 3, 9, 5};

std::string TableName(const std::map<int, Row>& offers, int solver, int meshKind, int annealing) {
    const auto found = offers.find(solver);
    const Row& row = found != offers.end() ? found->second : nothing;
    const std::string& cell = row[meshKind >= 0 && meshKind <= 3 ? meshKind : 4];
    std::istringstream names(cell);
    std::string forMode0;
    std::string forMode1;
    std::string forOtherMode;
    names >> forMode0;
    if (!(names >> forMode1 >> forOtherMode)) {
        return forMode0;
    }
    return annealing == 0 ? forMode0 : annealing == 1 ? forMode1 : forOtherMode;
}

Lists ExpectedLists(const std::map<int, Row>& offers, int solver, int meshKind, int annealing,
                    int projectType) {
    Lists lists = tables.at(TableName(offers, solver, meshKind, annealing));
    if (projectType != kProjectTypeMucell) {
        std::erase(lists.part, kItemDigimatMucell);
    }
    if (projectType != kProjectTypeAnnealing) {
        std::erase(lists.part, kItemAnnealingStress);
    }
    return lists;
}

CZorbFEAInformation ProjectOf(int solverType, int voxelFlag, int projectType) {
    CZorbFEAInformation record = support::CompleteProject(solverType);
    record.voxelFlag = voxelFlag;
    record.projectType = projectType;
    return record;
}

/// Status after status on one project; the lists hold something of their own each time.
void ExpectOffers(int solverType, int voxelFlag, int projectType,
                  const std::map<int, Row>& offers) {
    OpenProject project(ProjectOf(solverType, voxelFlag, projectType));
    PopItemSelector& selector = project.Selector();
    for (const int solver : solvers) {
        for (const int meshKind : meshKinds) {
            for (const int annealing : annealingModes) {
                SCOPED_TRACE(testing::Message()
                             << "solverType " << solverType << ", voxelFlag " << voxelFlag
                             << ", projectType " << projectType << ", solver " << solver
                             << ", meshKind " << meshKind << ", annealingMode " << annealing);
                selector.partPopItems = {91};
                selector.partInsertPopItems = {92};
                selector.moldbasePopItems = {93};
                project.manager.SetEngineCurrentStatus(solver, meshKind, 0, annealing);
                project.manager.SetPopItems();
                const Lists lists = ExpectedLists(offers, solver, meshKind, annealing, projectType);
                ASSERT_EQ(selector.partPopItems, lists.part);
                ASSERT_EQ(selector.partInsertPopItems, lists.partInsert);
                ASSERT_EQ(selector.moldbasePopItems, lists.moldbase);
            }
        }
    }
}

void ExpectListsKept(int solverType, int voxelFlag, int projectType) {
    OpenProject project(ProjectOf(solverType, voxelFlag, projectType));
    PopItemSelector& selector = project.Selector();
    selector.partPopItems = {91};
    selector.partInsertPopItems = {92};
    selector.moldbasePopItems = {93};
    for (const int solver : solvers) {
        for (const int meshKind : meshKinds) {
            for (const int annealing : annealingModes) {
                project.manager.SetEngineCurrentStatus(solver, meshKind, 0, annealing);
                project.manager.SetPopItems();
                ASSERT_THAT(selector.partPopItems, ElementsAre(91));
                ASSERT_THAT(selector.partInsertPopItems, ElementsAre(92));
                ASSERT_THAT(selector.moldbasePopItems, ElementsAre(93));
            }
        }
    }
}

/// A project with a status set and its items offered.
void Offer(OpenProject& project, int solver, int meshKind, int annealing) {
    project.manager.SetEngineCurrentStatus(solver, meshKind, 0, annealing);
    project.manager.SetPopItems();
}

}  // namespace

TEST(OfferedItems, OfAVoxelProjectAreThoseOfOtherSolidProjectsOrNone) {
    // `zorbi2 check` asks about other projects alone.
    for (const auto& [solver, row] : solidVoxelOffers) {
        for (std::size_t mesh = 0; mesh < row.size(); ++mesh) {
            EXPECT_THAT(row[mesh], testing::AnyOf("-", solidOffers.at(solver)[mesh])) << solver;
        }
    }
}

TEST(OfferedItems, OfSolidProjectsForEveryStatus) {
    for (const int voxelFlag : {0, 2, 256}) {
        for (const int projectType : projectTypes) {
            ExpectOffers(kSolidProject, voxelFlag, projectType, solidOffers);
        }
    }
}

TEST(OfferedItems, OfSolidVoxelProjectsForEveryStatus) {
    for (const int voxelFlag : {1, 257}) {
        for (const int projectType : projectTypes) {
            ExpectOffers(kSolidProject, voxelFlag, projectType, solidVoxelOffers);
        }
    }
}

TEST(OfferedItems, OfShellProjectsForEveryStatusAndVoxelFlag) {
    for (const int voxelFlag : {0, 1, 2, 256, 257}) {
        for (const int projectType : projectTypes) {
            ExpectOffers(kShellProject, voxelFlag, projectType, shellOffers);
        }
    }
}

TEST(OfferedItems, OfOtherProjectsStayAsTheyAre) {
    for (const int solverType : {-1, 2}) {
        for (const int voxelFlag : {0, 1, 2, 256, 257}) {
            for (const int projectType : projectTypes) {
                ExpectListsKept(solverType, voxelFlag, projectType);
            }
        }
    }
}

TEST(OfferedItems, OfAnsysOriginalMeshInAMucellProject) {
    OpenProject project(ProjectOf(kSolidProject, 0, kProjectTypeMucell));
    Offer(project, kSolverAnsys, kMeshOriginal, 0);
    EXPECT_TRUE(project.manager.HasPopItem());
    const PopItemSelector& selector = project.Selector();
    EXPECT_THAT(selector.partPopItems,
                ElementsAre(15, 0, 1, 4, 3, 5, 8, 9, 11, 16, 17, 18, 19, 20, 13, 14));
    EXPECT_THAT(selector.partInsertPopItems, ElementsAre(6, 12));
    EXPECT_THAT(selector.moldbasePopItems, ElementsAre(2, 7, 10));
    EXPECT_EQ(selector.partCount, 16);
    EXPECT_EQ(selector.partInsertCount, 2);
    EXPECT_EQ(selector.moldbaseCount, 3);
}

TEST(OfferedItems, OmitDigimatMucellOutsideMucellProjects) {
    OpenProject project(ProjectOf(kSolidProject, 0, 0));
    Offer(project, kSolverAnsys, kMeshOriginal, 0);
    EXPECT_TRUE(project.manager.HasPopItem());
    EXPECT_THAT(project.Selector().partPopItems, Not(Contains(kItemDigimatMucell)));
    EXPECT_EQ(project.Selector().partCount, 15);
}

TEST(OfferedItems, OfAnnealedLsDynaMeshEndWithTheAnnealingStress) {
    OpenProject project(ProjectOf(kSolidProject, 0, kProjectTypeAnnealing));
    Offer(project, kSolverLsDyna, kMeshDeformed, kAnnealingDeformedMesh);
    EXPECT_THAT(project.Selector().partPopItems,
                ElementsAre(15, 0, 1, 11, 16, 18, 19, 20, 13, 14, 21));
}

TEST(OfferedItems, OfAVoxelProjectAreNoneForTheOriginalMesh) {
    OpenProject project(ProjectOf(kSolidProject, 1, 0));
    Offer(project, kSolverAnsys, kMeshOriginal, 0);
    EXPECT_THAT(project.Selector().partPopItems, IsEmpty());
    EXPECT_THAT(project.Selector().partInsertPopItems, IsEmpty());
    EXPECT_THAT(project.Selector().moldbasePopItems, IsEmpty());
    EXPECT_FALSE(project.manager.HasPopItem());
}

TEST(OfferedItems, OfAShellProjectAreNoneForWorkbench) {
    OpenProject project(ProjectOf(kShellProject, 0, 0));
    Offer(project, kSolverWorkbench, kMeshMapped, 0);
    EXPECT_THAT(project.Selector().partPopItems, IsEmpty());
    EXPECT_THAT(project.Selector().partInsertPopItems, IsEmpty());
    EXPECT_THAT(project.Selector().moldbasePopItems, IsEmpty());
}

TEST(OfferedItems, OfAbaqusButNotOfAnsysRemainInUnknownAnnealingModes) {
    OpenProject project;
    Offer(project, kSolverAnsys, kMeshDeformed, 2);
    EXPECT_THAT(project.Selector().partPopItems, IsEmpty());
    EXPECT_THAT(project.Selector().partInsertPopItems, IsEmpty());
    Offer(project, kSolverAbaqus, kMeshDeformed, 2);
    EXPECT_THAT(project.Selector().partPopItems, ElementsAre(15, 0, 1, 11, 16, 18, 19, 20, 13, 14));
    EXPECT_THAT(project.Selector().partInsertPopItems, ElementsAre(12));
}

TEST(OfferedItems, DoNotDependOnQuadraticElements) {
    OpenProject project;
    project.manager.SetEngineCurrentStatus(kSolverMscNastran, kMeshMapped, 1, 0);
    project.manager.SetPopItems();
    EXPECT_THAT(project.Selector().partPopItems,
                ElementsAre(15, 0, 1, 5, 8, 9, 11, 16, 18, 19, 20, 13, 14));
}

TEST(OfferedItems, HaveEachItemSomewhere) {
    std::set<std::int32_t> offered;
    for (const int projectType : projectTypes) {
        OpenProject project(ProjectOf(kSolidProject, 0, projectType));
        for (std::int32_t solver = 0; solver < kSolverCount; ++solver) {
            for (const int meshKind : {kMeshOriginal, kMeshDeformed}) {
                project.manager.SetEngineCurrentStatus(solver, meshKind, 0, kAnnealingDeformedMesh);
                project.manager.SetPopItems();
                const PopItemSelector& lists = *project.Engine().popItemSelector;
                for (const auto* list :
                     {&lists.partPopItems, &lists.partInsertPopItems, &lists.moldbasePopItems}) {
                    offered.insert(list->begin(), list->end());
                }
            }
        }
    }
    EXPECT_THAT(offered, SizeIs(kItemCount));
}
