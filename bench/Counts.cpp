// What does not depend on the machine's mood: instructions, allocations and memory of the engine's
// operations. To be run under valgrind's callgrind, which writes a file for each operation with the
// instructions between its two marks; bench/bench.py puts them into a table.
#include <malloc.h>
#include <valgrind/callgrind.h>

#include <cstdio>
#include <string>
#include <vector>

#include <zorbi2/ZorbI2Engine.h>

#include "bench/CountedAllocations.h"
#include "bench/Project.h"

namespace {

template <typename Operation>
void Count(const std::string& name, Operation operation) {
    const long allocations = AllocationsSoFar();
    const std::size_t bytes = mallinfo2().uordblks;
    CALLGRIND_ZERO_STATS;
    operation();
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    std::printf("%s|%ld|%zu\n", name.c_str(), AllocationsSoFar() - allocations,
                mallinfo2().uordblks - bytes);
}

/// Engines live on until all are made, so that their bytes are those of engines in use.
void CountEngines(const std::string& name, const Project& project, std::size_t count) {
    CZorbFEAInformation info = project.info;
    std::vector<CZorbI2EngineManager> managers(count);
    Count(name, [&] {
        for (CZorbI2EngineManager& manager : managers) {
            manager.CreateEngine(&info);
        }
    });
}

/// What is done once in a process does not count.
void CreateFirstEngine(const Project& project) {
    CZorbFEAInformation info = project.info;
    CZorbI2EngineManager().CreateEngine(&info);
}

void CountOffer(const Project& project) {
    CZorbFEAInformation info = project.info;
    info.projectType = kProjectTypeMucell;  // with the largest table
    CZorbI2EngineManager manager;
    manager.CreateEngine(&info);
    manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    const auto offer = [&manager] {
        manager.SetPopItems();
        manager.HasPopItem();
    };
    offer();
    Count("SetPopItems + HasPopItem, after the first", offer);
}

void CountWrite(const Project& project) {
    CZorbFEAInformation info = project.info;
    CZorbI2EngineManager manager;
    manager.CreateEngine(&info);
    manager.CreateCMIDataBlock();
    manager.CreateCMIAccess();
    manager.SetOutFolder(project.Folder());
    manager.SetCMIFileFullPath(project.Folder(), "Cover", 3, "cmi");
    manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    manager.SetPopItems();
    manager.HasPopItem();
    manager.WriteCMIFile(0);
    Count("WriteCMIFile", [&manager] { manager.WriteCMIFile(0); });
}

}  // namespace

int main() {
    std::setvbuf(stdout, nullptr, _IONBF, 0);  // a buffer would count as memory
    const Project solid(kSolidProject);
    CreateFirstEngine(solid);
    CountEngines("CreateEngine, solid project", solid, 1);
    CountEngines("CreateEngine, solid project, 10 times", solid, 10);
    CountEngines("CreateEngine, solid project, 100 times", solid, 100);
    CountEngines("CreateEngine, solid project, 1000 times", solid, 1000);
    const Project shell(kShellProject);
    CreateFirstEngine(shell);
    CountEngines("CreateEngine, shell project", shell, 1);
    CountOffer(solid);
    CountWrite(solid);
}
