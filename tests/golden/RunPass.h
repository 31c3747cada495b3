// Runs a whole pass through the manager and gives the bytes of the control parameter file.
#pragma once

#include <string>

#include "tests/golden/Passes.h"
#include "tests/support/TemporaryFolder.h"

namespace golden {

/// In a made-up world of files; line ends are "\n".
std::string RunPass(const Pass& pass);

/// With the project's files and the control file in a folder of the real file system; line ends
/// are the system's.
std::string RunPassOnDisk(const Pass& pass, const support::TemporaryFolder& folder);

}  // namespace golden
