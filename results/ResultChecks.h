// Decides for each output item whether the results of the run allow it to be handed over.
#pragma once

#include <cstdint>

#include <zorbi2/CZorbFEAInformation.h>
#include <zorbi2/ZorbI2Types.h>

#include "results/RunFiles.h"

namespace results {

/// The run that is checked. A check may change what it refers to: looking for a file normalizes the
/// record's folder, and reading the shot file sets its two values.
struct Run {
    CZorbFEAInformation& info;
    std::int32_t& flagPrevShot;
    std::int32_t& valueShotRunID;
    ResultFiles files{info};
};

/// The result code of one item, found anew from the files at each call; kResultNoCheck for ids
/// without a check.
ResultCode CheckResults(Run& run, std::int32_t itemId);

}  // namespace results
