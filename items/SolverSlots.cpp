#include "items/SolverSlots.h"

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
    Meshes solidMeshes;
    Meshes shellMeshes;
    Elements solidElements;
    Elements shellElements;
};

// In the order in which the slots are built.
// clang-format off
constexpr auto solverRows = std::to_array<SolverRow>({
    {kSolverAnsys,      "ANSYS",       Meshes::general,          Meshes::general,    Elements::ansysSolid,     Elements::ansysShell},
    {kSolverWorkbench,  "Workbench",   Meshes::mappedOnly,       Meshes::mappedOnly, Elements::ansysSolid,     Elements::ansysShell},
    {kSolverAbaqus,     "ABAQUS",      Meshes::general,          Meshes::general,    Elements::linearOrHigher, Elements::linearOrHigher},
    {kSolverMscNastran, "MSC-Nastran", Meshes::general,          Meshes::general,    Elements::linearOrHigher, Elements::linearOrHigher},
    {kSolverNeNastran,  "NE-Nastran",  Meshes::general,          Meshes::general,    Elements::linearOrHigher, Elements::linearOrHigher},
    {kSolverLsDyna,     "LS-Dyna",     Meshes::withShellMapping, Meshes::general,    Elements::linearOrHigher, Elements::linearOrHigher},
    {kSolverMarc,       "MARC",        Meshes::general,          Meshes::general,    Elements::linearOrHigher, Elements::linear},
    {kSolverNxNastran,  "NX-Nastran",  Meshes::general,          Meshes::general,    Elements::linearOrHigher, Elements::linearOrHigher},
    {kSolverRadioss,    "Radioss",     Meshes::general,          Meshes::general,    Elements::linearOrHigher, Elements::linearOrHigher},
});
// clang-format on
static_assert(solverRows.size() == kSolverCount);

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
