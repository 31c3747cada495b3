// Data blocks of the control parameter file as tests see them: every field by its name.
#pragma once

#include <map>
#include <string>

#include <zorbi2/CZorbI2CMIData.h>

namespace support {

/// Every field of a block by name, as text: "SegmentX" -> "80", "OutputFlags[3]" -> "1".
std::map<std::string, std::string> FieldsOf(const CZorbI2CMIData& data);

/// A block whose every field holds a value that nothing else has: 101, 102 ... in the order of
/// the fields, texts included ("text 101").
CZorbI2CMIData BlockOfDistinctValues();

}  // namespace support
