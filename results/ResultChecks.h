// Decides for each output item whether the results of the run allow it to be handed over.
#pragma once

#include <cstdint>

#include "CZorbFEAInformation.h"
#include "ZorbI2Types.h"

namespace results {

/// What the checks read, and the little that they change: the record's folder is normalised, and
/// the shot file sets its two values.
struct RunFacts {
    CZorbFEAInformation& info;
    std::int32_t& flagPrevShot;
    std::int32_t& valueShotRunID;
};

/// The result code of one item, found anew from the files at each call. Ids without a check (17
/// and all outside 0 to 21) give -11.
ResultCode CheckResults(const RunFacts& run, std::int32_t itemId);

}  // namespace results
