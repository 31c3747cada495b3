// A host on its own: makes the whole pass on the run in "Projects\Cover\Run03" of the current
// folder.
#include <cstdio>

#include <engine/CZorbI2Engine.h>

#include "WholePass.h"

int main() {
    if (!whole_pass::WriteControlFile(whole_pass::Project("Projects\\Cover\\Run03"), ".")) {
        std::fputs("the library refused an operation\n", stderr);
        return 1;
    }

    // What the getters lead to can be read as well.
    CZorbFEAInformation project = whole_pass::Project("Projects\\Cover\\Run03");
    CZorbI2EngineManager manager;
    if (!manager.CreateEngine(&project)) {
        return 1;
    }
    std::puts(manager.GetZorbI2Engine()->solverSlots[kSolverLsDyna]->name.c_str());
    return 0;
}
