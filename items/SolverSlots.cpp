#include "items/SolverSlots.h"

#include <algorithm>
#include <array>
#include <new>
#include <string>

namespace items {

namespace {

using TextList = std::vector<std::string>;

enum class Meshes { general, withShellMapping, mappedOnly };
enum class Elements { ansysSolid, ansysShell, linear, linearOrHigher };

/// Solid stands for every project that is not a shell project.
struct SolverRow {
    SolverIndex solver;
    const char* name;
    bool isOfferedForShells;
    Meshes solidMeshes;
    Meshes shellMeshes;
    Elements solidElements;
    Elements shellElements;
};

// In the order in which the slots are built.
// clang-format off
constexpr auto solverRows = std::to_array<SolverRow>({
    {kSolverAnsys,      "ANSYS",       true,  Meshes::general,          Meshes::general,    Elements::ansysSolid,     Elements::ansysShell},
    {kSolverWorkbench,  "Workbench",   false, Meshes::mappedOnly,       Meshes::mappedOnly, Elements::ansysSolid,     Elements::ansysShell},
    {kSolverAbaqus,     "ABAQUS",      true,  Meshes::general,          Meshes::general,    Elements::linearOrHigher, Elements::linearOrHigher},
    {kSolverMscNastran, "MSC-Nastran", true,  Meshes::general,          Meshes::general,    Elements::linearOrHigher, Elements::linearOrHigher},
    {kSolverNeNastran,  "NE-Nastran",  true,  Meshes::general,          Meshes::general,    Elements::linearOrHigher, Elements::linearOrHigher},
    {kSolverLsDyna,     "LS-Dyna",     true,  Meshes::withShellMapping, Meshes::general,    Elements::linearOrHigher, Elements::linearOrHigher},
    {kSolverMarc,       "MARC",        true,  Meshes::general,          Meshes::general,    Elements::linearOrHigher, Elements::linear},
    {kSolverNxNastran,  "NX-Nastran",  true,  Meshes::general,          Meshes::general,    Elements::linearOrHigher, Elements::linearOrHigher},
    {kSolverRadioss,    "Radioss",     false, Meshes::general,          Meshes::general,    Elements::linearOrHigher, Elements::linearOrHigher},
});
// clang-format on

constexpr bool EachSolverHasItsRow() {
    for (SolverIndex solver = 0; solver < kSolverCount; ++solver) {
        if (std::ranges::count(solverRows, solver, &SolverRow::solver) != 1) {
            return false;
        }
    }
    return solverRows.size() == kSolverCount;
}
static_assert(EachSolverHasItsRow());

TextList MeshTypes(Meshes meshes, bool voxelResults) {
    TextList types;
    if (!voxelResults && meshes != Meshes::mappedOnly) {
        types = {"Original", "Deformed"};
    }
    types.emplace_back("Mapped");
    if (meshes == Meshes::withShellMapping) {
        types.emplace_back("3D mapping to shell");
    }
    return types;
}

TextList ElementTypes(Elements elements) {
    switch (elements) {
        case Elements::ansysSolid:
            return {"Solid-185", "Solid-186"};
        case Elements::ansysShell:
            return {"Shell-181", "Shell-281"};
        case Elements::linear:
            return {"Linear"};
        default:
            return {"Linear", "Output as high order element"};
    }
}

}  // namespace

std::vector<bool> OfferedSolvers(std::int32_t solverType) {
    std::vector<bool> offered(kSolverCount);
    for (const SolverRow& row : solverRows) {
        offered[row.solver] = row.isOfferedForShells || solverType != kShellProject;
    }
    return offered;
}

void BuildSolverSlots(SolverSlotArray& slots, const std::vector<bool>& solverOffered,
                      std::int32_t solverType, std::int32_t voxelFlag) {
    const bool isShell = solverType == kShellProject;
    const bool voxelResults = static_cast<std::uint8_t>(voxelFlag) == 1;
    for (const SolverRow& row : solverRows) {
        if (solverOffered[row.solver]) {
            slots[row.solver].reset(new (std::nothrow) SolverSlot(
                row.solver, row.name,
                MeshTypes(isShell ? row.shellMeshes : row.solidMeshes, voxelResults),
                ElementTypes(isShell ? row.shellElements : row.solidElements)));
        }
    }
}

}  // namespace items
