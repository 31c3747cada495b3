#include "handover/AskedFor.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <zorbi2/ControlFileFormat.h>
#include <zorbi2/ZorbI2Types.h>

namespace host {

namespace {

// That these numbers also stand in the engine is deliberate: a file is only checked by what does
// not come from its writer.

/// The options with which an item that has options is off.
// clang-format off
constexpr std::pair<std::int32_t, std::int32_t> offOptions[] = {
    {kItemFiberOrientation,    5},  // Material reduction-None
    {kItemInsertFiberMaterial, 5},  // Material reduction-None
    {kItemRunner,              0},  // Exclude runner
    {kItemDensity,             0},  // Constant density
};

/// Segments by the option of a material reduction.
struct Segments {
    int angle;
    int strengthX;
    int strengthY;
};
constexpr Segments segmentsByOption[] = {
    { 1,  1, 1},  // Min
    { 8,  5, 2},  // Low
    {15, 10, 3},  // Medium
    {23, 15, 4},  // High
    {30, 20, 5},  // Max
};
constexpr Segments usualSegments = {15, 10, 3};  // None, and results missing

/// By the option of the density: constant, Min to Max; others have none.
constexpr int densityFactors[] = {0, 2, 4, 6, 8, 10};
// clang-format on

constexpr const char* mapDomainSegments = "80";
constexpr double usualAngles[] = {30.0, 60.0, 90.0};
constexpr double usualRates[] = {0.8, 0.9, 0.95};

std::string Flag(bool isOn) {
    return isOn ? "1" : "0";
}

struct Asker {
    const Recipe& recipe;
    const std::vector<OfferedItem>& offered;
    const ItemArray& items;
    ControlFile asked = {};

    std::int32_t OptionOf(std::int32_t itemId) const {
        const OfferedItem* const item = FindItem(offered, itemId);
        return item != nullptr ? item->status.optionValue : items[itemId]->optionValue;
    }

    void AskProject() {
        asked["OutFolder"] = recipe.outFolder;
        asked["MapFile"] = recipe.meshKind < kMeshMapped ? " " : recipe.mappedMesh;
        asked["SolverName"] = NameOf(recipe.solver, solverKeywords);
        asked["SolverType"] = std::to_string(recipe.project.solverType);
        asked["ProjectType"] = std::to_string(recipe.project.projectType);
        asked["QuadraticElement"] = Flag(recipe.quadraticElements);
        asked["IDCompositeModel"] = std::to_string(OptionOf(kItemMicroMechanics));
        asked["IsDistributeModel"] = "0";  // no option stands for it
        asked["IsViewEditModelMapping"] =
            Flag(recipe.project.flags[CZorbFEAInformation::kViewEditAtStart] != 0);
    }

    /// The annealed mesh is none of the mesh kinds. A recipe asks for it only where it exists.
    void AskMesh() {
        for (std::int32_t kind = 0; kind < static_cast<int>(std::size(meshKeys)); ++kind) {
            asked[meshKeys[kind]] = Flag(kind == recipe.meshKind && !recipe.annealing);
        }
        if (recipe.annealing) {
            asked[annealedMeshKey] = "1";
        }
    }

    void AskItems() {
        for (const OfferedItem& item : offered) {
            const auto key = std::ranges::find(itemKeys, item.Id(), &Vocabulary::value_type::first);
            if (key != itemKeys.end()) {
                asked[key->second] = Flag(IsOutput(item));
            }
        }
    }

    static bool IsOutput(const OfferedItem& item) {
        const std::pair chosen(item.Id(), item.status.optionValue);
        const bool isOn = item.IsSwitch() ? item.status.checkState == 1
                                          : std::ranges::count(offOptions, chosen) == 0;
        return isOn && !item.IsMissing();
    }

    void AskMapDomain() {
        for (const char* const axis : {"X", "Y", "Z"}) {
            asked[std::string("[MAP DOMAIN] Segment") + axis] = mapDomainSegments;
        }
    }

    void AskReduction(std::int32_t itemId, const std::string& section) {
        const auto option = static_cast<std::size_t>(OptionOf(itemId));
        const Segments segments =
            option < std::size(segmentsByOption) ? segmentsByOption[option] : usualSegments;
        for (const char* const axis : {"X", "Y", "Z"}) {
            asked[section + " FiberTheta" + axis + "Segment"] = std::to_string(segments.angle);
        }
        asked[section + " FiberStrengthXSegment"] = std::to_string(segments.strengthX);
        asked[section + " FiberStrengthYSegment"] = std::to_string(segments.strengthY);
    }

    void AskDensity() {
        const auto option = static_cast<std::size_t>(OptionOf(kItemDensity));
        const int factor = option < std::size(densityFactors) ? densityFactors[option] : 0;
        asked["IsDoDensityReduction"] = Flag(factor > 0);
        asked["[DENSITY REDUCTION] DensityReduction"] = std::to_string(factor);
    }

    void AskWeldLines() {
        for (std::size_t i = 0; i < std::size(usualAngles); ++i) {
            const double angle =
                recipe.weldlineAngles.empty() ? usualAngles[i] : recipe.weldlineAngles[i];
            const double rate =
                recipe.reductionRates.empty() ? usualRates[i] : recipe.reductionRates[i];
            const int range = static_cast<int>(i) + 1;
            asked[AngleKey(range)] = Printed(angle);
            asked[RateKey(range)] = Printed(rate);
        }
        asked[digimatAngleKey] =
            Printed(recipe.digimatAngle.value_or(kDefaultDigimatWeldlineAngle));
    }
};

}  // namespace

ControlFile AskedFor(const Recipe& recipe, const std::vector<OfferedItem>& offered,
                     const ItemArray& items) {
    Asker asker{recipe, offered, items};
    asker.AskProject();
    asker.AskMesh();
    asker.AskItems();
    asker.AskMapDomain();
    asker.AskReduction(kItemFiberOrientation, "[MATERIAL REDUCTION]");
    asker.AskReduction(kItemInsertFiberMaterial, "[PARTINSERT MATERIAL REDUCTION]");
    asker.AskDensity();
    asker.AskWeldLines();
    return std::move(asker.asked);
}

}  // namespace host
