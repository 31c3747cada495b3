// Text of users and files as people get to see it: a terminal would obey some characters, and
// others cannot be told from what they look like.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

/// A control character of ASCII.
bool IsControl(char character);

/// How many characters a text in UTF-8 has.
std::size_t CharactersIn(std::string_view text);

/// The text with all that cannot be seen escaped: \t, \n, \x1b, \xff. Those characters of ASCII
/// that are in `kept` stay.
std::string Visible(std::string_view text, std::string_view kept = {});

/// The same in quotes.
std::string Quoted(std::string_view text);

/// A line of a control file in quotes: a space at its end is told in words. Of a long line only the
/// start.
std::string QuotedLine(std::string_view line);

}  // namespace host
