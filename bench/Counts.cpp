// What does not depend on the machine's mood: instructions, allocations and memory of the engine's
// operations. Run under valgrind's callgrind, which counts the instructions between the two marks
// of each operation and writes them into files; scripts/bench puts all of it into one table.
#include <malloc.h>
#include <valgrind/callgrind.h>

#include <cstdio>

#include <zorbi2/ZorbI2Engine.h>

#include "bench/CountedAllocations.h"
#include "bench/Project.h"

namespace {

/// Counts one operation. The second time, so that what is done once in a process does not count.
template <typename Operation>
void Count(const char* name, Operation operation) {
    for (int i = 0; i < 1; ++i) {
        operation();
    }
    const long allocationsBefore = AllocationsSoFar();
    const std::size_t bytesBefore = mallinfo2().uordblks;
    CALLGRIND_ZERO_STATS;
    operation();
    CALLGRIND_DUMP_STATS_AT(name);
    std::printf("%s: %ld allocations, %zu bytes\n", name, AllocationsSoFar() - allocationsBefore,
                mallinfo2().uordblks - bytesBefore);
}

void CountCreateEngine(const char* name, const CZorbFEAInformation& record) {
    CZorbFEAInformation info = record;
    // The managers live on, so that the bytes are those of an engine in use.
    CZorbI2EngineManager managers[2];
    CZorbI2EngineManager* next = managers;
    Count(name, [&] { (next++)->CreateEngine(&info); });
}

void CountOffer(const CZorbFEAInformation& record) {
    CZorbFEAInformation info = record;
    info.projectType = kProjectTypeMucell;  // with the largest table
    CZorbI2EngineManager manager;
    manager.CreateEngine(&info);
    manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    Count("SetPopItems + HasPopItem", [&] {
        manager.SetPopItems();
        manager.HasPopItem();
    });
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
    Count("WriteCMIFile", [&] { manager.WriteCMIFile(0); });
}

}  // namespace

int main() {
    const Project solid(kSolidProject);
    CountCreateEngine("CreateEngine, solid project", solid.info);
    CountOffer(solid.info);
    CountWrite(solid);
    const Project shell(kShellProject);
    CountCreateEngine("CreateEngine, shell project", shell.info);
}
