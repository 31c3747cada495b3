// A host in one page: hands over run 2 of the project "Cover" to ANSYS, on the deformed mesh.
#include <zorbi2/ZorbI2Engine.h>

#include <iostream>

int main(int count, char** arguments) {
    const std::string runFolder = count > 1 ? arguments[1] : "examples/cover/Run02";
    const std::string outFolder = count > 2 ? arguments[2] : ".";

    CZorbFEAInformation project;
    project.projectName = "Cover";
    project.runNumber = 2;
    project.projectFolder = runFolder;
    project.solverType = kSolidProject;
    project.flags[CZorbFEAInformation::kBuildCatalogue] = 1;
    project.flags[CZorbFEAInformation::kHasFiber] = 1;
    project.flags[CZorbFEAInformation::kHasMoldbase] = 1;
    project.flags[CZorbFEAInformation::kHasInsertedPart] = 1;

    CZorbI2EngineManager manager;
    if (!manager.CreateEngine(&project) || !manager.CreateCMIDataBlock() ||
        !manager.CreateCMIAccess()) {
        std::cerr << "not enough memory\n";
        return 1;
    }
    manager.SetOutFolder("D:\\Handover\\Cover");
    manager.SetCMIFileFullPath(outFolder, "Cover", 2, "cmi");

    manager.SetEngineCurrentStatus(kSolverAnsys, kMeshDeformed, 0, 0);
    manager.SetPopItems();
    manager.HasPopItem();

    CZorbI2Item item;
    CZorbI2ItemStatus status;
    for (int position = 0; manager.GetPartPopItem(position, &item, &status); ++position) {
        std::cout << item.itemId << "  " << item.title << ": "
                  << item.options.at(status.optionValue) << '\n';
        if (item.isAvailable && item.checkState != kNotACheckItem) {
            manager.SetItemStatus(item.itemId, 1, kOptionNone);  // tick it
        }
    }
    manager.SetItemsValue();
    manager.SetWeldlineDataValue();
    manager.WriteCMIFile(0);
    manager.Close();
    return 0;
}
