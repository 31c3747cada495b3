// The project that most tests work on, and a manager that has it open. Its run folder is made up.
#pragma once

#include <zorbi2/CZorbFEAInformation.h>
#include <zorbi2/CZorbI2Engine.h>
#include <zorbi2/CZorbI2EngineManager.h>
#include <zorbi2/PopItemSelector.h>
#include <zorbi2/ZorbI2Types.h>

#include "tests/support/WatchedPlatform.h"

namespace support {

/// Project "Cover", run 3 in D:\Proj\Run03\, catalogue wanted; all other facts are false.
CZorbFEAInformation PlainProject(int solverType = kSolidProject);

/// The same with fibers, runners, moldbase, inserted part and meeting angles.
CZorbFEAInformation CompleteProject(int solverType = kSolidProject);

/// A record that gives a bare engine.
CZorbFEAInformation ProjectWithoutCatalogue();

enum class ResultFiles { all, none };

/// Adds every result file of the project, a shot file that names run 2, and that run's fiber
/// orientation; the result reader finds a version that suffices.
void AddAllResults(WatchedPlatform& files);

/// A manager with its three objects, in a made-up world of files.
class OpenProject {
public:
    explicit OpenProject(CZorbFEAInformation record = CompleteProject(),
                         ResultFiles results = ResultFiles::all);

    CZorbI2Engine& Engine() { return *manager.GetZorbI2Engine(); }
    PopItemSelector& Selector() { return *Engine().popItemSelector; }

    WatchedPlatform files;
    CZorbI2EngineManager manager;
};

}  // namespace support
