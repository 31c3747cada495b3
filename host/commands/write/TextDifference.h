// Two texts side by side, as "diff -u" shows them.
#pragma once

#include <string>

namespace host {

/// The unified difference with three lines of context; empty for equal texts. Control characters,
/// which a terminal would obey, are shown as question marks.
std::string TextDifference(const std::string& oldName, const std::string& oldText,
                           const std::string& newName, const std::string& newText);

}  // namespace host
