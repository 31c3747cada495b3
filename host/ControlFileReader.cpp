// Pairs the lines of a text with the rows of the layout, reads the values and lists the faults.
#include <algorithm>
#include <charconv>
#include <cmath>

#include "ZorbI2Types.h"
#include "host/ControlFile.h"
#include "host/ControlFileLayout.h"
#include "host/Names.h"
#include "host/Problem.h"

namespace host {

namespace {

constexpr std::size_t none = std::string_view::npos;

bool IsOptional(const Row& row) {
    return row.IsItem() || row.format == annealingLine;
}

/// Whether a line is this row's, be it right or wrong behind the key.
bool IsLineOf(std::string_view line, const Row& row) {
    const std::string_view key = KeyOf(line);
    if (row.format == solverTail) {
        return key.ends_with("_EOF]");
    }
    if (row.format == solverHead) {
        const auto isHead = [key](const auto& solver) { return key == '[' + solver.second + ']'; };
        return key == "[]" || std::ranges::any_of(solverKeywords, isHead);
    }
    return key == KeyOf(row.format);
}

/// The row's line with words in the place of the value.
std::string Shown(const Row& row) {
    const std::size_t conversion = row.format.find('%');
    const char kind = conversion == none ? '%' : row.format[conversion + 1];
    return Filled(row, row.format.starts_with('[') ? "SOLVER"
                       : kind == 'd'               ? "N"
                       : kind == 'f'               ? "N.NNN"
                                                   : "...");
}

/// What stands in the place of the value, if anything does.
std::string_view ValueIn(std::string_view line, std::string_view format) {
    const std::size_t start = std::min(format.find('%'), line.size());
    const std::size_t around = std::min(format.size() - 2, line.size());
    return line.substr(start, line.size() - around);
}

/// Stores a value as far as it can be understood.
void Store(std::string_view text, const Field& field) {
    const auto read = [text](auto& number) {
        std::from_chars(text.data(), text.data() + text.size(), number);
    };
    if (auto* const* words = std::get_if<std::string*>(&field)) {
        **words = text;
    } else if (auto* const* number = std::get_if<std::int32_t*>(&field)) {
        read(**number);
    } else if (auto* const* decimal = std::get_if<double*>(&field)) {
        double value = 0.0;
        read(value);
        **decimal = std::isfinite(value) ? value : 0.0;
    }
}

/// Lines and rows are paired so that as many as possible match in their order; what is left over is
/// reported.
class Reader {
public:
    explicit Reader(std::string_view text)
        : text_(text), lines_(SplitLines(text.substr(HasMark() ? byteOrderMark.size() : 0))) {
        constexpr std::size_t mostLines = 1000;  // bounds the work on what is no control file
        lines_.resize(std::clamp(lines_.size(), std::size_t{1}, mostLines));
    }

    ControlFile Read(std::vector<Fault>& faults) {
        constexpr std::size_t mostFaults = 20;
        Pair();
        if (IsControlFile()) {
            ReportStrays();
            ReadLines();
            CheckEnds();
        } else {
            Add(0, "not a control parameter file: " + Expected(rows[0].format, lines_[0]));
        }
        if (faults_.empty()) {
            CheckWhole();
        }
        std::ranges::stable_sort(faults_, {}, &Fault::line);
        if (faults_.size() > mostFaults) {
            faults_.resize(mostFaults);
            faults_.push_back({faults_.back().line, "more faults follow"});
        }
        faults = std::move(faults_);
        return std::move(file_);
    }

private:
    void Add(std::size_t line, const std::string& message) {
        faults_.push_back({static_cast<std::uint32_t>(line + 1), message});
    }

    bool HasMark() const { return text_.starts_with(byteOrderMark); }

    bool IsControlFile() const {
        constexpr std::ptrdiff_t fewestPairs = 10;
        return IsLineOf(lines_[0], rows[0]) ||
               std::ranges::count(lineOfRow_, none) <= std::ssize(rows) - fewestPairs;
    }

    void Pair() {
        // most[i][j]: how many pairs can be made of the lines from i on and the rows from j on.
        std::vector<std::array<std::size_t, rows.size() + 1>> most(lines_.size() + 1);
        for (std::size_t i = lines_.size(); i-- > 0;) {
            for (std::size_t j = rows.size(); j-- > 0;) {
                most[i][j] = IsLineOf(lines_[i], rows[j])
                                 ? 1 + most[i + 1][j + 1]
                                 : std::max(most[i + 1][j], most[i][j + 1]);
            }
        }
        lineOfRow_.fill(none);
        std::size_t row = 0;
        for (std::size_t line = 0; line < lines_.size(); ++line) {
            rowOfLine_.push_back(none);
            if (row > 0 && rows[row - 1].IsItem() && IsLineOf(lines_[line], rows[row - 1])) {
                rowOfLine_[line] = row - 1;  // an item's line may stand twice
                continue;
            }
            while (row < rows.size() && !IsLineOf(lines_[line], rows[row]) &&
                   (most[line][row] > most[line + 1][row] ||
                    (IsOptional(rows[row]) && most[line][row] == most[line][row + 1]))) {
                ++row;
            }
            if (row < rows.size() && IsLineOf(lines_[line], rows[row])) {
                rowOfLine_[line] = row;
                lineOfRow_[row++] = line;
            }
        }
    }

    /// Lines of known rows that stand where they do not belong.
    void ReportStrays() {
        for (std::size_t line = 0; line < lines_.size(); ++line) {
            const std::string reason = rowOfLine_[line] == none ? ReasonAgainst(line) : "";
            if (!reason.empty()) {
                Add(line, Quoted(KeyOf(lines_[line])) + reason);
                rowOfLine_[line] = stray;
            }
        }
    }

    std::string ReasonAgainst(std::size_t line) {
        std::string reason;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (IsLineOf(lines_[line], rows[row])) {
                if (lineOfRow_[row] == none) {
                    lineOfRow_[row] = line;  // so it is not missing
                    return " is out of place";
                }
                reason = " stands here and in line " + std::to_string(lineOfRow_[row] + 1);
            }
        }
        return reason;
    }

    void ReadLines() {
        std::size_t row = 0;
        for (std::size_t line = 0; line < lines_.size(); ++line) {
            if (rowOfLine_[line] == none) {  // taken for the first row that is missing there
                const std::size_t end = NextPaired(line);
                row = NextMissing(row, end);
                const std::string text =
                    lines_[line].empty() ? "an empty line" : Quoted(lines_[line]);
                Add(line, row < end ? Expected(Shown(rows[row++]), lines_[line])
                                    : text + " does not belong here");
            } else if (rowOfLine_[line] != stray) {
                ReportMissing(row, rowOfLine_[line], line);
                row = rowOfLine_[line] + 1;
                ReadLine(line, rows[rowOfLine_[line]]);
            }
        }
        ReportMissing(row, rows.size(), lines_.size() - 1);
    }

    /// The row of the next line that has one.
    std::size_t NextPaired(std::size_t line) const {
        while (line < lines_.size() && rowOfLine_[line] >= stray) {
            ++line;
        }
        return line < lines_.size() ? rowOfLine_[line] : rows.size();
    }

    std::size_t NextMissing(std::size_t row, std::size_t end) const {
        while (row < end && (lineOfRow_[row] != none || IsOptional(rows[row]))) {
            ++row;
        }
        return row;
    }

    void ReportMissing(std::size_t row, std::size_t end, std::size_t line) {
        while ((row = NextMissing(row, end)) < end) {
            Add(line, Quoted(Shown(rows[row++])) + " is missing here");
        }
    }

    void ReadLine(std::size_t line, const Row& row) {
        const std::string_view text = lines_[line];
        const Field field = row.field(file_.values);
        if (row.format != solverTail) {  // is compared with its head when all is read
            Store(ValueIn(text, row.format), field);
        }
        const auto* number = std::get_if<std::int32_t*>(&field);
        if (row.format != solverTail && Filled(row, Printed(field)) != text) {
            Add(line, Expected(Shown(row), text));
        } else if (number != nullptr && (**number < row.lowest || **number > row.highest)) {
            Add(line, Quoted(KeyOf(text)) + " is " + Printed(field) + "; allowed is " +
                          std::to_string(row.lowest) +
                          (row.lowest < row.highest ? " to " + std::to_string(row.highest) : ""));
        } else if (row.IsItem()) {
            file_.itemIds.push_back(row.itemId);
        }
    }

    void CheckEnds() {
        if (HasMark()) {
            Add(0, "the file starts with a byte order mark");
        }
        if (!text_.ends_with('\n')) {
            Add(lines_.size() - 1, "the file ends within this line: it has no line end");
        }
    }

    /// What the values of several lines must keep.
    void CheckWhole() {
        const Values& v = file_.values;
        Require(v.IsOriginalMesh + v.IsDeformedMesh + v.IsMappedMesh + v.Is3DMappingShell ==
                    (IsAnnealedMesh(v) ? 0 : 1),
                "IsOriginalMesh", "exactly one mesh kind must be 1, none for the annealed mesh");
        Require(v.IDCompositeModel == kOptionResultsMissing ||
                    (v.IDCompositeModel >= 0 && v.IDCompositeModel <= 2),
                "IDCompositeModel", "allowed is 0 to 2, and -2 when results are missing");
        Require((v.DensityReduction >= 2 && v.DensityReduction <= 10) ||
                    (v.DensityReduction == 0 && v.IsDoDensityReduction == 0),
                "DensityReduction", "allowed is 2 to 10, and 0 when density reduction is off");
        const std::vector<std::string> expected = LinesOf(file_);
        for (std::size_t line = 0; line < lines_.size(); ++line) {
            if (lines_[line] != expected.at(line)) {
                Add(line, Expected(expected[line], lines_[line]));
            }
        }
    }

    void Require(bool isKept, std::string_view key, const std::string& rule) {
        if (!isKept) {
            const auto line = std::ranges::find(lines_, key, KeyOf) - lines_.begin();
            Add(static_cast<std::size_t>(line), Quoted(key) + ": " + rule);
        }
    }

    static constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    static constexpr std::size_t stray = none - 1;  ///< no row, and reported

    std::string_view text_;
    std::vector<std::string> lines_;
    std::vector<std::size_t> rowOfLine_;
    std::array<std::size_t, rows.size()> lineOfRow_{};
    std::vector<Fault> faults_;
    ControlFile file_;
};

}  // namespace

ControlFile ReadControlFile(std::string_view text, std::vector<Fault>& faults) {
    return Reader(text).Read(faults);
}

}  // namespace host
