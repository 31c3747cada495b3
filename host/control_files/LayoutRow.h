// One line of the control file's layout, held against lines of a file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <zorbi2/ControlFileFormat.h>

namespace host {

struct LayoutRow {
    const ControlFileLine* line;
    std::string_view key;                   ///< of the line
    std::string name;                       ///< of its value in a ControlFile
    std::string_view before;                ///< text before the value; all of a fixed text
    std::string_view after;                 ///< text after the value
    std::optional<ControlFileRange> range;  ///< that the row prints
    std::vector<std::string> tags;          ///< keys of a solver tag: of each solver's, or none

    bool IsFixed() const;  ///< without a value
    bool IsSolverTag() const;

    /// Whether a line of a file is meant to be this row, whatever follows its key.
    bool IsOf(std::string_view keyOfLine) const;

    /// The value in a line that is this row with a value of its kind.
    std::optional<std::string_view> ValueIn(std::string_view text) const;

    /// The row with a value in its place.
    std::string With(std::string_view value) const;

    /// The row for a message: its text, or an example with some value.
    std::string InWords() const;

    /// The range that the row prints, "1~100", when a value is outside it; otherwise empty.
    std::string RangeAgainst(std::string_view value) const;
};

/// All rows, in the order of the file.
const std::vector<LayoutRow>& Layout();

}  // namespace host
