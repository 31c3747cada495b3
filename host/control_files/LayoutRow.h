// One line of the control file's layout, held against lines of a file.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <zorbi2/ControlFileFormat.h>

namespace host {

struct LayoutRow {
    const ControlFileLine* line;
    std::string key;                ///< ControlFileKey of the line
    std::vector<std::string> keys;  ///< likewise, of all that it can be: a tag of each solver
    std::string name;               ///< of its value in a ControlFile
    std::string before;             ///< text before the value; all of a fixed text
    std::string after;              ///< text behind the value

    bool IsFixed() const;  ///< without a value
    bool IsSolverTag() const;

    /// Whether a line of a file is this row's, be it right or wrong behind its key.
    bool IsOf(const std::string& keyOfLine) const;

    /// The value in a line that is this row with a value of its kind.
    std::optional<std::string> ValueIn(const std::string& text) const;

    /// The row with a value in its place.
    std::string With(const std::string& value) const;

    /// The row for a message: its text, or an example with some value.
    std::string InWords() const;

    /// The range that the row prints, "1~100", when a value is outside it; otherwise empty.
    std::string RangeAgainst(const std::string& value) const;
};

/// All rows, in the order of the file.
const std::vector<LayoutRow>& Layout();

}  // namespace host
