// Whether solver, mesh kind, project kind and item lines of a control file fit together.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "commands/check/ProjectKind.h"
#include "control_files/ControlFile.h"
#include "problems/Problem.h"

namespace host {

class OfferCheck {
public:
    /// What of a file without faults does not fit together, in the order of the lines. Items that
    /// are never offered to the project are errors. All else is a warning, because the engine lets
    /// a host do it: it writes for any status, with the item lines of any offer made before, of
    /// none, or of lists that were given to it.
    Problems Check(const std::string& name, std::string_view text, const ControlFile& file);

private:
    /// By solver type and project type.
    std::map<std::pair<std::int32_t, std::int32_t>, ProjectKind> kinds_;
};

}  // namespace host
