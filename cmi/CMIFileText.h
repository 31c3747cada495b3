// The text of the control parameter file.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>

#include <zorbi2/CZorbI2CMIData.h>

namespace cmi {

/// The offered items of one group, by id and in any order. Ids without a line are skipped.
using ItemGroup = std::span<const std::int32_t>;

/// The whole file with "\n" line ends.
std::string CMIFileText(const CZorbI2CMIData& data, std::initializer_list<ItemGroup> groups);

}  // namespace cmi
