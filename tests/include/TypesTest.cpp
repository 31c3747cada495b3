// The public names and their numbers, written once by hand: hosts are compiled with the numbers.
#include <zorbi2/ZorbI2Types.h>

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

struct Name {
    const char* name;
    std::int32_t value;
    std::int32_t number;
};

#define NAME(name, number) \
    { #name, name, number }

// clang-format off
const std::vector<Name> names = {
    // Solvers
    NAME(kSolverAnsys, 0),
    NAME(kSolverAbaqus, 1),
    NAME(kSolverMscNastran, 2),
    NAME(kSolverNeNastran, 3),
    NAME(kSolverLsDyna, 4),
    NAME(kSolverMarc, 5),
    NAME(kSolverNxNastran, 6),
    NAME(kSolverRadioss, 7),
    NAME(kSolverWorkbench, 8),
    NAME(kSolverCount, 9),
    NAME(kMeshOriginal, 0),
    NAME(kMeshDeformed, 1),
    NAME(kMeshMapped, 2),
    NAME(kMesh3DMappingShell, 3),
    NAME(kAnnealingDeformedMesh, 1),
    // Projects
    NAME(kSolidProject, 0),
    NAME(kShellProject, 1),
    NAME(kProjectTypeAnnealing, 3),
    NAME(kProjectTypeMucell, 9),
    // Items
    NAME(kItemFiberOrientation, 0),
    NAME(kItemRunner, 1),
    NAME(kItemMoldbaseMesh, 2),
    NAME(kItemFlowInducedStress, 3),
    NAME(kItemThermalStress, 4),
    NAME(kItemInitialStrain, 5),
    NAME(kItemInsertFlowPressure, 6),
    NAME(kItemMoldbasePressure, 7),
    NAME(kItemPackingTemperature, 8),
    NAME(kItemEndOfCoolingTemperature, 9),
    NAME(kItemMoldbaseTemperature, 10),
    NAME(kItemDigimatExport, 11),
    NAME(kItemInsertFiberMaterial, 12),
    NAME(kItemDensity, 13),
    NAME(kItemWeldLine, 14),
    NAME(kItemMicroMechanics, 15),
    NAME(kItemDigimatWeldLine, 16),
    NAME(kItemDigimatMucell, 17),
    NAME(kItemDigimatFiber, 18),
    NAME(kItemDigimatStress, 19),
    NAME(kItemDigimatTemperature, 20),
    NAME(kItemAnnealingStress, 21),
    NAME(kItemCount, 22),
    NAME(kCategoryPart, 0),
    NAME(kCategoryPartInsert, 1),
    NAME(kCategoryMoldbase, 2),
    NAME(kOptionResultsMissing, -2),
    NAME(kOptionNone, -1),
    NAME(kNotACheckItem, -1),
    // Result codes
    NAME(kResultAvailable, 1),
    NAME(kResultNoFiberResultsNorO2w, 0),
    NAME(kResultNoFiberResults, -1),
    NAME(kResultNoO2w, -2),
    NAME(kResultNoRunners, -3),
    NAME(kResultOstraMeshAndNoK5w, -4),
    NAME(kResultOstraMesh, -5),
    NAME(kResultNoK5w, -6),
    NAME(kResultNoRsf, -7),
    NAME(kResultNoK5f, -8),
    NAME(kResultNoK5p, -9),
    NAME(kResultNoMediCrp, -10),
    NAME(kResultNoCheck, -11),
    NAME(kResultNoInsertNorK5f, -13),
    NAME(kResultNoInsert, -14),
    NAME(kResultNoMoldbase, -15),
    NAME(kResultNoMoldbaseNorK5f, -16),
    NAME(kResultNoMoldbaseNorK5c, -17),
    NAME(kResultNoK5c, -18),
    NAME(kResultNoInsertFiberResults, -19),
    NAME(kResultNoDigimatInformation, -23),
    NAME(kResultNoMeetingAngle, -24),
    NAME(kResultNeitherRsfNorK5w, -25),
    NAME(kResultNeitherK5pNorK5c, -26),
    NAME(kResultNoK5s, -27),
    NAME(kResultNoFiberResultsEither, 15),
    NAME(kResultLowest, -27),
};
// clang-format on

/// The names that the header gives to whole numbers.
std::set<std::string> NamesInTheHeader() {
    std::ifstream header(ZORBI2_TEST_DATA "/../include/zorbi2/ZorbI2Types.h");
    const std::regex constant("^constexpr (?!double)\\S+ (k\\w+) = .*");
    std::set<std::string> found;
    std::smatch parts;
    for (std::string line; std::getline(header, line);) {
        if (std::regex_search(line, parts, constant)) {
            found.insert(parts[1]);
        }
    }
    return found;
}

}  // namespace

TEST(Types, NamesHaveTheirNumbers) {
    for (const Name& row : names) {
        EXPECT_EQ(row.value, row.number) << row.name;
    }
    EXPECT_EQ(kDefaultDigimatWeldlineAngle, 135.0);
}

TEST(Types, EveryNameOfTheHeaderHasItsNumberHere) {
    std::set<std::string> listed;
    for (const Name& row : names) {
        listed.insert(row.name);
    }
    EXPECT_EQ(NamesInTheHeader(), listed);
}
