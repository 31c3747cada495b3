// A host's whole pass on one project, from the record to the written file. C++11, and nothing but
// what is installed.
#pragma once

#include <string>

#include <ZorbI2Engine.h>

namespace whole_pass {

/// Run 3 of the solid project Cover in `folder`, with everything that a run can have.
CZorbFEAInformation Project(const std::string& folder);

/// Creates the engine for the project, chooses items for ABAQUS and the mapped mesh, and writes
/// the control parameter file "Cover03.cmi" into `outFolder`.
/// Returns whether every operation answered as a host expects.
bool WriteControlFile(CZorbFEAInformation project, const std::string& outFolder);

}  // namespace whole_pass
