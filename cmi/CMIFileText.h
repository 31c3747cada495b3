// The text of the control parameter file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cmi/CZorbI2CMIData.h"

/// The whole file with "\n" line ends. `itemIds` are the ids whose item lines are written, in this
/// order; ids without a line are skipped.
std::string CMIFileText(const CZorbI2CMIData& data, const std::vector<std::int32_t>& itemIds);
