#include "items/SolverSlots.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <zorbi2/ZorbI2Types.h>

#include "tests/items/LostToFailingAllocations.h"
#include "tests/support/SampleProject.h"

using support::OpenProject;
using testing::ElementsAre;

namespace {

using Texts = std::vector<std::string>;

struct ExpectedSlot {
    int solver;
    const char* name;
    Texts meshTypes;
    Texts elementTypes;
};

const Texts allMeshes = {"Original", "Deformed", "Mapped"};
const Texts allMeshesAndShell = {"Original", "Deformed", "Mapped", "3D mapping to shell"};
const Texts mapped = {"Mapped"};
const Texts mappedAndShell = {"Mapped", "3D mapping to shell"};

const Texts solidElements = {"Solid-185", "Solid-186"};
const Texts shellElements = {"Shell-181", "Shell-281"};
const Texts bothOrders = {"Linear", "Output as high order element"};
const Texts linear = {"Linear"};

// clang-format off
const std::vector<ExpectedSlot> slotsOfSolidProject = {
    {0, "ANSYS",       allMeshes,         solidElements},
    {1, "ABAQUS",      allMeshes,         bothOrders},
    {2, "MSC-Nastran", allMeshes,         bothOrders},
    {3, "NE-Nastran",  allMeshes,         bothOrders},
    {4, "LS-Dyna",     allMeshesAndShell, bothOrders},
    {5, "MARC",        allMeshes,         bothOrders},
    {6, "NX-Nastran",  allMeshes,         bothOrders},
    {7, "Radioss",     allMeshes,         bothOrders},
    {8, "Workbench",   mapped,            solidElements},
};

const std::vector<ExpectedSlot> slotsOfSolidVoxelProject = {
    {0, "ANSYS",       mapped,         solidElements},
    {1, "ABAQUS",      mapped,         bothOrders},
    {2, "MSC-Nastran", mapped,         bothOrders},
    {3, "NE-Nastran",  mapped,         bothOrders},
    {4, "LS-Dyna",     mappedAndShell, bothOrders},
    {5, "MARC",        mapped,         bothOrders},
    {6, "NX-Nastran",  mapped,         bothOrders},
    {7, "Radioss",     mapped,         bothOrders},
    {8, "Workbench",   mapped,         solidElements},
};

const std::vector<ExpectedSlot> slotsOfShellProject = {
    {0, "ANSYS",       allMeshes, shellElements},
    {1, "ABAQUS",      allMeshes, bothOrders},
    {2, "MSC-Nastran", allMeshes, bothOrders},
    {3, "NE-Nastran",  allMeshes, bothOrders},
    {4, "LS-Dyna",     allMeshes, bothOrders},
    {5, "MARC",        allMeshes, linear},
    {6, "NX-Nastran",  allMeshes, bothOrders},
};

const std::vector<ExpectedSlot> slotsOfShellVoxelProject = {
    {0, "ANSYS",       mapped, shellElements},
    {1, "ABAQUS",      mapped, bothOrders},
    {2, "MSC-Nastran", mapped, bothOrders},
    {3, "NE-Nastran",  mapped, bothOrders},
    {4, "LS-Dyna",     mapped, bothOrders},
    {5, "MARC",        mapped, linear},
    {6, "NX-Nastran",  mapped, bothOrders},
};
// clang-format on

struct SlotCase {
    int solverType;
    int voxelFlag;
    const std::vector<ExpectedSlot>& slots;
};

CZorbFEAInformation ProjectOf(int solverType, int voxelFlag) {
    CZorbFEAInformation record = support::PlainProject(solverType);
    record.voxelFlag = voxelFlag;
    return record;
}

void ExpectSlot(const SolverSlot* slot, const ExpectedSlot& expected) {
    ASSERT_NE(slot, nullptr);
    EXPECT_EQ(slot->solverIndex, expected.solver);
    EXPECT_EQ(slot->name, expected.name);
    EXPECT_EQ(slot->meshTypes, expected.meshTypes);
    EXPECT_EQ(slot->elementTypes, expected.elementTypes);
    EXPECT_EQ(slot->meshKind, 0);
    EXPECT_EQ(slot->quadraticElement, 0);
    EXPECT_EQ(slot->annealingMode, 0);
}

}  // namespace

TEST(SolverSlots, HaveNamesMeshKindsAndElementTypesByProject) {
    const std::vector<SlotCase> cases = {
        {0, 0, slotsOfSolidProject}, {0, 1, slotsOfSolidVoxelProject},
        {0, 2, slotsOfSolidProject}, {0, 257, slotsOfSolidVoxelProject},
        {1, 0, slotsOfShellProject}, {1, 1, slotsOfShellVoxelProject},
        {1, 2, slotsOfShellProject}, {1, 257, slotsOfShellVoxelProject},
        {2, 0, slotsOfSolidProject}, {2, 1, slotsOfSolidVoxelProject},
        {2, 2, slotsOfSolidProject}, {2, 257, slotsOfSolidVoxelProject},
    };
    for (const SlotCase& slotCase : cases) {
        OpenProject project(ProjectOf(slotCase.solverType, slotCase.voxelFlag));
        const SolverSlotArray& slots = project.Engine().solverSlots;
        for (std::size_t solver = 0; solver < slots.size(); ++solver) {
            SCOPED_TRACE(testing::Message()
                         << "solverType " << slotCase.solverType << ", voxelFlag "
                         << slotCase.voxelFlag << ", solver " << solver);
            if (solver < slotCase.slots.size()) {
                ExpectSlot(slots[solver].get(), slotCase.slots[solver]);
            } else {
                EXPECT_EQ(slots[solver], nullptr);
            }
        }
    }
}

TEST(SolverSlots, ShellProjectHasNoRadiossNorWorkbenchAndShellElementsForAnsys) {
    OpenProject project(support::PlainProject(kShellProject));
    const SolverSlotArray& slots = project.Engine().solverSlots;
    EXPECT_EQ(slots[kSolverRadioss], nullptr);
    EXPECT_EQ(slots[kSolverWorkbench], nullptr);
    EXPECT_THAT(slots[kSolverAnsys]->elementTypes, ElementsAre("Shell-181", "Shell-281"));
    EXPECT_THAT(slots[kSolverMarc]->elementTypes, ElementsAre("Linear"));
    EXPECT_THAT(slots[kSolverLsDyna]->meshTypes, ElementsAre("Original", "Deformed", "Mapped"));
}

TEST(SolverSlots, VoxelProjectMapsOnlyAndLsDynaAlsoToShell) {
    OpenProject project(ProjectOf(kSolidProject, 1));
    for (const auto& slot : project.Engine().solverSlots) {
        ASSERT_NE(slot, nullptr);
        if (slot->solverIndex == kSolverLsDyna) {
            EXPECT_THAT(slot->meshTypes, ElementsAre("Mapped", "3D mapping to shell"));
        } else {
            EXPECT_THAT(slot->meshTypes, ElementsAre("Mapped")) << slot->name;
        }
    }
}

TEST(SolverSlots, WorkbenchMapsOnlyWithoutVoxelResultsToo) {
    OpenProject project(ProjectOf(kSolidProject, 0));
    EXPECT_THAT(project.Engine().solverSlots[kSolverWorkbench]->meshTypes, ElementsAre("Mapped"));
}

TEST(SolverSlots, OnlyOfferedSolversGetOne) {
    SolverSlotArray slots;
    std::vector<bool> offered(kSolverCount, false);
    offered[kSolverNeNastran] = true;
    items::BuildSolverSlots(slots, offered, kSolidProject, 0);
    for (int solver = 0; solver < kSolverCount; ++solver) {
        EXPECT_EQ(slots[solver] != nullptr, solver == kSolverNeNastran) << solver;
    }
}

TEST(SolverSlots, AreBuiltInTheirOwnOrderAndOneWithoutMemoryStaysNull) {
    const std::vector<bool> allOffered(kSolverCount, true);
    const auto build = [&](SolverSlotArray& slots) {
        items::BuildSolverSlots(slots, allOffered, kSolidProject, 0);
    };
    EXPECT_THAT(LostToFailingAllocations<SolverSlotArray>(build),
                ElementsAre(kSolverAnsys, kSolverWorkbench, kSolverAbaqus, kSolverMscNastran,
                            kSolverNeNastran, kSolverLsDyna, kSolverMarc, kSolverNxNastran,
                            kSolverRadioss));
}

TEST(SolverSlot, KeepsItsOwnCopiesAndStartsWithZeroStatus) {
    Texts meshes = {"Original", "Mapped"};
    Texts elements = {"Linear"};
    std::string name = "Radioss";
    const SolverSlot slot(kSolverRadioss, name, meshes, elements);
    meshes.clear();
    elements.clear();
    name.clear();
    EXPECT_EQ(slot.solverIndex, kSolverRadioss);
    EXPECT_EQ(slot.name, "Radioss");
    EXPECT_THAT(slot.meshTypes, ElementsAre("Original", "Mapped"));
    EXPECT_THAT(slot.elementTypes, ElementsAre("Linear"));
    EXPECT_EQ(slot.meshKind, 0);
    EXPECT_EQ(slot.quadraticElement, 0);
    EXPECT_EQ(slot.annealingMode, 0);
}
