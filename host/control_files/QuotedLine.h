// Lines of a control file in messages.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// A line in quotes, with all that cannot be seen shown as what it is: \t, \x1b, \xff; a space at
/// its end is told in words. Of a long line only the start.
std::string QuotedLine(std::string_view line);

}  // namespace host
