// Calls of the manager that need no session: creation, names, and where a control file goes.
#pragma once

#include <filesystem>
#include <string>

#include <zorbi2/CZorbFEAInformation.h>
#include <zorbi2/CZorbI2Engine.h>
#include <zorbi2/CZorbI2EngineManager.h>

#include "recipes/Names.h"
#include "recipes/Recipe.h"

namespace host {

/// Creates the engine of a project with all that goes with it. Throws a Failure for texts that
/// cannot be handed to the engine.
void CreateEngine(CZorbI2EngineManager& manager, CZorbFEAInformation project);

/// The engine's debug files, which it leaves in the scratch folder. If the next engine wrote them
/// anew, file systems would bring them to the disk each time, as what replaces something.
void RemoveDebugFiles();

/// The names of items and solvers, with the engine's titles and display names.
Names AskNames(const CZorbI2Engine& engine);

/// Tells the engine to put the recipe's control file into a folder. Returns the file's path. Looks
/// at no file.
std::filesystem::path SetControlFile(CZorbI2EngineManager& manager, const Recipe& recipe,
                                     const std::string& folder);

}  // namespace host
