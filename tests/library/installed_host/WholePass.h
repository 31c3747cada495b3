// The whole pass on the example project, by a host: from the record to the control parameter file
// that stands beside the example. C++11, and nothing but what is installed.
#pragma once

#include <string>

#include <zorbi2/ZorbI2Engine.h>

namespace whole_pass {

/// Run 2 of the example project, whose run folder this is.
CZorbFEAInformation Project(const std::string& runFolder);

/// Creates the engine for the project, makes the example's choices, and writes the control
/// parameter file "Cover02.cmi" into `outFolder`.
/// Returns whether every operation answered as a host expects.
bool WriteControlFile(CZorbFEAInformation project, const std::string& outFolder);

}  // namespace whole_pass
