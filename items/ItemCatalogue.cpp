#include "items/ItemCatalogue.h"

#include <array>
#include <new>
#include <span>

#include "items/ResultMessages.h"

namespace {

constexpr auto fibreReductionLevels = std::to_array<const char*>({
    "Material reduction-Min",
    "Material reduction-Low",
    "Material reduction-Medium",
    "Material reduction-High",
    "Material reduction-Max",
    "Material reduction-None",
});

constexpr auto densityLevels = std::to_array<const char*>({
    "Constant density",
    "Density reduction-Min",
    "Density reduction-Low",
    "Density reduction-Medium",
    "Density reduction-High",
    "Density reduction-Max",
    "Density reduction-None",
});

constexpr auto runnerChoices = std::to_array<const char*>({"Exclude runner", "Include runner"});

constexpr auto digimatTargets = std::to_array<const char*>({"Digimat", "Converse"});

constexpr auto compositeModels = std::to_array<const char*>({
    "Traditional composite model",
    "Halpin-Tsai model",
    "Mori-Tanaka model",
});

/// Labels of the option keys 0, 1, 2 ...; no labels: a check item.
using Labels = std::span<const char* const>;

struct CatalogueRow {
    std::int32_t itemId;
    ItemCategory category;
    Labels options;
    std::int32_t defaultOption;
    const char* title;
    const char* description;
};

constexpr Labels noOptions;
constexpr ItemCategory part = kCategoryPart;
constexpr ItemCategory insert = kCategoryPartInsert;
constexpr ItemCategory moldbase = kCategoryMoldbase;

// Texts as hosts know them, slips included ("Mirco", "volumn", "retainded", uneven full stops,
// item 0 with the sentence of item 10). That item 12 belongs to the part insert is meant as well.
// clang-format off
constexpr auto catalogue = std::to_array<CatalogueRow>({
    { 0, part,     fibreReductionLevels,  2, "Fiber orientation",                                 "The moldbase temperature after cooling"},
    { 1, part,     runnerChoices,         0, "Runner output",                                     "Add runner mesh output in the part section."},
    { 2, moldbase, noOptions,            -1, "Mesh output",                                       "Output moldbase model only."},
    { 3, part,     noOptions,            -1, "Flow induced residual output.",                     "The part stress including xx, yy, zz, xy, yz, zx, six directivities which are caused by the viscous flow."},
    { 4, part,     noOptions,            -1, "Thermal stress output",                             "The part stress including xx, yy, zz, xy, yz, zx, six directivities because of the temperature change."},
    { 5, part,     noOptions,            -1, "Initial strain output (As temperature difference)", "The volumn shrinks because of the temperature change."},
    { 6, insert,   noOptions,            -1, "Flow pressure output",                              "The flow pressure on the surface of the part insert."},
    { 7, moldbase, noOptions,            -1, "Moldbase pressure output",                          "The flow pressure on the contact surface of the moldbase and part."},
    { 8, part,     noOptions,            -1, "Packing phase temperature output",                  "The part temperature after packing."},
    { 9, part,     noOptions,            -1, "End of cooling temperature output.",                "The part and part insert temperature after cooling."},
    {10, moldbase, noOptions,            -1, "Moldbase temperature output",                       "The moldbase temperature after cooling."},
    {11, part,     digimatTargets,        0, "Digimat option to export fiber orientation data.",  "Export the fiber orientation data for further analysis to view characteristics of fiber."},
    {12, insert,   fibreReductionLevels,  2, "Fiber material property output",                    "Reduce the material quantity by collating the fiber direction. Min means minimal number of material will be retainded."},
    {13, part,     densityLevels,         0, "Density output",                                    "Output the density of the part."},
    {14, part,     noOptions,            -1, "Weld line output",                                  "Weld-lines (or knit-lines) are formed during the mold filling process when the split melt flow fronts meet at the same downstream location."},
    {15, part,     compositeModels,       2, "Mirco mechanics model",                             ""},
    {16, part,     noOptions,            -1, "",                                                  ""},
    {17, part,     noOptions,            -1, "",                                                  ""},
    {18, part,     noOptions,            -1, "",                                                  ""},
    {19, part,     noOptions,            -1, "",                                                  ""},
    {20, part,     noOptions,            -1, "",                                                  ""},
    {21, part,     noOptions,            -1, "Annealing stress output",                           "Annealing stress including xx, yy, zz, xy, yz, zx six directivities which are caused by the post curing."},
});

constexpr auto buildOrder = std::to_array<std::int32_t>({
    15, 0, 1, 12, 13, 4, 3, 5, 8, 11, 16, 17, 18, 19, 20, 9, 14, 21, 6, 2, 7, 10,
});
// clang-format on

constexpr bool EachRowHasItsId() {
    for (std::size_t row = 0; row < catalogue.size(); ++row) {
        if (catalogue[row].itemId != static_cast<std::int32_t>(row)) {
            return false;
        }
    }
    return true;
}
static_assert(catalogue.size() == kItemCount && EachRowHasItsId());
static_assert(buildOrder.size() == kItemCount);

/// The catalogue's row, with the one difference that the kind of project makes: a shell project
/// takes the Digimat export as a check item.
CatalogueRow RowOf(std::int32_t itemId, std::int32_t solverType) {
    constexpr std::int32_t digimatExport = 11;
    CatalogueRow row = catalogue[itemId];
    if (itemId == digimatExport && solverType == kShellProject) {
        row.options = noOptions;
        row.defaultOption = kOptionNone;
    }
    return row;
}

void BuildItem(ItemArray& items, std::int32_t solverType, std::int32_t itemId, ResultCode code) {
    const CatalogueRow row = RowOf(itemId, solverType);
    const bool available = code == kResultAvailable;
    const std::int32_t checkState = row.options.empty() ? 0 : kNotACheckItem;
    std::map<std::int32_t, std::string> options;
    const std::int32_t defaultOption =
        BuildItemOptions(solverType, itemId, code, available, options);
    items[itemId].reset(new (std::nothrow)
                            CZorbI2Item(row.category, itemId, available, row.title, row.description,
                                        checkState, std::move(options), defaultOption));
}

}  // namespace

void BuildItemCatalogue(ItemArray& items, std::int32_t solverType,
                        const ResultCodeOf& resultCodeOf) {
    constexpr std::int32_t neverChecked = 17;
    for (const std::int32_t itemId : buildOrder) {
        const ResultCode code = itemId == neverChecked ? kResultAvailable : resultCodeOf(itemId);
        BuildItem(items, solverType, itemId, code);
    }
}

std::int32_t BuildItemOptions(std::int32_t solverType, std::int32_t itemId, ResultCode resultCode,
                              bool available, std::map<std::int32_t, std::string>& options) {
    if (!available) {
        GetResultMessage(resultCode, options[kOptionResultsMissing]);
        return kOptionResultsMissing;
    }
    const CatalogueRow row = RowOf(itemId, solverType);
    std::int32_t key = 0;
    for (const char* label : row.options) {
        options[key++] = label;
    }
    if (row.options.empty()) {
        options[kOptionNone] = "No such features";
    }
    return row.defaultOption;
}
