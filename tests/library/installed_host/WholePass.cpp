#include "WholePass.h"

#include <vector>

namespace whole_pass {

namespace {

struct Choice {
    int itemId;
    int checkState;
    int option;
};

const int unused = -1;

// An item takes either a check state or an option. Not chosen: 5, 7, 17 and 19.
// clang-format off
const Choice choices[] = {
    { 0, unused, 3},  // material reduction high
    { 1, unused, 1},  // include runner
    { 2, 1, unused},
    { 3, 1, unused},
    { 4, 1, unused},
    { 6, 1, unused},
    { 8, 1, unused},
    { 9, 1, unused},
    {10, 1, unused},
    {11, unused, 1},  // Converse
    {12, unused, 4},  // material reduction max
    {13, unused, 2},  // density reduction low
    {14, 1, unused},
    {15, unused, 1},  // Halpin-Tsai model
    {16, 1, unused},
    {18, 1, unused},
    {20, 1, unused},
};
// clang-format on

const int injectionCompression = 9;
const int run = 3;

bool ReadsAllOfferedItems(CZorbI2EngineManager& manager) {
    CZorbI2Item item;
    CZorbI2ItemStatus status;
    int count = 0;
    for (int i = 0; manager.GetPartPopItem(i, &item, &status); ++i) {
        ++count;
    }
    for (int i = 0; manager.GetPartInsertPopItem(i, &item, &status); ++i) {
        ++count;
    }
    for (int i = 0; manager.GetMoldBasePopItem(i, &item, &status); ++i) {
        ++count;
    }
    return count == 16 + 2 + 3;
}

bool MakesChoices(CZorbI2EngineManager& manager) {
    bool taken = true;
    for (const Choice& choice : choices) {
        taken = manager.SetItemStatus(choice.itemId, choice.checkState, choice.option) && taken;
    }
    manager.SetItemsValue();
    return taken;
}

}  // namespace

CZorbFEAInformation Project(const std::string& folder) {
    CZorbFEAInformation info;
    info.projectName = "Cover";
    info.runNumber = run;
    info.projectFolder = folder;
    info.solverType = kSolidProject;
    info.projectType = injectionCompression;
    info.flags[CZorbFEAInformation::kBuildCatalogue] = 1;
    info.flags[CZorbFEAInformation::kHasFiber] = 1;
    info.flags[CZorbFEAInformation::kHasRunners] = 1;
    info.flags[CZorbFEAInformation::kHasMoldbase] = 1;
    info.flags[CZorbFEAInformation::kHasInsertedPart] = 1;
    info.flags[CZorbFEAInformation::kHasMeetingAngle] = 1;
    return info;
}

bool WriteControlFile(CZorbFEAInformation project, const std::string& outFolder) {
    CZorbI2EngineManager manager;
    if (!manager.CreateEngine(&project) || !manager.CreateCMIDataBlock() ||
        !manager.CreateCMIAccess()) {
        return false;
    }
    manager.SetOutFolder("C:\\Projects\\Cover\\Run03\\I2");
    manager.SetMappedMeshFilePath("C:\\Projects\\Cover\\Mesh\\Cover.inp");
    manager.SetCMIFileFullPath(outFolder, "Cover", run, "cmi");
    manager.SetViewEdit(true);
    manager.SetDigimatWeldlineData(120.5);

    manager.SetEngineCurrentStatus(kSolverAbaqus, kMeshMapped, 1, 0);
    manager.SetPopItems();
    const bool offers = manager.HasPopItem() && ReadsAllOfferedItems(manager);
    const bool chosen = MakesChoices(manager);
    manager.SetWeldlineDataStatus(kSolverAbaqus, std::vector<double>{45.0, 67.5, 89.9994},
                                  std::vector<double>{0.85, 0.9, 1.0});
    manager.SetWeldlineDataValue();

    const bool written = manager.WriteCMIFile(0);
    return manager.Close() && offers && chosen && written;
}

}  // namespace whole_pass
