#include "ControlFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <regex>

#include <zorbi2/ZorbI2Types.h>

#include "Names.h"
#include "Problem.h"
#include "Texts.h"

namespace host {

namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t none = std::string_view::npos;
constexpr std::string_view solverHead = "[%s] ";
constexpr std::string_view solverTail = "[%s_EOF]";

/// The lines of a text without their ends, which are LF or CR LF.
Lines SplitLines(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        lines.emplace_back(text.substr(0, length));
        if (lines.back().ends_with('\r')) {
            lines.back().pop_back();
        }
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return lines;
}

/// What tells lines apart: a tag up to its bracket, otherwise the text before "=".
std::string_view KeyOf(std::string_view line) {
    const bool isTag = line.starts_with('[');
    const std::size_t end = line.find(isTag ? ']' : '=');
    const std::string_view key = line.substr(0, isTag && end != none ? end + 1 : end);
    return key.substr(0, key.find_last_not_of(" \t") + 1);
}

bool IsOptional(std::string_view row) {
    const auto isKey = [key = KeyOf(row)](const auto& item) { return item.second == key; };
    return KeyOf(row) == "IsAnnealingDeformedMesh" || std::ranges::any_of(itemKeys, isKey);
}

/// Whether a line is this row's of the layout, be it right or wrong behind the key.
bool IsLineOf(std::string_view line, std::string_view row) {
    const std::string_view key = KeyOf(line);
    if (row == solverTail) {
        return key.ends_with("_EOF]");
    }
    if (row == solverHead) {
        const auto isHead = [key](const auto& solver) { return key == '[' + solver.second + ']'; };
        return key == "[]" || std::ranges::any_of(solverKeywords, isHead);
    }
    return key == KeyOf(row);
}

/// The row with a value in its place.
std::string Filled(std::string row, std::string_view value) {
    const std::size_t place = row.find('%');
    return place == none ? row : row.replace(place, 2, value);
}

/// The row with words in the place of the value.
std::string Shown(const std::string& row) {
    const std::size_t place = row.find('%');
    const char kind = place == none ? '%' : row[place + 1];
    return Filled(row, row.starts_with('[') ? "SOLVER"
                       : kind == 'd'        ? "N"
                       : kind == 'f'        ? "N.NNN"
                                            : "...");
}

/// What stands in the place of the value, if anything does.
std::string ValueIn(const std::string& line, std::string_view row) {
    const std::size_t start = std::min(row.find('%'), line.size());
    const std::size_t around = std::min(row.size() - 2, line.size());
    return line.substr(start, line.size() - around);
}

bool IsOfKind(char kind, const std::string& value) {
    const auto read = [&value](auto number) {
        std::from_chars(value.data(), value.data() + value.size(), number);
        return number;
    };
    const bool hasLetters = value.find_first_not_of("-.0123456789") != std::string::npos;
    return kind == 'd'   ? value == std::to_string(read(std::int32_t{0}))
           : kind == 'f' ? !hasLetters && value == Printed(read(0.0))
                         : value.find('\0') == std::string::npos;
}

/// The range that the row prints, "1~100", when the value is outside it. A density factor of 0
/// means that there is no reduction.
std::string RangeAgainst(const std::string& value, const std::string& row) {
    static const std::regex printed("\\((([0-9]+)(~|:off,)([0-9]+)(:on)?)\\)$");
    std::smatch range;
    if (!std::regex_search(row, range, printed) ||
        (value == "0" && row.starts_with("DensityReduction"))) {
        return {};
    }
    const int number = std::stoi(value);
    const bool fits = number >= std::stoi(range.str(2)) && number <= std::stoi(range.str(4));
    return fits ? "" : range.str(1);
}

/// A line for a message, which a file that is none of the engine's may have endless ones for.
std::string QuotedLine(const std::string& line) {
    constexpr std::size_t longest = 160;
    return Quoted(line.size() > longest ? line.substr(0, longest) + "..." : line);
}

std::string Expected(const std::string& line, const std::string& found) {
    return "expected " + QuotedLine(line) + ", found " + QuotedLine(found);
}

class Reader {
public:
    Reader(std::string name, std::string_view text)
        : name_(std::move(name)),
          text_(text),
          lines_(SplitLines(text.substr(HasMark() ? byteOrderMark.size() : 0))) {
        constexpr std::size_t mostLines = 1000;  // bounds the work on what is no control file
        lines_.resize(std::clamp(lines_.size(), std::size_t{1}, mostLines));
        for (const std::string& row : SplitLines(controlFileLayout)) {
            const auto isRow = [&row](const std::string& line) { return IsLineOf(line, row); };
            if (!IsOptional(row) || std::ranges::any_of(lines_, isRow)) {
                rows_.push_back(row);
            }
        }
    }

    ControlFile Read() {
        constexpr std::size_t mostFaults = 20;
        if (!IsLineOf(lines_[0], rows_[0]) && !IsLineOf(lines_.back(), rows_.back())) {
            Add(0, "not a control parameter file: " + Expected(rows_[0], lines_[0]));
        } else {
            ReadLines();
            CheckEnds();
        }
        if (faults_.empty()) {
            CheckWhole();
        }
        std::ranges::stable_sort(faults_, {}, [](const auto& fault) { return fault.place.line; });
        if (faults_.size() > mostFaults) {
            faults_.erase(faults_.begin() + mostFaults, faults_.end());
            Add(faults_.back().place.line - 1, "more faults follow");
        }
        ThrowAny(faults_);
        return std::move(file_);
    }

private:
    void Add(std::size_t line, const std::string& message) {
        const Place place{name_, static_cast<std::uint32_t>(line + 1)};
        faults_.emplace_back(place, message, ExitCode::notAvailable);
    }

    bool HasMark() const { return text_.starts_with(byteOrderMark); }

    /// Walks down lines and rows together. Where they differ, what comes back sooner tells whether
    /// a line is garbled, missing or one too many.
    void ReadLines() {
        std::size_t line = 0;
        std::size_t row = 0;
        while (line < lines_.size() || row < rows_.size()) {
            const std::size_t missing = RowsBefore(line, row);
            const std::size_t extra = LinesBefore(line, row);
            const bool isLast = line == lines_.size() || row == rows_.size();
            if (missing == 0) {
                ReadLine(line++, rows_[row++]);
            } else if (!isLast && (missing == extra || RowsBefore(line + 1, row + 1) == 0)) {
                Add(line, Expected(Shown(rows_[row++]), lines_[line]));
                ++line;
            } else if (line == lines_.size() || missing < extra) {
                Add(std::min(line, lines_.size() - 1),
                    Quoted(Shown(rows_[row++])) + " is missing here");
            } else {
                const std::string& text = lines_[line];
                Add(line++,
                    (text.empty() ? "an empty line" : QuotedLine(text)) + " does not belong here");
            }
        }
    }

    /// How many rows stand before the one of a line; none if there is none below.
    std::size_t RowsBefore(std::size_t line, std::size_t row) const {
        for (std::size_t i = row; line < lines_.size() && i < rows_.size(); ++i) {
            if (IsLineOf(lines_[line], rows_[i])) {
                return i - row;
            }
        }
        return none;
    }

    std::size_t LinesBefore(std::size_t line, std::size_t row) const {
        for (std::size_t i = line; row < rows_.size() && i < lines_.size(); ++i) {
            if (IsLineOf(lines_[i], rows_[row])) {
                return i - line;
            }
        }
        return none;
    }

    void ReadLine(std::size_t line, const std::string& row) {
        const std::string key(KeyOf(row));
        const std::size_t place = row.find('%');
        const std::string value = place == none ? "" : ValueIn(lines_[line], row);
        if (Filled(row, value) != lines_[line] ||
            (place != none && !IsOfKind(row[place + 1], value))) {
            Add(line, Expected(Shown(row), lines_[line]));
        } else if (place == none) {
            section_ = !key.starts_with('[') ? section_ : key != "[HEADER]" ? key + " " : "";
        } else if (const std::string range = RangeAgainst(value, row); !range.empty()) {
            Add(line, Quoted(key) + " is " + value + "; allowed is " + range);
        } else {
            const bool isSolver = row == solverHead || row == solverTail;
            const auto found = file_.emplace(isSolver ? "SolverName" : section_ + key, value).first;
            if (isSolver && found->second != value) {
                Add(line, Expected(Filled(row, found->second), lines_[line]));
            }
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
        const auto isOn = [this](const char* key) { return file_.at(key) == "1"; };
        const bool isMapped = isOn("IsMappedMesh") || isOn("Is3DMappingShell");
        const int kinds = isOn("IsOriginalMesh") + isOn("IsDeformedMesh") + isOn("IsMappedMesh") +
                          isOn("Is3DMappingShell");
        Require(kinds == (IsAnnealedMesh(file_) ? 0 : 1), "IsOriginalMesh",
                "exactly one mesh kind must be 1, none for the annealed mesh");
        const int model = std::stoi(file_.at("IDCompositeModel"));
        Require(model == kOptionResultsMissing || (model >= 0 && model <= 2), "IDCompositeModel",
                "must be 0 to 2, or -2 when results are missing");
        Require(isMapped || file_.at("MapFile") == " ", "MapFile",
                "must be a blank, for the mesh is not mapped");
        Require(file_.at("[DENSITY REDUCTION] DensityReduction") != "0" ||
                    !isOn("IsDoDensityReduction"),
                "DensityReduction", "must be 2 to 10, for density reduction is on");
        Require(!file_.contains("IsAnnealingDeformedMesh") || isOn("IsAnnealingDeformedMesh"),
                "IsAnnealingDeformedMesh", "must be 1; otherwise there is no such line");
    }

    void Require(bool isKept, std::string_view key, const std::string& rule) {
        if (!isKept) {
            const auto line = std::ranges::find(lines_, key, KeyOf) - lines_.begin();
            Add(static_cast<std::size_t>(line), Quoted(std::string(key)) + ": " + rule);
        }
    }

    static constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

    std::string name_;
    std::string_view text_;
    Lines lines_;
    Lines rows_;  ///< of the layout, those that must have a line
    std::string section_;
    Problems faults_;
    ControlFile file_;
};

}  // namespace

ControlFile ReadControlFile(const std::string& name, std::string_view text) {
    return Reader(name, text).Read();
}

std::string Printed(double number) {
    // Sign, all digits of the largest double, point and decimals.
    std::array<char, std::numeric_limits<double>::max_exponent10 + 8> digits{};
    const auto end =
        std::to_chars(digits.begin(), digits.end(), number, std::chars_format::fixed, 3);
    return {digits.begin(), end.ptr};
}

bool IsAnnealedMesh(const ControlFile& file) {
    const auto isOn = [&file](const char* key) { return file.at(key) == "1"; };
    return file.contains("IsAnnealingDeformedMesh") && file.at("ProjectType") == "3" &&
           !isOn("IsOriginalMesh") && !isOn("IsMappedMesh") && !isOn("Is3DMappingShell");
}

}  // namespace host
