// Picks lines out of the text of a control parameter file.
#pragma once

#include <string>

namespace support {

/// The first line with a key (ControlFileKey), line end included; empty without one.
std::string LineOf(const std::string& text, const std::string& key);

/// What stands between the lines of the mesh and the density switch: the item lines.
std::string ItemLinesOf(const std::string& text);

}  // namespace support
