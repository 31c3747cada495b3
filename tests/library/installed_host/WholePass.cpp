#include "WholePass.h"

#include <vector>

#include <zorbi2/ZorbI2Types.h>

namespace whole_pass {

namespace {

struct Choice {
    int itemId;
    int checkState;
    int option;
};

const int unused = -1;

// An item takes either a check state or an option.
// clang-format off
const Choice choices[] = {
    {15, unused, 2},  // Mori-Tanaka model
    { 0, unused, 1},  // material reduction low
    { 1, unused, 1},  // include runner
    { 4, 1, unused},
    { 3, 1, unused},
    { 5, 1, unused},
    { 8, 1, unused},
    {18, 1, unused},
    {13, unused, 3},  // density reduction medium
    {14, 1, unused},
    { 6, 1, unused},
    {12, unused, 3},  // material reduction high
    { 2, 1, unused},
    { 7, 1, unused},
    {10, 1, unused},
};
// clang-format on

const int run = 2;

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
    return count == 15 + 2 + 3;
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
    manager.SetOutFolder("D:\\Handover\\Cover");
    manager.SetCMIFileFullPath(outFolder, "Cover", run, "cmi");
    manager.SetDigimatWeldlineData(120.0);

    manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 1, 0);
    manager.SetPopItems();
    const bool offers = manager.HasPopItem() && ReadsAllOfferedItems(manager);
    const bool chosen = MakesChoices(manager);
    manager.SetWeldlineDataStatus(kSolverAnsys, std::vector<double>{20.0, 45.0, 90.0},
                                  std::vector<double>{0.75, 0.85, 0.95});
    manager.SetWeldlineDataValue();

    const bool written = manager.WriteCMIFile(0);
    return manager.Close() && offers && chosen && written;
}

}  // namespace whole_pass
