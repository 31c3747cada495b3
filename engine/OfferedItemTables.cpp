#include "engine/OfferedItemTables.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <span>

namespace engine {

namespace {

using Ids = std::span<const std::int32_t>;

/// Items of the part that one project type has alone.
struct ItemOfOneType {
    std::int32_t itemId;
    std::int32_t projectType;
};
constexpr auto itemsOfOneType = std::to_array<ItemOfOneType>({
    {kItemDigimatMucell, kProjectTypeMucell},
    {kItemAnnealingStress, kProjectTypeAnnealing},
});

/// The row of all project types that have none alone.
constexpr std::size_t otherTypes = itemsOfOneType.size();

constexpr std::size_t RowOfType(std::int32_t projectType) {
    std::size_t row = 0;
    while (row < otherTypes && itemsOfOneType[row].projectType != projectType) {
        ++row;
    }
    return row;
}

constexpr bool HasItem(std::size_t row, std::int32_t itemId) {
    const auto alone = std::ranges::find(itemsOfOneType, itemId, &ItemOfOneType::itemId);
    return alone == itemsOfOneType.end() || alone == itemsOfOneType.begin() + row;
}

/// Items of the part, listed for each project type by the compiler.
class PartItems {
public:
    consteval PartItems(std::initializer_list<std::int32_t> items) {
        for (std::size_t row = 0; row < lists_.size(); ++row) {
            for (const std::int32_t itemId : items) {
                if (HasItem(row, itemId)) {
                    lists_[row].ids[lists_[row].count++] = itemId;
                }
            }
        }
    }
    constexpr Ids For(std::int32_t projectType) const {
        const List& list = lists_[RowOfType(projectType)];
        return {list.ids.data(), list.count};
    }

private:
    struct List {
        std::array<std::int32_t, kItemCount> ids{};
        std::size_t count = 0;
    };
    std::array<List, otherTypes + 1> lists_;  ///< by row
};

struct OfferTable {
    const PartItems& part;
    Ids partInsert;
    Ids moldbase;
};

// ---- The groups of the dialog -------------------------------------------------------------------

// Short words, so that a row stays a row.
constexpr std::int32_t model = kItemMicroMechanics;
constexpr std::int32_t fiber = kItemFiberOrientation;
constexpr std::int32_t runner = kItemRunner;
constexpr std::int32_t thermal = kItemThermalStress;
constexpr std::int32_t flow = kItemFlowInducedStress;
constexpr std::int32_t strain = kItemInitialStrain;
constexpr std::int32_t packing = kItemPackingTemperature;
constexpr std::int32_t cooling = kItemEndOfCoolingTemperature;
constexpr std::int32_t digimat = kItemDigimatExport;
constexpr std::int32_t digiWeld = kItemDigimatWeldLine;
constexpr std::int32_t mucell = kItemDigimatMucell;
constexpr std::int32_t digiFiber = kItemDigimatFiber;
constexpr std::int32_t digiStress = kItemDigimatStress;
constexpr std::int32_t digiTemp = kItemDigimatTemperature;
constexpr std::int32_t density = kItemDensity;
constexpr std::int32_t weld = kItemWeldLine;
constexpr std::int32_t annealing = kItemAnnealingStress;

// Thermal before flow-induced stress, and the model before all: deliberate.
// clang-format off
constexpr PartItems fullPart                = {model, fiber, runner, thermal, flow, strain, packing, cooling, digimat, digiWeld, mucell, digiFiber, digiStress, digiTemp, density, weld};
constexpr PartItems partWithoutStress       = {model, fiber, runner,                strain, packing, cooling, digimat, digiWeld, mucell, digiFiber, digiStress, digiTemp, density, weld};
constexpr PartItems partWithoutStressAndDigimat = {model, fiber, runner,            strain, packing, cooling,                                                               density, weld};
constexpr PartItems partWithoutDigimat      = {model, fiber, runner, thermal, flow, strain, packing, cooling,                                                               density, weld};
constexpr PartItems deformedPart            = {model, fiber, runner,                                          digimat, digiWeld, mucell, digiFiber, digiStress, digiTemp, density, weld};
constexpr PartItems annealedPart            = {model, fiber, runner,                                          digimat, digiWeld, mucell, digiFiber, digiStress, digiTemp, density, weld, annealing};
constexpr PartItems deformedPartWithoutDigimat = {model, fiber, runner,                                                                                                     density, weld};

constexpr PartItems noPart                  = {};
constexpr PartItems mappedToShell           = {strain, packing, cooling};

constexpr PartItems fiberAlone              = {fiber};
constexpr PartItems fiberAndDigimat         = {fiber,                           digimat};
constexpr PartItems fiberAndStrain          = {fiber, strain, packing};
constexpr PartItems fiberStrainAndDigimat   = {fiber, strain, packing,          digimat};
constexpr PartItems fullShell               = {fiber, strain, packing, cooling, digimat};

constexpr std::int32_t fullInsert[]              = {kItemInsertFlowPressure, kItemInsertFiberMaterial};
constexpr std::int32_t insertFiber[]             = {kItemInsertFiberMaterial};

constexpr std::int32_t fullMoldbase[]            = {kItemMoldbaseMesh, kItemMoldbasePressure, kItemMoldbaseTemperature};

// ---- What is offered together -------------------------------------------------------------------

constexpr OfferTable nothing                {noPart,                      {},          {}};
constexpr OfferTable everything             {fullPart,                    fullInsert,  fullMoldbase};
constexpr OfferTable withoutStress          {partWithoutStress,           fullInsert,  fullMoldbase};
constexpr OfferTable withoutStressAndDigimat{partWithoutStressAndDigimat, fullInsert,  fullMoldbase};
constexpr OfferTable workbench              {partWithoutDigimat,          {},          {}};
constexpr OfferTable deformed               {deformedPart,                {},          {}};
constexpr OfferTable deformedWithInsert     {deformedPart,                insertFiber, {}};
constexpr OfferTable annealed               {annealedPart,                {},          {}};
constexpr OfferTable annealedWithInsert     {annealedPart,                insertFiber, {}};
constexpr OfferTable deformedWithoutDigimat {deformedPartWithoutDigimat,  {},          {}};
constexpr OfferTable shellMapping           {mappedToShell,               {},          {}};
constexpr OfferTable shell                  {fiberAlone,                  {},          {}};
constexpr OfferTable shellDigimat           {fiberAndDigimat,             {},          {}};
constexpr OfferTable shellStrain            {fiberAndStrain,              {},          {}};
constexpr OfferTable shellStrainDigimat     {fiberStrainAndDigimat,       {},          {}};
constexpr OfferTable shellEverything        {fullShell,                   {},          {}};
// clang-format on

/// What one solver offers for one mesh kind, by annealing mode.
struct Offer {
    constexpr Offer(const OfferTable& always) : mode0(always), mode1(always), otherMode(always) {}
    constexpr Offer(const OfferTable& forMode0, const OfferTable& forMode1,
                    const OfferTable& forOtherMode)
        : mode0(forMode0), mode1(forMode1), otherMode(forOtherMode) {}

    const OfferTable& mode0;
    const OfferTable& mode1;
    const OfferTable& otherMode;
};

// In annealing modes other than 0 and 1 ANSYS offers nothing and ABAQUS does: deliberate.
constexpr Offer deformedAnsys{deformedWithInsert, annealedWithInsert, nothing};
constexpr Offer deformedAbaqus{deformedWithInsert, annealedWithInsert, deformedWithInsert};
constexpr Offer deformedOrAnnealed{deformed, annealed, deformed};

/// One solver's offers by mesh kind, and the one for mesh kinds that do not exist.
struct SolverOffers {
    SolverIndex solver;
    Offer original;
    Offer deformed;
    Offer mapped;
    Offer shellMapping;
    Offer otherMesh;
};

using OffersBySolver = std::array<SolverOffers, kSolverCount>;

// ---- The offers of the three families of projects -----------------------------------------------

// clang-format off
constexpr OffersBySolver solidOffers{{
    //                  original                 deformed                mapped                   shell mapping  other mesh
    {kSolverAnsys,      everything,              deformedAnsys,          everything,              nothing,       nothing},
    {kSolverAbaqus,     everything,              deformedAbaqus,         everything,              nothing,       nothing},
    {kSolverMscNastran, withoutStress,           deformed,               withoutStress,           nothing,       nothing},
    {kSolverNeNastran,  withoutStressAndDigimat, deformedWithoutDigimat, withoutStressAndDigimat, nothing,       nothing},
    {kSolverLsDyna,     everything,              deformedOrAnnealed,     everything,              shellMapping,  nothing},
    {kSolverMarc,       everything,              deformedOrAnnealed,     everything,              nothing,       nothing},
    {kSolverNxNastran,  withoutStressAndDigimat, deformedWithoutDigimat, withoutStressAndDigimat, nothing,       nothing},
    {kSolverRadioss,    withoutStress,           deformed,               withoutStress,           nothing,       nothing},
    {kSolverWorkbench,  workbench,               workbench,              workbench,               workbench,     workbench},
}};

constexpr OffersBySolver solidVoxelOffers{{
    //                  original   deformed   mapped                   shell mapping  other mesh
    {kSolverAnsys,      nothing,   nothing,   everything,              nothing,       nothing},
    {kSolverAbaqus,     nothing,   nothing,   everything,              nothing,       nothing},
    {kSolverMscNastran, nothing,   nothing,   withoutStress,           nothing,       nothing},
    {kSolverNeNastran,  nothing,   nothing,   withoutStressAndDigimat, nothing,       nothing},
    {kSolverLsDyna,     nothing,   nothing,   everything,              shellMapping,  nothing},
    {kSolverMarc,       nothing,   nothing,   everything,              nothing,       nothing},
    {kSolverNxNastran,  nothing,   nothing,   withoutStressAndDigimat, nothing,       nothing},
    {kSolverRadioss,    nothing,   nothing,   withoutStress,           nothing,       nothing},
    {kSolverWorkbench,  workbench, workbench, workbench,               workbench,     workbench},
}};

constexpr OffersBySolver shellOffers{{
    //                  original            deformed  mapped              shell mapping  other mesh
    {kSolverAnsys,      shellStrainDigimat, shell,    shellStrainDigimat, nothing,       nothing},
    {kSolverAbaqus,     shellEverything,    shell,    shellEverything,    nothing,       nothing},
    {kSolverMscNastran, shell,              shell,    shell,              nothing,       nothing},
    {kSolverNeNastran,  shell,              shell,    shell,              nothing,       nothing},
    {kSolverLsDyna,     shellDigimat,       shell,    shellDigimat,       nothing,       nothing},
    {kSolverMarc,       shellStrain,        shell,    shellStrain,        nothing,       nothing},
    {kSolverNxNastran,  shell,              shell,    shell,              nothing,       nothing},
    {kSolverRadioss,    shell,              shell,    shell,              nothing,       nothing},
    {kSolverWorkbench,  nothing,            nothing,  nothing,            nothing,       nothing},
}};
// clang-format on

constexpr bool EachSolverHasItsRow(const OffersBySolver& offers) {
    for (SolverIndex solver = 0; solver < kSolverCount; ++solver) {
        if (offers[solver].solver != solver) {
            return false;
        }
    }
    return true;
}
static_assert(EachSolverHasItsRow(solidOffers) && EachSolverHasItsRow(solidVoxelOffers) &&
              EachSolverHasItsRow(shellOffers));

// ---- The walk through the tables ----------------------------------------------------------------

/// Null for a project that is neither solid nor shell.
const OffersBySolver* OffersOf(const OfferProject& project) {
    switch (project.solverType) {
        case kSolidProject:
            return project.voxelFlag == 1 ? &solidVoxelOffers : &solidOffers;
        case kShellProject:
            return &shellOffers;
        default:
            return nullptr;
    }
}

const Offer& OfferForMesh(const SolverOffers& offers, std::int32_t meshKind) {
    switch (meshKind) {
        case kMeshOriginal:
            return offers.original;
        case kMeshDeformed:
            return offers.deformed;
        case kMeshMapped:
            return offers.mapped;
        case kMesh3DMappingShell:
            return offers.shellMapping;
        default:
            return offers.otherMesh;
    }
}

const OfferTable& TableForMode(const Offer& offer, std::int32_t annealingMode) {
    switch (annealingMode) {
        case 0:
            return offer.mode0;
        case kAnnealingDeformedMesh:
            return offer.mode1;
        default:
            return offer.otherMode;
    }
}

const OfferTable& TableFor(const OffersBySolver& offers, const OfferStatus& status) {
    if (static_cast<std::uint32_t>(status.solver) >= offers.size()) {
        return nothing;
    }
    return TableForMode(OfferForMesh(offers[status.solver], status.meshKind), status.annealingMode);
}

}  // namespace

void ListOfferedItems(const OfferProject& project, const OfferStatus& status,
                      const OfferLists& lists) {
    const OffersBySolver* offers = OffersOf(project);
    if (offers == nullptr) {
        return;
    }
    lists.part.clear();
    lists.partInsert.clear();
    lists.moldbase.clear();
    const OfferTable& table = TableFor(*offers, status);
    const Ids part = table.part.For(project.projectType);
    lists.part.assign(part.begin(), part.end());
    lists.partInsert.assign(table.partInsert.begin(), table.partInsert.end());
    lists.moldbase.assign(table.moldbase.begin(), table.moldbase.end());
}

}  // namespace engine
