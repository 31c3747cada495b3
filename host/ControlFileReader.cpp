// Pairs the lines of a text with the lines of the layout, reads the values and lists the faults.
#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>
#include <optional>
#include <span>
#include <utility>

#include "ControlFile.h"
#include "ControlFileLayout.h"
#include "ZorbI2Types.h"

namespace host {

using layout::KeyOf;
using layout::Quoted;
using layout::Row;
using layout::rowKeys;
using layout::rows;
using layout::Values;

namespace {

constexpr std::size_t none = std::string_view::npos;

bool IsItem(const Row& row) {
    return row.itemId >= 0;
}

bool IsOptional(const Row& row) {
    return IsItem(row) || row.format == layout::annealingLine;
}

/// Whether the line with a key is this row's, be it right or wrong behind the key.
bool IsKeyOf(std::string_view key, std::size_t row) {
    if (rows[row].format == layout::solverHead) {
        return std::ranges::any_of(layout::solvers, [key](const layout::Solver& solver) {
            return key == '[' + std::string(solver.keyword) + ']';
        });
    }
    return rows[row].format == layout::solverTail ? key.starts_with('[') && key.ends_with("_EOF]")
                                                  : key == rowKeys[row];
}

/// The value in a line; nothing when the text around it is another.
std::optional<std::string_view> ValueIn(std::string_view line, std::string_view format) {
    const std::size_t before = format.find('%');
    if (before == none) {
        return line == format ? std::optional(line) : std::nullopt;
    }
    const std::string_view after = format.substr(before + 2);
    if (line.size() < before + after.size() || !line.starts_with(format.substr(0, before)) ||
        !line.ends_with(after)) {
        return std::nullopt;
    }
    return line.substr(before, line.size() - before - after.size());
}

/// The format with words in the place of the value.
std::string Shown(std::string_view format) {
    std::string text(format);
    if (const std::size_t value = text.find('%'); value != none) {
        const bool isTag = text.front() == '[';
        text.replace(value, 2, isTag ? "SOLVER" : text[value + 1] == 's' ? "..." : "N");
    }
    return Quoted(text);
}

std::string Expected(std::string_view format, std::string_view line) {
    std::string message = "expected " + Shown(format) + ", found " + Quoted(line);
    if (format == layout::solverHead) {
        std::string separator = "; SOLVER is one of ";
        for (const layout::Solver& solver : std::span(layout::solvers).subspan(1)) {
            message += separator + std::string(solver.keyword);
            separator = ", ";
        }
    }
    return message;
}

/// Stores a value as far as it can be understood.
void Store(std::string_view text, const layout::Place& place) {
    if (auto* const* words = std::get_if<std::string*>(&place)) {
        **words = text;
    } else if (auto* const* decimal = std::get_if<double*>(&place)) {
        std::from_chars(text.data(), text.data() + text.size(), **decimal);
    } else if (auto* const* number = std::get_if<std::int32_t*>(&place)) {
        std::from_chars(text.data(), text.data() + text.size(), **number);
    }
}

/// What is wrong with a value that was stored, or nothing.
std::string ComplaintAbout(std::string_view text, const Row& row, const layout::Place& place) {
    if (text.find('\0') != none) {
        return "it holds a NUL byte";
    }
    const auto* number = std::get_if<std::int32_t*>(&place);
    const bool isDecimal = std::holds_alternative<double*>(place);
    const bool isNoNumber = isDecimal && (text.size() < 4 || text[text.size() - 4] != '.');
    if (layout::Printed(place) != text || isNoNumber) {  // no "+1", no "01", no "inf"
        return isDecimal ? "a number with three decimals belongs here"
                         : "a plain whole number (32 bits) belongs here";
    }
    if (number != nullptr && (**number < row.lowest || **number > row.highest)) {
        std::string allowed = "allowed is " + std::to_string(row.lowest);
        if (row.lowest < row.highest) {
            allowed += row.lowest + 1 == row.highest ? " or " : " to ";
            allowed += std::to_string(row.highest);
        }
        return allowed;
    }
    return {};
}

/// Lines and rows are paired so that as many as possible match in their order. What is left
/// between two pairs is a gap: rows without a line, and lines that do not belong there.
class Reader {
public:
    Reader(std::string_view text, std::vector<Fault>& faults) : faults_(faults) { Split(text); }

    ControlFile Read() {
        constexpr std::size_t fewestLines = 10;
        const std::size_t pairs = Pair();
        if (pairs < fewestLines && !IsLineOf(0, 0)) {
            faults_ = {{1, "not a control parameter file: " + Expected(rows[0].format, lines_[0])}};
            return {};
        }
        ReportGaps();
        for (std::size_t line = 0; line < lines_.size(); ++line) {
            if (rowOfLine_[line] != none) {
                ReadLine(line, rowOfLine_[line]);
            }
        }
        CheckSolverTail();
        CheckRules();
        if (!layout::UsesMapFile(file_.values)) {
            file_.values.MapFile.clear();
        }
        std::ranges::stable_sort(faults_, {}, &Fault::line);
        return std::move(file_);
    }

private:
    void Add(std::size_t line, std::string message) {
        faults_.push_back({line + 1, std::move(message)});
    }

    void Split(std::string_view text) {
        constexpr std::size_t mostLines = 1000;  // bounds the work on what is no control file
        constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
        if (text.starts_with(byteOrderMark)) {
            Add(0, "the file starts with a byte order mark");
            text.remove_prefix(byteOrderMark.size());
        }
        do {
            const std::size_t end = text.find('\n');
            std::string_view line = text.substr(0, end);
            line.remove_suffix(line.ends_with('\r') ? 1 : 0);
            lines_.push_back(line);
            keys_.push_back(KeyOf(line));
            text.remove_prefix(end == none ? text.size() : end + 1);
            if (end == none) {
                Add(lines_.size() - 1, "the file ends within this line: it has no line end");
            }
        } while (!text.empty() && lines_.size() < mostLines);
        if (!text.empty()) {
            Add(mostLines - 1, "too many lines: those after this one were not read");
        }
    }

    // ---- Pairs and gaps -------------------------------------------------------------------

    bool IsLineOf(std::size_t line, std::size_t row) const { return IsKeyOf(keys_[line], row); }

    /// Returns the number of pairs.
    std::size_t Pair() {
        // most[i][j]: how many pairs can be made of the lines from i on and the rows from j on.
        std::vector<std::array<std::size_t, rows.size() + 1>> most(lines_.size() + 1);
        for (std::size_t i = lines_.size(); i-- > 0;) {
            for (std::size_t j = rows.size(); j-- > 0;) {
                most[i][j] = IsLineOf(i, j) ? 1 + most[i + 1][j + 1]
                                            : std::max(most[i + 1][j], most[i][j + 1]);
            }
        }
        rowOfLine_.assign(lines_.size(), none);
        lineOfRow_.fill(none);
        std::size_t row = 0;
        for (std::size_t line = 0; line < lines_.size(); ++line) {
            const std::size_t before = line > 0 ? rowOfLine_[line - 1] : none;
            if (before != none && IsItem(rows[before]) && IsLineOf(line, before)) {
                rowOfLine_[line] = before;  // an item's line may stand twice
                continue;
            }
            while (row < rows.size() && !IsLineOf(line, row) &&
                   (most[line][row] > most[line + 1][row] ||
                    (IsOptional(rows[row]) && most[line][row] == most[line][row + 1]))) {
                ++row;
            }
            if (row < rows.size() && IsLineOf(line, row)) {
                rowOfLine_[line] = row;
                lineOfRow_[row] = line;
                ++row;
            }
        }
        return most[0][0];
    }

    /// Whether a line of the row stands somewhere where it does not belong.
    bool IsMisplaced(std::size_t row) const {
        for (std::size_t line = 0; lineOfRow_[row] == none && line < lines_.size(); ++line) {
            if (rowOfLine_[line] == none && IsLineOf(line, row)) {
                return true;
            }
        }
        return false;
    }

    void ReportGaps() {
        std::vector<std::size_t> extraLines;
        std::size_t row = 0;
        for (std::size_t line = 0; line <= lines_.size(); ++line) {
            if (line < lines_.size() && rowOfLine_[line] == none) {
                extraLines.push_back(line);
                continue;
            }
            const std::size_t end = line < lines_.size() ? rowOfLine_[line] : rows.size();
            std::vector<std::size_t> missingRows;
            for (; row < end; ++row) {
                if (lineOfRow_[row] == none && !IsOptional(rows[row]) && !IsMisplaced(row)) {
                    missingRows.push_back(row);
                }
            }
            ReportGap(extraLines, missingRows, std::min(line, lines_.size() - 1));
            extraLines.clear();
        }
    }

    /// A line of no row is taken for the first one that is missing there.
    void ReportGap(std::span<const std::size_t> extraLines,
                   std::span<const std::size_t> missingRows, std::size_t end) {
        constexpr std::size_t mostFaults = 5;  // then one for all the rest
        for (const std::size_t line : extraLines.first(std::min(extraLines.size(), mostFaults))) {
            const std::string reason = ReasonAgainst(line);
            if (!reason.empty()) {
                Add(line, Quoted(keys_[line]) + reason);
            } else if (missingRows.empty()) {
                Add(line, (lines_[line].empty() ? "an empty line" : Quoted(lines_[line])) +
                              " does not belong here");
            } else {
                Add(line, Expected(rows[missingRows.front()].format, lines_[line]));
                missingRows = missingRows.subspan(1);
            }
        }
        if (extraLines.size() > mostFaults) {
            Add(extraLines[mostFaults], std::to_string(extraLines.size() - mostFaults) +
                                            " more lines from here on do not belong here");
        }
        if (!missingRows.empty()) {
            const std::size_t others = missingRows.size() - 1;
            Add(end,
                Shown(rowKeys[missingRows.front()]) +
                    (others == 0 ? " is" : " and " + std::to_string(others) + " more lines are") +
                    " missing here");
        }
    }

    /// Against a line that has a row, but not where it stands; nothing for any other.
    std::string ReasonAgainst(std::size_t line) const {
        std::string reason;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (!IsLineOf(line, row)) {
                continue;
            }
            if (lineOfRow_[row] == none) {
                return " is out of place; it belongs " + PlaceOf(row);
            }
            reason = " stands here and in line " + std::to_string(lineOfRow_[row] + 1);
        }
        return reason;
    }

    std::string PlaceOf(std::size_t row) const {
        while (row > 0 && lineOfRow_[row - 1] == none) {
            --row;
        }
        return row > 0 ? "below line " + std::to_string(lineOfRow_[row - 1] + 1) : "at the top";
    }

    // ---- Values ---------------------------------------------------------------------------

    void ReadLine(std::size_t line, std::size_t row) {
        const std::string_view format = rows[row].format;
        const auto value = ValueIn(lines_[line], format);
        if (!value) {
            Add(line, Expected(format, lines_[line]));
            return;
        }
        const layout::Place place = rows[row].place(file_.values);
        if (std::holds_alternative<std::monostate>(place)) {
            return;
        }
        Store(*value, place);
        const std::string complaint = ComplaintAbout(*value, rows[row], place);
        isKnown_[row] = complaint.empty();
        if (!complaint.empty()) {
            Complain(row, line, complaint);
        } else if (IsItem(rows[row])) {
            AddItem(row, line);
        }
    }

    void AddItem(std::size_t row, std::size_t line) {
        const std::int32_t id = rows[row].itemId;
        const std::int32_t value = file_.values.OutputFlags[id];
        if (!file_.items.empty() && file_.items.back().itemId == id &&
            file_.items.back().value != value) {
            Complain(row, line, "the line before says otherwise");
        }
        file_.items.push_back({id, value, line + 1});
    }

    void Complain(std::size_t row, std::size_t line, std::string_view complaint) {
        const std::string_view format = rows[row].format;
        Add(line, Quoted(rowKeys[row]) + " is " + Quoted(*ValueIn(lines_[line], format)) + "; " +
                      std::string(complaint));
    }

    // ---- What the values of several lines must keep ---------------------------------------

    static std::size_t RowOf(std::string_view key) {
        return static_cast<std::size_t>(std::ranges::find(rowKeys, key) - rowKeys.begin());
    }

    /// A line that may be missing is known then, too.
    bool IsKnown(std::string_view key) const {
        const std::size_t row = RowOf(key);
        return isKnown_[row] ||
               (lineOfRow_[row] == none && IsOptional(rows[row]) && !IsMisplaced(row));
    }

    /// Complains about the first of the lines that matter, if all of them are known.
    void Require(bool isKept, std::initializer_list<std::string_view> keys,
                 std::string_view complaint) {
        if (!isKept &&
            std::ranges::all_of(keys, [this](std::string_view key) { return IsKnown(key); })) {
            const std::size_t row = RowOf(*keys.begin());
            Complain(row, lineOfRow_[row], complaint);
        }
    }

    void CheckRules() {
        const Values& v = file_.values;
        const std::initializer_list<bool> meshKinds = {v.IsOriginalMesh == 1, v.IsDeformedMesh == 1,
                                                       v.IsMappedMesh == 1, v.Is3DMappingShell == 1,
                                                       layout::IsAnnealedMesh(v)};
        Require(std::ranges::count(meshKinds, true) == 1,
                {"IsOriginalMesh", "IsDeformedMesh", "IsMappedMesh", "Is3DMappingShell",
                 "IsAnnealingDeformedMesh", "ProjectType"},
                "exactly one mesh kind must be 1 (none for the annealed deformed mesh)");
        Require(layout::UsesMapFile(v) || v.MapFile == " ",
                {"MapFile", "IsMappedMesh", "Is3DMappingShell"},
                "allowed is one blank, for the mesh is not mapped");
        Require(v.IDCompositeModel == kOptionResultsMissing ||
                    (v.IDCompositeModel >= 0 && v.IDCompositeModel <= 2),
                {"IDCompositeModel"}, "allowed is 0 to 2, and -2 when results are missing");
        Require((v.DensityReduction >= 2 && v.DensityReduction <= 10) ||
                    (v.DensityReduction == 0 && v.IsDoDensityReduction == 0),
                {"DensityReduction", "IsDoDensityReduction"},
                "allowed is 2 to 10, and 0 when density reduction is off");
    }

    void CheckSolverTail() {
        const std::size_t tail = lineOfRow_[RowOf(KeyOf(layout::solverTail))];
        const std::string expected = '[' + file_.values.SolverName + "_EOF]";
        if (IsKnown(KeyOf(layout::solverHead)) && tail != none && lines_[tail] != expected) {
            Add(tail, Expected(expected, lines_[tail]));
        }
    }

    std::vector<Fault>& faults_;
    ControlFile file_;
    std::vector<std::string_view> lines_;
    std::vector<std::string_view> keys_;
    std::vector<std::size_t> rowOfLine_;
    std::array<std::size_t, rows.size()> lineOfRow_{};
    std::array<bool, rows.size()> isKnown_{};
};

}  // namespace

ControlFile ReadControlFile(std::string_view text, std::vector<Fault>& faults) {
    faults.clear();
    if (text.size() > kLargestControlFile) {
        faults.push_back({1, "not a control parameter file: it is too large"});
        return {};
    }
    return Reader(text, faults).Read();
}

}  // namespace host
