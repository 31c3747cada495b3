#include "recipes/RecipeKeys.h"

#include <limits>

#include <zorbi2/ZorbI2Types.h>

#include "control_files/ControlFile.h"
#include "recipes/Recipe.h"
#include "recipes/RecipeValue.h"

namespace host {

namespace {

using Info = CZorbFEAInformation;

template <Info::FlagPosition position>
void ReadFact(Recipe& recipe, const RecipeValue& value) {
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
    {"project.name", needed, anyText, "the base name of the run's files", [](Recipe& r, const RecipeValue& v) { r.project.projectName = v.FileName(); }},
    {"project.run", needed, runNumber, "the number of the run", [](Recipe& r, const RecipeValue& v) { r.project.runNumber = v.Integer(); }},
    {"project.folder", needed, anyText, "the folder of the run's files", [](Recipe& r, const RecipeValue& v) { r.project.projectFolder = v.Path(); }},
    {"project.empty_run", hasDefault, flag, "the run may have no result files", [](Recipe& r, const RecipeValue& v) { r.emptyRun = v.Flag(); }},
    {"project.analysis", hasDefault, analysis, "kind of molding analysis", [](Recipe& r, const RecipeValue& v) { r.project.solverType = v.OneOf(); }},
    {"project.type", hasDefault, projectType, "project type: 3 is annealing; 4 and 6 to 11 are injection compression (9 is Mucell)", [](Recipe& r, const RecipeValue& v) { r.project.projectType = v.Integer(); }},
    {"project.voxel_mesh", hasDefault, flag, "the results are voxel-mesh results", [](Recipe& r, const RecipeValue& v) { r.project.voxelFlag = v.Flag(); }},
    {"project.fiber_results", hasDefault, flag, "the project has fiber results", ReadFact<Info::kHasFiber>},
    {"project.runners", hasDefault, flag, "the project has runners", ReadFact<Info::kHasRunners>},
    {"project.moldbase", hasDefault, flag, "the project has a moldbase", ReadFact<Info::kHasMoldbase>},
    {"project.inserted_part", hasDefault, flag, "the project has an inserted part", ReadFact<Info::kHasInsertedPart>},
    {"project.meeting_angles", hasDefault, flag, "the project has weld-line meeting angles", ReadFact<Info::kHasMeetingAngle>},
    {"project.view_edit", hasDefault, flag, "a model edited in the viewer is mapped", ReadFact<Info::kViewEditAtStart>},
    {"target.solver", needed, solverName, "the structural solver", [](Recipe& r, const RecipeValue& v) { r.solver = v.OneOf(); }},
    {"target.mesh", needed, meshKind, "the mesh kind", [](Recipe& r, const RecipeValue& v) { r.meshKind = v.OneOf(); }},
    {"target.quadratic_elements", hasDefault, flag, "use the second of the solver's element types", [](Recipe& r, const RecipeValue& v) { r.quadraticElements = v.Flag(); }},
    {"target.annealing", hasDefault, flag, "use the annealing-deformed mesh as the deformed mesh", [](Recipe& r, const RecipeValue& v) { r.annealing = v.Flag(); }},
    {"target.mapped_mesh", hasDefault, anyText, "path of the mapped mesh, which the two mapped mesh kinds need", [](Recipe& r, const RecipeValue& v) { r.mappedMesh = v.Path(); }},
    {"control_file.folder", hasDefault, anyText, "folder of the control file; by default the recipe's", [](Recipe& r, const RecipeValue& v) { r.controlFolder = v.Path(); }},
    {"control_file.name", hasDefault, anyText, "name of the control file, without the run number; by default project.name", [](Recipe& r, const RecipeValue& v) { r.controlName = v.FileName(); }},
    {"control_file.extension", hasDefault, anyText, "extension of the control file, without the dot; by default cmi", [](Recipe& r, const RecipeValue& v) { r.controlExtension = v.Extension(); }},
    {"output.folder", hasDefault, anyText, "where the translator puts its files; by default next to the control file", [](Recipe& r, const RecipeValue& v) { r.outFolder = v.Path(); }},
    {"weld_lines.angles", hasDefault, threeAngles, "three ascending angles in degrees", [](Recipe& r, const RecipeValue& v) { r.weldlineAngles = v.AscendingAngles(); }},
    {"weld_lines.reduction_rates", hasDefault, threeFractions, "remaining strength, as three fractions", [](Recipe& r, const RecipeValue& v) { r.reductionRates = v.Numbers(); }},
    {"weld_lines.digimat_angle", hasDefault, angle, "the Digimat angle, in degrees", [](Recipe& r, const RecipeValue& v) { r.digimatAngle = v.Number(); }},
};
// clang-format on

}  // namespace

std::span<const RecipeKey> RecipeKeys() {
    return keys;
}

}  // namespace host
