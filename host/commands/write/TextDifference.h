// Two texts side by side, as "diff -u" shows them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A line that both texts have (' '), or the old ('-') or the new one ('+') alone.
struct DifferenceLine {
    char mark;
    std::string_view text;
};

/// The lines of two texts in one row, with as many as possible kept together. They point into what
/// was given.
std::vector<DifferenceLine> MergedLines(const std::vector<std::string_view>& before,
                                        const std::vector<std::string_view>& after);

/// The unified difference with three lines of context; empty for equal texts. What cannot be
/// seen is escaped, except tabs.
std::string TextDifference(const std::string& oldName, const std::string& oldText,
                           const std::string& newName, const std::string& newText);

}  // namespace host
