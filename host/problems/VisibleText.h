// Text of users and files as people get to see it: a terminal would obey some characters, and
// others cannot be told from what they look like.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// The text with all that cannot be seen shown as what it is: \t, \n, \x1b, \xff. Those characters
/// of ASCII that are in `kept` stay.
std::string Visible(std::string_view text, std::string_view kept = {});

/// The same in quotes.
std::string Quoted(std::string_view text);

/// A line of a control file in quotes: a space at its end is told in words. Of a long line only the
/// start.
std::string QuotedLine(std::string_view line);

}  // namespace host
