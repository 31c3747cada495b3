// What a report tells of one recipe or control file, as JSON. Writes nothing.
#pragma once

#include <string>

#include "commands/Surroundings.h"
#include "commands/check/OfferCheck.h"
#include "commands/write/Job.h"
#include "console/Report.h"

namespace host {

/// A recipe: as "write" and "items" show it, with what its control file says. The problems stand in
/// the job.
Json EntryOf(Job& job, Surroundings& host, const FilesRead& recipesRead);

/// A control file: as "check" shows it, with its text and items as far as it tells.
Json EntryOf(const std::string& file, const Surroundings& host, OfferCheck& offers,
             Problems& problems);

}  // namespace host
