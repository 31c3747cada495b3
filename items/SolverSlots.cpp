#include "items/SolverSlots.h"

#include <algorithm>
#include <array>
#include <new>
#include <span>
#include <string>
#include <string_view>

namespace items {

namespace {

using TextList = std::vector<std::string>;
using Texts = std::span<const std::string_view>;

constexpr auto allMeshes = std::to_array<std::string_view>({"Original", "Deformed", "Mapped"});
constexpr auto meshesWithShellMapping =
    std::to_array<std::string_view>({"Original", "Deformed", "Mapped", "3D mapping to shell"});
constexpr auto mappedMesh = std::to_array<std::string_view>({"Mapped"});
constexpr auto mappedMeshWithShellMapping =
    std::to_array<std::string_view>({"Mapped", "3D mapping to shell"});

/// The mesh kinds of a solver; voxel results take away some.
struct Meshes {
    Texts ofOtherResults;
    Texts ofVoxelResults;
};

constexpr Meshes general{allMeshes, mappedMesh};
constexpr Meshes withShellMapping{meshesWithShellMapping, mappedMeshWithShellMapping};
constexpr Meshes mappedOnly{mappedMesh, mappedMesh};

constexpr auto ansysSolid = std::to_array<std::string_view>({"Solid-185", "Solid-186"});
constexpr auto ansysShell = std::to_array<std::string_view>({"Shell-181", "Shell-281"});
constexpr auto linear = std::to_array<std::string_view>({"Linear"});
constexpr auto linearOrHigher =
    std::to_array<std::string_view>({"Linear", "Output as high order element"});

/// Solid stands for every project that is not a shell project.
struct SolverRow {
    SolverIndex solver;
    std::string_view name;
    bool isOfferedForShells;
    const Meshes& solidMeshes;
    const Meshes& shellMeshes;
    Texts solidElements;
    Texts shellElements;
};

// In the order in which the slots are built.
// clang-format off
constexpr auto solverRows = std::to_array<SolverRow>({
    {kSolverAnsys,      "ANSYS",       true,  general,          general,    ansysSolid,     ansysShell},
    {kSolverWorkbench,  "Workbench",   false, mappedOnly,       mappedOnly, ansysSolid,     ansysShell},
    {kSolverAbaqus,     "ABAQUS",      true,  general,          general,    linearOrHigher, linearOrHigher},
    {kSolverMscNastran, "MSC-Nastran", true,  general,          general,    linearOrHigher, linearOrHigher},
    {kSolverNeNastran,  "NE-Nastran",  true,  general,          general,    linearOrHigher, linearOrHigher},
    {kSolverLsDyna,     "LS-Dyna",     true,  withShellMapping, general,    linearOrHigher, linearOrHigher},
    {kSolverMarc,       "MARC",        true,  general,          general,    linearOrHigher, linear},
    {kSolverNxNastran,  "NX-Nastran",  true,  general,          general,    linearOrHigher, linearOrHigher},
    {kSolverRadioss,    "Radioss",     false, general,          general,    linearOrHigher, linearOrHigher},
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

TextList Listed(Texts texts) {
    return {texts.begin(), texts.end()};
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
            const Meshes& meshes = isShell ? row.shellMeshes : row.solidMeshes;
            slots[row.solver].reset(new (std::nothrow) SolverSlot(
                row.solver, std::string(row.name),
                Listed(voxelResults ? meshes.ofVoxelResults : meshes.ofOtherResults),
                Listed(isShell ? row.shellElements : row.solidElements)));
        }
    }
}

}  // namespace items
