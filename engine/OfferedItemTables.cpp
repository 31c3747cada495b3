#include "engine/OfferedItemTables.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace {

/// Item ids in a row of a table.
class Ids {
public:
    constexpr Ids(std::initializer_list<std::int32_t> ids) : count_(ids.size()) {
        std::copy(ids.begin(), ids.end(), ids_.begin());
    }
    constexpr operator std::span<const std::int32_t>() const { return {ids_.data(), count_}; }

private:
    std::array<std::int32_t, 16> ids_{};
    std::size_t count_;
};

struct OfferTable {
    Ids part;
    Ids partInsert;
    Ids moldbase;
};

// 4 stands before 3, and 15 before 0, on purpose.
// clang-format off
constexpr OfferTable nothing{{}, {}, {}};
constexpr OfferTable t1 {{15, 0, 1, 4, 3, 5, 8, 9, 11, 16, 17, 18, 19, 20, 13, 14}, {6, 12}, {2, 7, 10}};
constexpr OfferTable t2 {{15, 0, 1,       5, 8, 9, 11, 16, 17, 18, 19, 20, 13, 14}, {6, 12}, {2, 7, 10}};
constexpr OfferTable t3 {{15, 0, 1,       5, 8, 9,                         13, 14}, {6, 12}, {2, 7, 10}};
constexpr OfferTable t4 {{15, 0, 1,                11, 16, 17, 18, 19, 20, 13, 14},    {12}, {}};
constexpr OfferTable t5 {{15, 0, 1,                11, 16, 17, 18, 19, 20, 13, 14},      {}, {}};
constexpr OfferTable t6 {{15, 0, 1,            11, 16, 17, 18, 19, 20, 13, 14, 21},      {}, {}};
constexpr OfferTable t7 {{15, 0, 1,            11, 16, 17, 18, 19, 20, 13, 14, 21},    {12}, {}};
constexpr OfferTable t8 {{15, 0, 1,                                        13, 14},      {}, {}};
constexpr OfferTable t9 {{15, 0, 1, 4, 3, 5, 8, 9,                         13, 14},      {}, {}};
constexpr OfferTable t10{{5, 8, 9},                                                      {}, {}};
constexpr OfferTable t11{{0, 5, 8},                                                      {}, {}};
constexpr OfferTable t12{{0},                                                            {}, {}};
constexpr OfferTable t13{{0, 5, 8, 11},                                                  {}, {}};
constexpr OfferTable t14{{0, 11},                                                        {}, {}};
constexpr OfferTable t15{{0, 5, 8, 9, 11},                                               {}, {}};
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

/// One solver's offers by mesh kind, and the one for mesh kinds that do not exist.
struct SolverOffers {
    SolverIndex solver;
    Offer original;
    Offer deformed;
    Offer mapped;
    Offer shellMapping;
    Offer otherMesh;
};

// The two offers that depend on annealing. ANSYS offers nothing in modes other than 0 and 1,
// ABAQUS does; that is meant.
constexpr Offer t4Ansys{t4, t7, nothing};
constexpr Offer t4Abaqus{t4, t7, t4};
constexpr Offer t5Annealed{t5, t6, t5};

// clang-format off
constexpr auto solidOffers = std::to_array<SolverOffers>({
    //                  original  deformed    mapped   shell mapping  other mesh
    {kSolverAnsys,      t1,       t4Ansys,    t1,      nothing,       nothing},
    {kSolverAbaqus,     t1,       t4Abaqus,   t1,      nothing,       nothing},
    {kSolverMscNastran, t2,       t5,         t2,      nothing,       nothing},
    {kSolverNeNastran,  t3,       t8,         t3,      nothing,       nothing},
    {kSolverLsDyna,     t1,       t5Annealed, t1,      t10,           nothing},
    {kSolverMarc,       t1,       t5Annealed, t1,      nothing,       nothing},
    {kSolverNxNastran,  t3,       t8,         t3,      nothing,       nothing},
    {kSolverRadioss,    t2,       t5,         t2,      nothing,       nothing},
    {kSolverWorkbench,  t9,       t9,         t9,      t9,            t9},
});

constexpr auto solidVoxelOffers = std::to_array<SolverOffers>({
    //                  original  deformed    mapped   shell mapping  other mesh
    {kSolverAnsys,      nothing,  nothing,    t1,      nothing,       nothing},
    {kSolverAbaqus,     nothing,  nothing,    t1,      nothing,       nothing},
    {kSolverMscNastran, nothing,  nothing,    t2,      nothing,       nothing},
    {kSolverNeNastran,  nothing,  nothing,    t3,      nothing,       nothing},
    {kSolverLsDyna,     nothing,  nothing,    t1,      t10,           nothing},
    {kSolverMarc,       nothing,  nothing,    t1,      nothing,       nothing},
    {kSolverNxNastran,  nothing,  nothing,    t3,      nothing,       nothing},
    {kSolverRadioss,    nothing,  nothing,    t2,      nothing,       nothing},
    {kSolverWorkbench,  t9,       t9,         t9,      t9,            t9},
});

constexpr auto shellOffers = std::to_array<SolverOffers>({
    //                  original  deformed    mapped   shell mapping  other mesh
    {kSolverAnsys,      t13,      t12,        t13,     nothing,       nothing},
    {kSolverAbaqus,     t15,      t12,        t15,     nothing,       nothing},
    {kSolverMscNastran, t12,      t12,        t12,     nothing,       nothing},
    {kSolverNeNastran,  t12,      t12,        t12,     nothing,       nothing},
    {kSolverLsDyna,     t14,      t12,        t14,     nothing,       nothing},
    {kSolverMarc,       t11,      t12,        t11,     nothing,       nothing},
    {kSolverNxNastran,  t12,      t12,        t12,     nothing,       nothing},
    {kSolverRadioss,    t12,      t12,        t12,     nothing,       nothing},
});
// clang-format on

std::span<const SolverOffers> OffersOf(ProjectFamily family) {
    switch (family) {
        case ProjectFamily::solid:
            return solidOffers;
        case ProjectFamily::solidVoxel:
            return solidVoxelOffers;
        default:
            return shellOffers;
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
        case 1:
            return offer.mode1;
        default:
            return offer.otherMode;
    }
}

}  // namespace

OfferedItems OfferedItemsFor(ProjectFamily family, const OfferStatus& status) {
    for (const SolverOffers& offers : OffersOf(family)) {
        if (offers.solver == status.solver) {
            const OfferTable& table =
                TableForMode(OfferForMesh(offers, status.meshKind), status.annealingMode);
            return {table.part, table.partInsert, table.moldbase};
        }
    }
    return {};
}

bool IsOfferedForProjectType(std::int32_t itemId, std::int32_t projectType) {
    switch (itemId) {
        case 17:
            return projectType == 9;
        case 21:
            return projectType == 3;
        default:
            return true;
    }
}
