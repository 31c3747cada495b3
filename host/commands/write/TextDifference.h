// Two texts side by side, as "diff -u" shows them.
#pragma once

#include <string>
#include <vector>

namespace host {

/// A line that both texts have (' '), or the old ('-') or the new one ('+') alone.
struct DifferenceLine {
    char mark;
    std::string text;
};

/// The lines of two texts in one row, with as many as possible kept together.
std::vector<DifferenceLine> MergedLines(const std::vector<std::string>& before,
                                        const std::vector<std::string>& after);

/// The unified difference with three lines of context; empty for equal texts. Control characters,
/// which a terminal would obey, are shown as question marks.
std::string TextDifference(const std::string& oldName, const std::string& oldText,
                           const std::string& newName, const std::string& newText);

}  // namespace host
