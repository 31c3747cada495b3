// Texts as lines.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace host {

/// The lines of a text with their ends, which the last one may lack; none of an empty text.
std::vector<std::string_view> LinesOf(std::string_view text,
                                      std::size_t most = std::string_view::npos);

/// A line without its end, which is LF or CR LF.
std::string_view WithoutEnd(std::string_view line);

}  // namespace host
