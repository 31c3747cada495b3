// Projects for the tests that load the real library.
#pragma once

#include <string>

#include <zorbi2/ZorbI2Engine.h>

namespace library_tests {

/// Run 1 of the solid project Cover, whose engine is bare: its creation looks for no files, so that
/// a test sees only what it asks for.
inline CZorbFEAInformation BareProject(const std::string& folder) {
    CZorbFEAInformation info;
    info.projectName = "Cover";
    info.runNumber = 1;
    info.projectFolder = folder;
    info.solverType = kSolidProject;
    return info;
}

/// The same with the catalogue of items.
inline CZorbFEAInformation SolidProject(const std::string& folder) {
    CZorbFEAInformation info = BareProject(folder);
    info.flags[CZorbFEAInformation::kBuildCatalogue] = 1;
    return info;
}

/// The result code of one item, from an engine of its own.
inline int ResultOf(CZorbFEAInformation info, int itemId) {
    CZorbI2EngineManager manager;
    manager.CreateEngine(&info);
    return manager.GetProjectResults(itemId);
}

}  // namespace library_tests
