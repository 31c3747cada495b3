// A host in C++11: fills a project record, reads what the getters lead to, takes a session to its
// end. Says what fails and ends with 1.
#include <cstddef>
#include <cstdio>
#include <map>
#include <string>

#include <zorbi2/CZorbI2AccessCMIFile.h>
#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/CZorbI2Engine.h>
#include <zorbi2/ControlFileFormat.h>
#include <zorbi2/ZorbI2Engine.h>

#if __cplusplus >= 201402L && !defined(_MSC_VER)
#error "this program is here to be compiled as C++11"
#endif

namespace {

int failures = 0;

void Expect(bool holds, const char* promise) {
    if (!holds) {
        std::fprintf(stderr, "not so: %s\n", promise);
        ++failures;
    }
}

/// Of a kind for which the fiber orientation counts as there without any file.
CZorbFEAInformation Project() {
    CZorbFEAInformation info;
    info.projectName = "Cover";
    info.runNumber = 3;
    info.projectFolder = "no such folder";
    info.solverType = 2;
    info.flags[CZorbFEAInformation::kBuildCatalogue] = 1;
    info.flags[CZorbFEAInformation::kViewEditAtStart] = 1;
    return info;
}

/// In C++11 a constant that is a static member would have no address to give.
void TakeConstantsByReference() {
    const std::size_t& flagCount = CZorbFEAInformation::kFlagCount;
    const int& solverCount = kSolverCount;
    Expect(flagCount == 20, "the record has 20 flags");
    Expect(solverCount == kSolverWorkbench + 1, "Workbench is the last solver");
}

void ReadSolverSlots(const CZorbI2Engine& engine) {
    const SolverSlot& lsDyna = *engine.solverSlots[kSolverLsDyna];
    Expect(lsDyna.name == "LS-Dyna", "the slot is LS-Dyna's");
    Expect(lsDyna.meshTypes.size() == 4, "LS-Dyna has four mesh kinds");
    Expect(lsDyna.meshKind == kMeshMapped, "the slot has the mesh kind that was set");
    Expect(engine.popItemSelector->currentSolver == kSolverLsDyna, "LS-Dyna is current");
}

void ReadItem(CZorbI2EngineManager& manager) {
    CZorbI2Item item;
    CZorbI2ItemStatus status;
    Expect(manager.GetPartPopItemByID(kItemFiberOrientation, &item, &status),
           "the fiber orientation is read");
    Expect(item.title == "Fiber orientation", "the fiber orientation has its title");
    Expect(item.options.size() == 6, "the fiber orientation has six options");
    Expect(status.optionValue == 2, "the fiber orientation starts with its third option");
    std::map<int, std::string> options;
    Expect(manager.GetItemAllOptions(kItemRunner, options), "the runner has options");
    Expect(options[kOptionResultsMissing] == "No runners", "the runner has a reason");
}

/// Finds lines of the control file as a reader of the file does.
void ReadControlFileFormat() {
    const ControlFileLine* density = ControlFileLineOfItem(kItemDensity);
    Expect(density != nullptr && ControlFileKey(density->text) == "IsDensityOutput",
           "the density has a line with its key");
    Expect(ControlFileLineOfItem(kItemMicroMechanics) == nullptr, "micromechanics has no line");
    ControlFileRange range = {0, 0};
    Expect(GetControlFileRange(*density, &range) && range.highest == 1, "the line has a range");
    Expect(std::string(kSolverKeywords[kSolverLsDyna].keyword) == "LSDYNA",
           "LS-Dyna has its keyword");
}

}  // namespace

int main() {
    TakeConstantsByReference();
    ReadControlFileFormat();
    CZorbFEAInformation info = Project();
    CZorbI2EngineManager manager;
    Expect(manager.CreateEngine(&info), "engine created");
    Expect(manager.CreateCMIDataBlock(), "data block created");
    Expect(manager.CreateCMIAccess(), "writer created");
    manager.SetCMIFileFullPath("no such folder", "Cover", 3, "cmi");
    manager.SetEngineCurrentStatus(kSolverLsDyna, kMeshMapped, 0, 0);
    ReadSolverSlots(*manager.GetZorbI2Engine());
    ReadItem(manager);
    Expect(manager.SetItemStatus(kItemFiberOrientation, 0, 4), "choice taken");
    manager.SetItemsValue();
    Expect(manager.WriteCMIFile(0), "write answers true");
    Expect(manager.GetZorbCMIData()->FiberThetaXSegment == 30, "choice has reached the data block");
    Expect(manager.GetZorbCMIData()->IsViewEditModelMapping == 1, "view edit as in the record");
    Expect(manager.GetZorbAccessCMIFile()->filePath == "no such folder\\Cover03.cmi", "path set");
    Expect(manager.Close(), "closed");
    return failures == 0 ? 0 : 1;
}
