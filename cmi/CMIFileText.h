// The text of the control parameter file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2CMIData.h>

namespace cmi {

/// The whole file with "\n" line ends. `itemIds` are the offered items in any order; ids without a
/// line are skipped.
std::string CMIFileText(const CZorbI2CMIData& data, const std::vector<std::int32_t>& itemIds);

}  // namespace cmi
