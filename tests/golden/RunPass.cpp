#include "tests/golden/RunPass.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <zorbi2/CZorbFEAInformation.h>
#include <zorbi2/CZorbI2AccessCMIFile.h>
#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/CZorbI2EngineManager.h>

#include "tests/support/ResultReaderDouble.h"
#include "tests/support/WatchedPlatform.h"

namespace golden {

namespace {

/// Where a pass finds its project and leaves its control file; both end in a backslash.
struct Place {
    std::string root;
    std::string controlFolder;
};

const char* const controlName = "Control";
const char* const controlFileName = "Control03.cmi";

CZorbFEAInformation RecordOf(const Project& project, const std::string& root) {
    CZorbFEAInformation record;
    record.projectName = project.name;
    record.runNumber = project.runNumber;
    record.projectFolder = root + project.runFolder;
    record.solverType = project.solverType;
    record.projectType = project.projectType;
    record.voxelFlag = project.voxelFlag;
    for (const int position : project.flags) {
        record.flags[position] = 1;
    }
    return record;
}

/// The shot file lies where the record's folder, as it stands after the first file was looked
/// for, has the run's files.
std::string ShotFilePath(const Project& project) {
    std::string path = project.runFolder;
    if (path.back() != '\\') {
        path += '\\';
    }
    const std::string tag = (project.runNumber < 10 ? "0" : "") + std::to_string(project.runNumber);
    return path + project.name + tag + ".cmx";
}

void SetResultReader(const Project& project) {
    support::ResultReader() = support::ResultReaderDouble();
    support::ResultReader().beginResult = project.fiberVersion == 0 ? 1 : 0;
    support::ResultReader().version = project.fiberVersion;
}

void ApplySettings(CZorbI2EngineManager& manager, const Settings& settings) {
    manager.SetOutFolder(settings.outFolder);
    manager.SetMappedMeshFilePath(settings.mappedMesh);
    if (settings.viewEdit) {
        manager.SetViewEdit(*settings.viewEdit);
    }
    if (settings.digimatAngle) {
        manager.SetDigimatWeldlineData(*settings.digimatAngle);
    }
}

void Make(CZorbI2EngineManager& manager, const Visit& visit) {
    manager.SetEngineCurrentStatus(visit.solver, visit.meshKind, visit.quadraticElement,
                                   visit.annealingMode);
    if (visit.offersItems) {
        manager.SetPopItems();
        manager.HasPopItem();
    }
    for (const Choice& choice : visit.choices) {
        manager.SetItemStatus(choice.itemId, choice.checkState, choice.option);
    }
    if (visit.commitsChoices) {
        manager.SetItemsValue();
    }
    if (visit.takesWeldlines) {
        manager.SetWeldlineDataValue();
    }
}

/// From the record to the written file.
void Drive(const Pass& pass, const Place& place) {
    SetResultReader(pass.project);
    CZorbFEAInformation record = RecordOf(pass.project, place.root);
    CZorbI2EngineManager manager;
    manager.CreateEngine(&record);
    manager.CreateCMIDataBlock();
    manager.CreateCMIAccess();
    manager.SetCMIFileFullPath(place.controlFolder, controlName, 3, "cmi");
    ApplySettings(manager, pass.settings);
    for (const WeldlineValues& values : pass.weldlines) {
        manager.SetWeldlineDataStatus(values.solver, values.angles, values.rates);
    }
    for (const Visit& visit : pass.visits) {
        Make(manager, visit);
    }
    manager.WriteCMIFile(0);
    if (pass.lists) {
        manager.GetZorbAccessCMIFile()->Write(pass.lists->part, pass.lists->partInsert,
                                              pass.lists->moldbase, *manager.GetZorbCMIData());
    }
    manager.Close();
}

/// "Run03\Cover03.k5f" as the system writes it.
std::filesystem::path NativePath(const std::string& enginePath) {
    std::filesystem::path path;
    std::size_t start = 0;
    for (std::size_t end = enginePath.find('\\'); end != std::string::npos;
         start = end + 1, end = enginePath.find('\\', start)) {
        path /= enginePath.substr(start, end - start);
    }
    return path / enginePath.substr(start);
}

void MakeFile(const support::TemporaryFolder& folder, const std::string& enginePath,
              const std::string& bytes) {
    const std::filesystem::path path = NativePath(enginePath);
    std::filesystem::create_directories(folder.Path() / path.parent_path());
    folder.MakeFile(path.string(), bytes);
}

}  // namespace

std::string RunPass(const Pass& pass) {
    const Project& project = pass.project;
    const Place place{project.root, "D:\\Control\\"};
    support::WatchedPlatform files;
    for (const std::string& file : project.files) {
        files.existing.insert(project.root + file);
    }
    if (!project.shotFile.empty()) {
        files.readable[project.root + ShotFilePath(project)] = project.shotFile;
    }
    Drive(pass, place);
    return files.written[place.controlFolder + controlFileName];
}

std::string RunPassOnDisk(const Pass& pass, const support::TemporaryFolder& folder) {
    const Project& project = pass.project;
    for (const std::string& file : project.files) {
        MakeFile(folder, file, "");
    }
    if (!project.shotFile.empty()) {
        MakeFile(folder, ShotFilePath(project), project.shotFile);
    }
    const std::string place = folder.EnginePath("");
    Drive(pass, {place, place});
    return folder.BytesOf(controlFileName);
}

}  // namespace golden
