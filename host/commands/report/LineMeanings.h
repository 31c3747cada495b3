// What the lines of a control file mean, for people who read one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <zorbi2/CZorbI2Engine.h>

namespace host {

struct LineMeaning {
    std::string key;  ///< of the line, with its section: "[MAP DOMAIN] SegmentX"
    std::string text;
};

/// For each line of the layout, in the order of the file. What the lines of items mean is what an
/// engine says about the items.
std::vector<LineMeaning> LineMeanings(const CZorbI2Engine& engine);

struct NumberedLine {
    /// Of a line that is none of the layout.
    static constexpr std::size_t noMeaning = static_cast<std::size_t>(-1);

    std::string text;
    std::size_t meaning;  ///< position in the list above
};

/// The lines of a file, each with what explains it.
std::vector<NumberedLine> ExplainedLines(std::string_view text);

}  // namespace host
