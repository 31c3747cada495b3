#include "commands/write/TextDifference.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "control_files/TextLines.h"
#include "problems/VisibleText.h"

namespace host {

namespace {

/// For each pair of tails, the length of the longest sequence of lines that both have.
std::vector<std::vector<std::size_t>> CommonLengths(const std::vector<std::string_view>& before,
                                                    const std::vector<std::string_view>& after) {
    std::vector lengths(before.size() + 1, std::vector<std::size_t>(after.size() + 1));
    for (std::size_t i = before.size(); i-- > 0;) {
        for (std::size_t j = after.size(); j-- > 0;) {
            lengths[i][j] = before[i] == after[j] ? lengths[i + 1][j + 1] + 1
                                                  : std::max(lengths[i + 1][j], lengths[i][j + 1]);
        }
    }
    return lengths;
}

std::string Shown(const DifferenceLine& line) {
    const bool hasEnd = line.text.ends_with('\n');
    return line.mark + Visible(WithoutEnd(line.text), "\t") +
           (hasEnd ? "\n" : "\n\\ No newline at end of file\n");
}

/// "12,7": the first line of a part and how many it has; of an empty part the line before it.
std::string Range(std::size_t before, std::size_t count) {
    return std::to_string(before + (count > 0 ? 1 : 0)) +
           (count == 1 ? "" : "," + std::to_string(count));
}

/// One hunk of the difference, with its head.
std::string Hunk(const std::vector<DifferenceLine>& lines, std::size_t start, std::size_t end) {
    const auto count = [&lines](std::size_t from, std::size_t to, char unless) {
        const auto first = lines.begin();
        return static_cast<std::size_t>(std::count_if(
            first + static_cast<std::ptrdiff_t>(from), first + static_cast<std::ptrdiff_t>(to),
            [unless](const DifferenceLine& line) { return line.mark != unless; }));
    };
    std::string text = "@@ -" + Range(count(0, start, '+'), count(start, end, '+')) + " +" +
                       Range(count(0, start, '-'), count(start, end, '-')) + " @@\n";
    for (std::size_t i = start; i < end; ++i) {
        text += Shown(lines[i]);
    }
    return text;
}

/// A name with a space ends in a tab: other programs would take what follows for a time.
std::string Header(const std::string& name) {
    return Visible(name) + (name.find(' ') != std::string::npos ? "\t\n" : "\n");
}

}  // namespace

std::vector<DifferenceLine> MergedLines(const std::vector<std::string_view>& before,
                                        const std::vector<std::string_view>& after) {
    const auto lengths = CommonLengths(before, after);
    std::vector<DifferenceLine> lines;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < before.size() || j < after.size()) {
        if (i < before.size() && j < after.size() && before[i] == after[j]) {
            lines.push_back({' ', before[i++]});
            ++j;
        } else if (j == after.size() ||
                   (i < before.size() && lengths[i + 1][j] >= lengths[i][j + 1])) {
            lines.push_back({'-', before[i++]});
        } else {
            lines.push_back({'+', after[j++]});
        }
    }
    return lines;
}

std::string TextDifference(const std::string& oldName, const std::string& oldText,
                           const std::string& newName, const std::string& newText) {
    constexpr std::size_t context = 3;
    const std::vector<DifferenceLine> lines = MergedLines(LinesOf(oldText), LinesOf(newText));
    const auto nextChange = [&lines](std::size_t from) {
        while (from < lines.size() && lines[from].mark == ' ') {
            ++from;
        }
        return from;
    };
    std::string text;
    for (std::size_t change = nextChange(0); change < lines.size();) {
        const std::size_t start = change - std::min(change, context);
        std::size_t last = change;
        while (change < lines.size() &&
               change <= last + 2 * context + 1) {  // parts that touch are one
            last = change;
            change = nextChange(change + 1);
        }
        text += Hunk(lines, start, std::min(last + context + 1, lines.size()));
    }
    return text.empty() ? text : "--- " + Header(oldName) + "+++ " + Header(newName) + text;
}

}  // namespace host
