// What a control file says, in words.
#pragma once

#include <string>

#include "console/Report.h"
#include "control_files/ControlFile.h"

namespace host {

/// Its mesh kind: "deformed after annealing".
std::string MeshOf(const ControlFile& file);

/// Its composite model: "Mori-Tanaka", or "results missing".
std::string CompositeModelOf(const ControlFile& file);

/// All that a file without faults says: labels, and words for them.
Json InWords(const ControlFile& file);

}  // namespace host
