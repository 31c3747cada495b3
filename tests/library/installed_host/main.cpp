// A host on its own: makes the whole pass on a run folder and writes into another folder.
#include <zorbi2/CZorbI2Engine.h>

#include <cstdio>

#include <zorbi2/ZorbI2Types.h>

#include "WholePass.h"

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("installed_host RUN_FOLDER OUT_FOLDER\n", stderr);
        return 2;
    }
    CZorbFEAInformation project = whole_pass::Project(arguments[1]);
    if (!whole_pass::WriteControlFile(project, arguments[2])) {
        std::fputs("the library refused an operation\n", stderr);
        return 1;
    }

    // What the getters lead to can be read as well.
    CZorbI2EngineManager manager;
    if (!manager.CreateEngine(&project)) {
        return 1;
    }
    std::puts(manager.GetZorbI2Engine()->solverSlots[kSolverLsDyna]->name.c_str());
    return 0;
}
