// What a control file says, in words.
#pragma once

#include "console/Report.h"
#include "control_files/ControlFile.h"

namespace host {

/// All that a file without faults says: labels, and words for them.
Json InWords(const ControlFile& file);

}  // namespace host
