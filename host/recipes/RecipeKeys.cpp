#include "recipes/RecipeKeys.h"

#include <limits>

#include <zorbi2/ZorbI2Types.h>

#include "control_files/ControlFile.h"
#include "recipes/Recipe.h"
#include "recipes/RecipeValue.h"

namespace host {

namespace {

using Info = CZorbFEAInformation;
using Value = RecipeValue;

// Where a value goes, and how it is read.

template <auto member, auto read>
void To(Recipe& recipe, const Value& value) {
    recipe.*member = (value.*read)();
}

template <auto member, auto read>
void ToProject(Recipe& recipe, const Value& value) {
    recipe.project.*member = (value.*read)();
}

template <Info::FlagPosition position>
void ToFact(Recipe& recipe, const Value& value) {
    recipe.project.flags[position] = value.Flag();
}

constexpr std::int32_t highestRun = std::numeric_limits<std::int32_t>::max();

// clang-format off
constexpr KeyForm anyText =        {"string"};
constexpr KeyForm flag =           {"boolean"};
constexpr KeyForm runNumber =      {"integer", "a whole number",      highestRun};
constexpr KeyForm projectType =    {"integer", "a whole number",      highestProjectType};
constexpr KeyForm angle =          {"number",  "a number of degrees", 180};
constexpr KeyForm threeAngles =    {"number",  "a number of degrees", 180, 3};
constexpr KeyForm threeFractions = {"number",  "a fraction",          1, 3};
constexpr KeyForm analysis =       {"name", {}, 0, 1, [](const Names&) { return Vocabulary{{kSolidProject, "solid"}, {kShellProject, "shell"}}; }};
constexpr KeyForm meshKind =       {"name", {}, 0, 1, [](const Names&) { return meshKinds; }};
constexpr KeyForm solverName =     {"name", {}, 0, 1, [](const Names& names) { return names.solvers; }};

constexpr bool needed = true;
constexpr bool hasDefault = false;
constexpr RecipeKey keys[] = {
    {"project.name",               needed,     anyText,        ToProject<&Info::projectName, &Value::FileName>,      "the base name of the run's files"},
    {"project.run",                needed,     runNumber,      ToProject<&Info::runNumber, &Value::Integer>,         "the number of the run"},
    {"project.folder",             needed,     anyText,        ToProject<&Info::projectFolder, &Value::Path>,        "the folder of the run's files"},
    {"project.empty_run",          hasDefault, flag,           To<&Recipe::emptyRun, &Value::Flag>,                  "the run may have no result files"},
    {"project.analysis",           hasDefault, analysis,       ToProject<&Info::solverType, &Value::OneOf>,          "kind of molding analysis"},
    {"project.type",               hasDefault, projectType,    ToProject<&Info::projectType, &Value::Integer>,       "project type: 3 is annealing; 4 and 6 to 11 are injection compression (9 is Mucell)"},
    {"project.voxel_mesh",         hasDefault, flag,           ToProject<&Info::voxelFlag, &Value::Flag>,            "the results are voxel-mesh results"},
    {"project.fiber_results",      hasDefault, flag,           ToFact<Info::kHasFiber>,                              "the project has fiber results"},
    {"project.runners",            hasDefault, flag,           ToFact<Info::kHasRunners>,                            "the project has runners"},
    {"project.moldbase",           hasDefault, flag,           ToFact<Info::kHasMoldbase>,                           "the project has a moldbase"},
    {"project.inserted_part",      hasDefault, flag,           ToFact<Info::kHasInsertedPart>,                       "the project has an inserted part"},
    {"project.meeting_angles",     hasDefault, flag,           ToFact<Info::kHasMeetingAngle>,                       "the project has weld-line meeting angles"},
    {"project.view_edit",          hasDefault, flag,           ToFact<Info::kViewEditAtStart>,                       "a model edited in the viewer is mapped"},
    {"target.solver",              needed,     solverName,     To<&Recipe::solver, &Value::OneOf>,                   "the structural solver"},
    {"target.mesh",                needed,     meshKind,       To<&Recipe::meshKind, &Value::OneOf>,                 "the mesh kind"},
    {"target.quadratic_elements",  hasDefault, flag,           To<&Recipe::quadraticElements, &Value::Flag>,         "use the second of the solver's element types"},
    {"target.annealing",           hasDefault, flag,           To<&Recipe::annealing, &Value::Flag>,                 "use the annealing-deformed mesh as the deformed mesh"},
    {"target.mapped_mesh",         hasDefault, anyText,        To<&Recipe::mappedMesh, &Value::Path>,                "path of the mapped mesh, which the two mapped mesh kinds need"},
    {"control_file.folder",        hasDefault, anyText,        To<&Recipe::controlFolder, &Value::Path>,             "folder of the control file; by default the recipe's"},
    {"control_file.name",          hasDefault, anyText,        To<&Recipe::controlName, &Value::FileName>,           "name of the control file, without the run number; by default project.name"},
    {"control_file.extension",     hasDefault, anyText,        To<&Recipe::controlExtension, &Value::Extension>,     "extension of the control file, without the dot; by default cmi"},
    {"output.folder",              hasDefault, anyText,        To<&Recipe::outFolder, &Value::Path>,                 "where the translator puts its files; by default next to the control file"},
    {"weld_lines.angles",          hasDefault, threeAngles,    To<&Recipe::weldlineAngles, &Value::AscendingAngles>, "three ascending angles in degrees"},
    {"weld_lines.reduction_rates", hasDefault, threeFractions, To<&Recipe::reductionRates, &Value::Numbers>,         "remaining strength, as three fractions"},
    {"weld_lines.digimat_angle",   hasDefault, angle,          To<&Recipe::digimatAngle, &Value::Number>,            "the Digimat angle, in degrees"},
};
// clang-format on

}  // namespace

std::span<const RecipeKey> RecipeKeys() {
    return keys;
}

}  // namespace host
