#include "items/ItemCatalogue.h"

#include <algorithm>
#include <array>
#include <new>
#include <span>
#include <string_view>

#include "items/ResultMessages.h"

namespace items {

namespace {

constexpr auto fiberReductionLevels = std::to_array<std::string_view>({
    "Material reduction-Min",
    "Material reduction-Low",
    "Material reduction-Medium",
    "Material reduction-High",
    "Material reduction-Max",
    "Material reduction-None",
});

constexpr auto densityLevels = std::to_array<std::string_view>({
    "Constant density",
    "Density reduction-Min",
    "Density reduction-Low",
    "Density reduction-Medium",
    "Density reduction-High",
    "Density reduction-Max",
    "Density reduction-None",
});

constexpr auto runnerChoices =
    std::to_array<std::string_view>({"Exclude runner", "Include runner"});

constexpr auto digimatTargets = std::to_array<std::string_view>({"Digimat", "Converse"});

constexpr auto compositeModels = std::to_array<std::string_view>({
    "Traditional composite model",
    "Halpin-Tsai model",
    "Mori-Tanaka model",
});

/// Labels of the option keys 0, 1, 2 ...; no labels: a check item.
using Labels = std::span<const std::string_view>;

struct CatalogueRow {
    std::int32_t itemId;
    ItemCategory category;
    Labels options;
    std::int32_t defaultOption;
    std::string_view title;
    std::string_view description;
};

constexpr Labels noOptions;
constexpr ItemCategory part = kCategoryPart;
constexpr ItemCategory insert = kCategoryPartInsert;
constexpr ItemCategory moldbase = kCategoryMoldbase;

// Texts as hosts know them, slips included: "Mirco", "volumn", "retainded", uneven periods, the
// fiber orientation with the sentence of the moldbase temperature. That the insert's fiber material
// belongs to the part insert is deliberate as well.
// clang-format off
constexpr auto catalogue = std::to_array<CatalogueRow>({
    {kItemFiberOrientation,        part,     fiberReductionLevels,  2, "Fiber orientation",                                 "The moldbase temperature after cooling"},
    {kItemRunner,                  part,     runnerChoices,         0, "Runner output",                                     "Add runner mesh output in the part section."},
    {kItemMoldbaseMesh,            moldbase, noOptions,            -1, "Mesh output",                                       "Output moldbase model only."},
    {kItemFlowInducedStress,       part,     noOptions,            -1, "Flow induced residual output.",                     "The part stress including xx, yy, zz, xy, yz, zx, six directivities which are caused by the viscous flow."},
    {kItemThermalStress,           part,     noOptions,            -1, "Thermal stress output",                             "The part stress including xx, yy, zz, xy, yz, zx, six directivities because of the temperature change."},
    {kItemInitialStrain,           part,     noOptions,            -1, "Initial strain output (As temperature difference)", "The volumn shrinks because of the temperature change."},
    {kItemInsertFlowPressure,      insert,   noOptions,            -1, "Flow pressure output",                              "The flow pressure on the surface of the part insert."},
    {kItemMoldbasePressure,        moldbase, noOptions,            -1, "Moldbase pressure output",                          "The flow pressure on the contact surface of the moldbase and part."},
    {kItemPackingTemperature,      part,     noOptions,            -1, "Packing phase temperature output",                  "The part temperature after packing."},
    {kItemEndOfCoolingTemperature, part,     noOptions,            -1, "End of cooling temperature output.",                "The part and part insert temperature after cooling."},
    {kItemMoldbaseTemperature,     moldbase, noOptions,            -1, "Moldbase temperature output",                       "The moldbase temperature after cooling."},
    {kItemDigimatExport,           part,     digimatTargets,        0, "Digimat option to export fiber orientation data.",  "Export the fiber orientation data for further analysis to view characteristics of fiber."},
    {kItemInsertFiberMaterial,     insert,   fiberReductionLevels,  2, "Fiber material property output",                    "Reduce the material quantity by collating the fiber direction. Min means minimal number of material will be retainded."},
    {kItemDensity,                 part,     densityLevels,         0, "Density output",                                    "Output the density of the part."},
    {kItemWeldLine,                part,     noOptions,            -1, "Weld line output",                                  "Weld-lines (or knit-lines) are formed during the mold filling process when the split melt flow fronts meet at the same downstream location."},
    {kItemMicroMechanics,          part,     compositeModels,       2, "Mirco mechanics model",                             ""},
    {kItemDigimatWeldLine,         part,     noOptions,            -1, "",                                                  ""},
    {kItemDigimatMucell,           part,     noOptions,            -1, "",                                                  ""},
    {kItemDigimatFiber,            part,     noOptions,            -1, "",                                                  ""},
    {kItemDigimatStress,           part,     noOptions,            -1, "",                                                  ""},
    {kItemDigimatTemperature,      part,     noOptions,            -1, "",                                                  ""},
    {kItemAnnealingStress,         part,     noOptions,            -1, "Annealing stress output",                           "Annealing stress including xx, yy, zz, xy, yz, zx six directivities which are caused by the post curing."},
});

constexpr auto buildOrder = std::to_array<std::int32_t>({
    kItemMicroMechanics,
    kItemFiberOrientation,
    kItemRunner,
    kItemInsertFiberMaterial,
    kItemDensity,
    kItemThermalStress,
    kItemFlowInducedStress,
    kItemInitialStrain,
    kItemPackingTemperature,
    kItemDigimatExport,
    kItemDigimatWeldLine,
    kItemDigimatMucell,
    kItemDigimatFiber,
    kItemDigimatStress,
    kItemDigimatTemperature,
    kItemEndOfCoolingTemperature,
    kItemWeldLine,
    kItemAnnealingStress,
    kItemInsertFlowPressure,
    kItemMoldbaseMesh,
    kItemMoldbasePressure,
    kItemMoldbaseTemperature,
});
// clang-format on

constexpr bool EachItemHasItsRow() {
    for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
        if (catalogue[itemId].itemId != itemId) {
            return false;
        }
    }
    return catalogue.size() == kItemCount;
}
static_assert(EachItemHasItsRow());

constexpr bool EachItemIsBuiltOnce() {
    for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
        if (std::ranges::count(buildOrder, itemId) != 1) {
            return false;
        }
    }
    return buildOrder.size() == kItemCount;
}
static_assert(EachItemIsBuiltOnce());

/// The one difference that the kind of project makes: a shell project takes the Digimat export as a
/// check item.
constexpr CatalogueRow digimatExportOfShells{kItemDigimatExport,
                                             part,
                                             noOptions,
                                             kOptionNone,
                                             catalogue[kItemDigimatExport].title,
                                             catalogue[kItemDigimatExport].description};

const CatalogueRow& RowOf(std::int32_t itemId, std::int32_t solverType) {
    return itemId == kItemDigimatExport && solverType == kShellProject ? digimatExportOfShells
                                                                       : catalogue[itemId];
}

void BuildItem(ItemArray& items, std::int32_t solverType, std::int32_t itemId, ResultCode code) {
    const CatalogueRow& row = RowOf(itemId, solverType);
    const bool available = code == kResultAvailable;
    const std::int32_t checkState = row.options.empty() ? 0 : kNotACheckItem;
    std::map<std::int32_t, std::string> options;
    const std::int32_t defaultOption =
        BuildItemOptions(solverType, itemId, code, available, options);
    items[itemId].reset(new (std::nothrow) CZorbI2Item(
        row.category, itemId, available, std::string(row.title), std::string(row.description),
        checkState, std::move(options), defaultOption));
}

}  // namespace

void BuildItemCatalogue(ItemArray& items, std::int32_t solverType,
                        const ResultCodeOf& resultCodeOf) {
    for (const std::int32_t itemId : buildOrder) {
        const ResultCode code =
            itemId == kItemDigimatMucell ? kResultAvailable : resultCodeOf(itemId);
        BuildItem(items, solverType, itemId, code);
    }
}

std::int32_t BuildItemOptions(std::int32_t solverType, std::int32_t itemId, ResultCode resultCode,
                              bool available, std::map<std::int32_t, std::string>& options) {
    if (!available) {
        GetResultMessage(resultCode, options[kOptionResultsMissing]);
        return kOptionResultsMissing;
    }
    const CatalogueRow& row = RowOf(itemId, solverType);
    std::int32_t key = 0;
    for (const std::string_view label : row.options) {
        options.emplace_hint(options.end(), key++, label);
    }
    if (row.options.empty()) {
        options.emplace(kOptionNone, "No such features");
    }
    return row.defaultOption;
}

}  // namespace items
