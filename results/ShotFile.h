// Reads the run's shot file (".cmx"), which says whether the part insert comes from an earlier
// shot.
#pragma once

#include <cstdint>

#include <zorbi2/CZorbFEAInformation.h>

namespace results {

/// Reads the values of the file's "<SOLID_MCM>" blocks. A key that the file does not have, and a
/// file that cannot be opened, leave the values as they are.
void ReadShotFile(const CZorbFEAInformation& info, std::int32_t& flagPrevShot,
                  std::int32_t& valueShotRunID);

}  // namespace results
