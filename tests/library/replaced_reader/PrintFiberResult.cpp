// A host that prints the result code of the fiber orientation for run 1 of the project Cover in the
// current folder.
#include <cstdio>

#include <zorbi2/ZorbI2Engine.h>

int main() {
    CZorbFEAInformation project;
    project.projectName = "Cover";
    project.runNumber = 1;
    project.projectFolder = ".\\";
    project.flags[CZorbFEAInformation::kHasFiber] = 1;

    CZorbI2EngineManager manager;
    manager.CreateEngine(&project);
    std::printf("%d", manager.GetProjectResults(kItemFiberOrientation));
    return 0;
}
