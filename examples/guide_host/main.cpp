// The host of docs/host-guide.md, which goes through it piece by piece: hands over run 2 of the
// project "Cover" to ANSYS, and goes by the file that was written, not by the engine's answer.
#include <zorbi2/ZorbI2Engine.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>

// ---- The project -------------------------------------------------------------------------------

CZorbFEAInformation ProjectIn(const std::string& runFolder) {
    CZorbFEAInformation project;
    project.projectName = "Cover";
    project.runNumber = 2;
    project.projectFolder = runFolder;
    project.solverType = kSolidProject;
    project.flags[CZorbFEAInformation::kBuildCatalogue] = 1;
    project.flags[CZorbFEAInformation::kHasFiber] = 1;
    project.flags[CZorbFEAInformation::kHasMoldbase] = 1;
    return project;
}

// ---- The three objects -------------------------------------------------------------------------

bool Open(CZorbI2EngineManager& manager, CZorbFEAInformation project) {
    return manager.CreateEngine(&project) && manager.CreateCMIDataBlock() &&
           manager.CreateCMIAccess();
}

bool IsWhole(const CZorbI2Engine& engine) {
    for (const auto& item : engine.items) {
        if (!item) {
            return false;
        }
    }
    for (SolverIndex solver = 0; solver < kSolverCount; ++solver) {
        if (engine.solverOffered[solver] && !engine.solverSlots[solver]) {
            return false;
        }
    }
    return true;
}

// ---- The dialog --------------------------------------------------------------------------------

void Choose(CZorbI2EngineManager& manager, SolverIndex solver, int meshKind) {
    manager.SetEngineCurrentStatus(solver, meshKind, 0, 0);
    manager.SetPopItems();
    manager.HasPopItem();
}

void ShowPart(CZorbI2EngineManager& manager) {
    CZorbI2Item item;
    CZorbI2ItemStatus status;
    for (int position = 0; manager.GetPartPopItem(position, &item, &status); ++position) {
        std::cout << item.itemId << ' ' << item.title << ": ";
        if (status.optionValue == kOptionResultsMissing) {
            std::cout << "missing, " << item.options[kOptionResultsMissing] << '\n';
        } else if (item.checkState == kNotACheckItem) {
            std::cout << item.options[status.optionValue] << '\n';
        } else {
            std::cout << (status.checkState == 1 ? "on" : "off") << '\n';
        }
    }
}

void TakeChoices(CZorbI2EngineManager& manager) {
    manager.SetItemStatus(kItemThermalStress, 1, kOptionNone);        // a switch
    manager.SetItemStatus(kItemFiberOrientation, kNotACheckItem, 1);  // an option, by its key
    manager.SetItemsValue();
    manager.SetWeldlineDataStatus(kSolverAnsys, {20.0, 45.0, 90.0}, {0.75, 0.85, 0.95});
    manager.SetWeldlineDataValue();
}

// ---- The control file --------------------------------------------------------------------------

bool CanBeOpened(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "w");
    if (file == nullptr) {
        std::cerr << path << ": " << std::strerror(errno) << '\n';
        return false;
    }
    return std::fclose(file) == 0;
}

bool IsComplete(const std::string& path) {
    std::ifstream file(path);
    std::string line;
    std::string last;
    while (std::getline(file, line)) {
        last = line;
    }
    return last == "[\\REDUCTION RATE]";
}

bool Replace(const std::string& path, const std::string& by) {
    if (std::rename(by.c_str(), path.c_str()) == 0) {
        return true;
    }
    std::remove(path.c_str());  // where a rename replaces nothing
    return std::rename(by.c_str(), path.c_str()) == 0;
}

bool WriteControlFile(CZorbI2EngineManager& manager, const std::string& folder) {
    const std::string path = folder + "/Cover02.new";
    manager.SetCMIFileFullPath(folder, "Cover", 2, "new");
    if (!CanBeOpened(path)) {
        return false;
    }
    manager.WriteCMIFile(0);
    if (!IsComplete(path)) {
        std::cerr << path << ": not written\n";
        std::remove(path.c_str());
        return false;
    }
    return Replace(folder + "/Cover02.cmi", path);
}

// ---- The whole pass ----------------------------------------------------------------------------

bool HandOver(const std::string& runFolder, const std::string& folder) {
    CZorbI2EngineManager manager;
    if (!Open(manager, ProjectIn(runFolder)) || !IsWhole(*manager.GetZorbI2Engine())) {
        std::cerr << "not enough memory\n";
        return false;
    }
    manager.SetOutFolder("D:\\Handover\\Cover");
    Choose(manager, kSolverAnsys, kMeshOriginal);
    TakeChoices(manager);
    ShowPart(manager);
    return WriteControlFile(manager, folder);
}

// ---- Trace lines -------------------------------------------------------------------------------

#if !defined(_WIN32)  // there the system has it
extern "C" void OutputDebugStringW(const wchar_t* line) {
    for (; *line != L'\0'; ++line) {
        std::fputc(*line < 128 ? static_cast<char>(*line) : '?', stderr);
    }
    std::fputc('\n', stderr);
}
#endif

// ---- Main --------------------------------------------------------------------------------------

int main(int count, char** arguments) {
    try {
        const std::string runFolder = count > 1 ? arguments[1] : "examples/cover/Run02";
        const std::string folder = count > 2 ? arguments[2] : ".";
        return HandOver(runFolder, folder) ? 0 : 1;
    } catch (const std::exception& error) {  // std::bad_alloc, std::out_of_range
        std::cerr << error.what() << '\n';
        return 1;
    }
}
