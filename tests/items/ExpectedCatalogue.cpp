#include "tests/items/ExpectedCatalogue.h"

#include <zorbi2/ZorbI2Types.h>

namespace expected {

namespace {

using Options = std::map<int, std::string>;

const Options fiberReduction = {
    {0, "Material reduction-Min"},  {1, "Material reduction-Low"}, {2, "Material reduction-Medium"},
    {3, "Material reduction-High"}, {4, "Material reduction-Max"}, {5, "Material reduction-None"},
};

const Options density = {
    {0, "Constant density"},         {1, "Density reduction-Min"},  {2, "Density reduction-Low"},
    {3, "Density reduction-Medium"}, {4, "Density reduction-High"}, {5, "Density reduction-Max"},
    {6, "Density reduction-None"},
};

const Options runner = {{0, "Exclude runner"}, {1, "Include runner"}};
const Options digimat = {{0, "Digimat"}, {1, "Converse"}};
const Options models = {
    {0, "Traditional composite model"}, {1, "Halpin-Tsai model"}, {2, "Mori-Tanaka model"}};
const Options none = {{-1, "No such features"}};

// clang-format off
const std::vector<Item> catalogue = {
    { 0, 0, -1,  2, fiberReduction, "Fiber orientation",
     "The moldbase temperature after cooling"},
    { 1, 0, -1,  0, runner,         "Runner output",
     "Add runner mesh output in the part section."},
    { 2, 2,  0, -1, none,           "Mesh output",
     "Output moldbase model only."},
    { 3, 0,  0, -1, none,           "Flow induced residual output.",
     "The part stress including xx, yy, zz, xy, yz, zx, six directivities which are caused by the viscous flow."},
    { 4, 0,  0, -1, none,           "Thermal stress output",
     "The part stress including xx, yy, zz, xy, yz, zx, six directivities because of the temperature change."},
    { 5, 0,  0, -1, none,           "Initial strain output (As temperature difference)",
     "The volumn shrinks because of the temperature change."},
    { 6, 1,  0, -1, none,           "Flow pressure output",
     "The flow pressure on the surface of the part insert."},
    { 7, 2,  0, -1, none,           "Moldbase pressure output",
     "The flow pressure on the contact surface of the moldbase and part."},
    { 8, 0,  0, -1, none,           "Packing phase temperature output",
     "The part temperature after packing."},
    { 9, 0,  0, -1, none,           "End of cooling temperature output.",
     "The part and part insert temperature after cooling."},
    {10, 2,  0, -1, none,           "Moldbase temperature output",
     "The moldbase temperature after cooling."},
    {11, 0, -1,  0, digimat,        "Digimat option to export fiber orientation data.",
     "Export the fiber orientation data for further analysis to view characteristics of fiber."},
    {12, 1, -1,  2, fiberReduction, "Fiber material property output",
     "Reduce the material quantity by collating the fiber direction. Min means minimal number of material will be retainded."},
    {13, 0, -1,  0, density,        "Density output",
     "Output the density of the part."},
    {14, 0,  0, -1, none,           "Weld line output",
     "Weld-lines (or knit-lines) are formed during the mold filling process when the split melt flow fronts meet at the same downstream location."},
    {15, 0, -1,  2, models,         "Mirco mechanics model", ""},
    {16, 0,  0, -1, none,           "", ""},
    {17, 0,  0, -1, none,           "", ""},
    {18, 0,  0, -1, none,           "", ""},
    {19, 0,  0, -1, none,           "", ""},
    {20, 0,  0, -1, none,           "", ""},
    {21, 0,  0, -1, none,           "Annealing stress output",
     "Annealing stress including xx, yy, zz, xy, yz, zx six directivities which are caused by the post curing."},
};
// clang-format on

/// The reasons of an item without results in the three kinds of project.
struct Missing {
    int itemId;
    const char* inSolidProject;
    const char* inShellProject;
    const char* inOtherProject;
};

constexpr const char* available = nullptr;

// clang-format off
const std::vector<Missing> missingResults = {
    { 0, "No fiber results nor file *.o2w",   "No fiber results.",                 available},
    { 1, "No runners",                        "No runners",                        "No runners"},
    { 2, "No moldbase",                       "No moldbase",                       "No moldbase"},
    { 3, "No file *.RSF",                     "No file *.RSF",                     "No file *.RSF"},
    { 4, "No file *.k5w",                     "No file *.k5w",                     "No file *.k5w"},
    { 5, "No file *.k5f",                     "No file *.k5f",                     available},
    { 6, "No inserted-part nor file *.k5f",   "No inserted-part nor file *.k5f",   "No inserted-part nor file *.k5f"},
    { 7, "No moldbase nor file *.k5f",        "No moldbase nor file *.k5f",        "No moldbase nor file *.k5f"},
    { 8, "No file *.k5p",                     "No file *.k5p",                     available},
    { 9, "No file *.k5c",                     "No file *.k5c",                     "No file *.k5c"},
    {10, "No moldbase nor file *.k5c.",       "No moldbase nor file *.k5c.",       "No moldbase nor file *.k5c."},
    {11, available,                           "No fiber results.",                 available},
    {12, "No part insert fiber results.",     "No part insert fiber results.",     "No part insert fiber results."},
    {13, "No file *.k5f",                     "No file *.k5f",                     "No file *.k5f"},
    {14, "No file *.k5f",                     "No file *.k5f",                     "No file *.k5f"},
    {15, "No fiber results nor file *.o2w",   "No fiber results.",                 available},
    {16, "No file *.k5f",                     "No file *.k5f",                     "No file *.k5f"},
    {18, "No file *_medi.crp",                "No file *_medi.crp",                "No file *_medi.crp"},
    {19, "Unknown messages",                  "Unknown messages",                  "Unknown messages"},
    {20, "Unknown messages",                  "Unknown messages",                  "Unknown messages"},
    {21, "Unknown messages",                  "Unknown messages",                  "Unknown messages"},
};
// clang-format on

}  // namespace

std::vector<Item> CatalogueOf(int solverType) {
    std::vector<Item> items = catalogue;
    if (solverType == kShellProject) {
        Item& digimatExport = items[kItemDigimatExport];
        digimatExport.checkState = 0;
        digimatExport.optionValue = kOptionNone;
        digimatExport.options = none;
    }
    return items;
}

std::map<int, std::string> MissingResultsOf(int solverType) {
    std::map<int, std::string> reasons;
    for (const Missing& row : missingResults) {
        const char* const reason = solverType == kSolidProject   ? row.inSolidProject
                                   : solverType == kShellProject ? row.inShellProject
                                                                 : row.inOtherProject;
        if (reason != available) {
            reasons[row.itemId] = reason;
        }
    }
    return reasons;
}

}  // namespace expected
