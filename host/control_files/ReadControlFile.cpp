#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

#include <zorbi2/ControlFileFormat.h>
#include <zorbi2/ZorbI2Types.h>

#include "control_files/ControlFile.h"
#include "control_files/LayoutRow.h"
#include "control_files/TextLines.h"
#include "problems/Problem.h"
#include "problems/VisibleText.h"

namespace host {

namespace {

constexpr std::size_t none = std::string_view::npos;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

struct Line {
    std::string_view text;
    std::string_view key;
    bool hasReturn;  ///< it ends in CR LF
};

/// The lines of a text without their ends, which are LF or CR LF. At least one; no more than bound
/// the work on what is no control file.
std::vector<Line> LinesWithKeys(std::string_view text) {
    constexpr std::size_t mostLines = 1000;
    std::vector<Line> lines;
    lines.reserve(std::size(kControlFileLines));
    for (const std::string_view whole : LinesOf(text, mostLines)) {
        const std::string_view line = WithoutEnd(whole);
        lines.push_back(
            {line, ControlFileKeyOf(line), whole.substr(line.size()).starts_with('\r')});
    }
    if (lines.empty()) {
        lines.push_back({});
    }
    return lines;
}

/// The rows that must have a line in the file, or have one.
std::vector<const LayoutRow*> RowsFor(const std::vector<Line>& lines) {
    std::vector<const LayoutRow*> rows;
    rows.reserve(Layout().size());
    for (const LayoutRow& row : Layout()) {
        if (row.line->presence == ControlFilePresence::always ||
            std::ranges::find(lines, row.key, &Line::key) != lines.end()) {
            rows.push_back(&row);
        }
    }
    return rows;
}

std::string Expected(const std::string& words, std::string_view found) {
    return "expected " + words + ", found " + QuotedLine(found);
}

/// What the values of several lines must keep.
struct Rule {
    const char* key;
    bool isKept;
    std::string text;
};

std::vector<Rule> RulesFor(const ControlFile& file) {
    const auto isOn = [&file](const char* key) { return IsOn(file, key); };
    const int model = std::stoi(file.at("IDCompositeModel"));
    return {
        {meshKeys[kMeshOriginal],
         std::ranges::count_if(meshKeys, isOn) <= (IsAnnealedMesh(file) ? 0 : 1),
         "only one mesh kind can be 1, and none for the annealed mesh"},
        {"IDCompositeModel", model == kOptionResultsMissing || model >= 0,
         "must be a model number from 0 up, or " + std::to_string(kOptionResultsMissing) +
             " if the results are missing"},
        {"MapFile", IsMapped(file) || file.at("MapFile") == " ",
         "must be a single space, because the mesh is not mapped"},
    };
}

class Reader {
public:
    Reader(std::string name, std::string_view text)
        : name_(std::move(name)),
          text_(text),
          lines_(LinesWithKeys(text.substr(HasMark() ? byteOrderMark.size() : 0))),
          rows_(RowsFor(lines_)) {}

    ControlFile Read() {
        if (!rows_.front()->IsOf(lines_.front().key) && !rows_.back()->IsOf(lines_.back().key)) {
            Add(0, "not a control parameter file: " +
                       Expected(rows_.front()->InWords(), lines_.front().text));
        } else {
            ReadLines();
            CheckEnds();
            CheckLineEnds();
        }
        if (faults_.empty()) {
            CheckRules();
        }
        ThrowFaults();
        return std::move(file_);
    }

private:
    void Add(std::size_t line, const std::string& message) {
        const Place place{name_, static_cast<std::uint32_t>(line + 1)};
        faults_.emplace_back(place, message, ExitCode::notAvailable);
    }

    bool HasMark() const { return text_.starts_with(byteOrderMark); }

    bool EndsWithinLine() const { return !text_.ends_with('\n'); }

    /// Of a line that the file ends within, the end is told and nothing else.
    void AddUnlessCut(std::size_t line, const std::string& message) {
        if (line + 1 < lines_.size() || !EndsWithinLine()) {
            Add(line, message);
        }
    }

    /// Walks down lines and rows together.
    void ReadLines() {
        while (line_ < lines_.size() || row_ < rows_.size()) {
            if (line_ == lines_.size()) {
                AddUnlessCut(line_ - 1, "the file ends here, before " + rows_[row_]->InWords());
                return;
            }
            if (RowsBefore(line_, row_) == 0) {
                ReadLine(*rows_[row_++]);
                ++line_;
            } else {
                TellDifference();
            }
        }
    }

    void ReadLine(const LayoutRow& row) {
        const std::string_view text = lines_[line_].text;
        const std::optional<std::string_view> value = row.ValueIn(text);
        if (!value) {
            AddUnlessCut(line_, Expected(row.InWords(), text));
        } else if (const std::string range = row.RangeAgainst(*value); !range.empty()) {
            Add(line_, Quoted(row.key) + " is " + std::string(*value) + "; allowed: " + range);
        } else {
            Keep(row, *value);
        }
    }

    void Keep(const LayoutRow& row, std::string_view value) {
        if (!row.IsFixed()) {
            const std::string& kept = file_.emplace(row.name, value).first->second;
            if (kept != value) {  // the solver's second tag
                AddUnlessCut(line_, Expected(QuotedLine(row.With(kept)), lines_[line_].text));
            }
        } else if (row.line->presence != ControlFilePresence::always) {
            file_.emplace(row.name, "1");  // a line that only stands there when it says so
        }
    }

    /// Where line and row differ, what comes back sooner tells whether the line is garbled, missing
    /// or one too many.
    void TellDifference() {
        const std::size_t missing = RowsBefore(line_, row_);
        const std::size_t extra = LinesBefore(line_, row_);
        const std::string_view text = lines_[line_].text;
        if (row_ < rows_.size() && (missing == extra || RowsBefore(line_ + 1, row_ + 1) == 0)) {
            AddUnlessCut(line_++, Expected(rows_[row_++]->InWords(), text));
        } else if (missing < extra) {
            AddUnlessCut(line_, rows_[row_++]->InWords() + " is missing here");
        } else {
            AddUnlessCut(line_++, (text.empty() ? "an empty line" : QuotedLine(text)) +
                                      " does not belong here");
        }
    }

    /// How many rows stand before the one of a line; none if there is none below.
    std::size_t RowsBefore(std::size_t line, std::size_t row) const {
        for (std::size_t i = row; line < lines_.size() && i < rows_.size(); ++i) {
            if (rows_[i]->IsOf(lines_[line].key)) {
                return i - row;
            }
        }
        return none;
    }

    std::size_t LinesBefore(std::size_t line, std::size_t row) const {
        for (std::size_t i = line; row < rows_.size() && i < lines_.size(); ++i) {
            if (rows_[row]->IsOf(lines_[i].key)) {
                return i - line;
            }
        }
        return none;
    }

    void CheckEnds() {
        if (HasMark()) {
            Add(0, "the file starts with a byte order mark");
        }
        if (EndsWithinLine()) {
            Add(lines_.size() - 1,
                "the file ends in the middle of this line: there is no line ending");
        }
    }

    /// All lines end in LF, or all in CR LF.
    void CheckLineEnds() {
        const std::size_t ended = lines_.size() - (EndsWithinLine() ? 1 : 0);
        for (std::size_t i = 1; i < ended; ++i) {
            if (lines_[i].hasReturn != lines_[0].hasReturn) {
                return Add(i, lines_[i].hasReturn
                                  ? "this line ends in CR LF, but those above end in LF"
                                  : "this line ends in LF, but those above end in CR LF");
            }
        }
    }

    void CheckRules() {
        for (const auto& [key, isKept, text] : RulesFor(file_)) {
            if (!isKept) {
                const auto line = std::ranges::find(lines_, key, &Line::key) - lines_.begin();
                Add(static_cast<std::size_t>(line), Quoted(key) + ": " + text);
            }
        }
    }

    void ThrowFaults() {
        constexpr std::size_t mostFaults = 20;
        SortByLine(faults_);
        if (faults_.size() > mostFaults) {
            faults_.erase(faults_.begin() + mostFaults, faults_.end());
            Add(faults_.back().place.line - 1, "more errors follow");
        }
        ThrowErrors(faults_);
    }

    std::string name_;
    std::string_view text_;
    std::vector<Line> lines_;
    std::vector<const LayoutRow*> rows_;
    std::size_t line_ = 0;
    std::size_t row_ = 0;
    Problems faults_;
    ControlFile file_;
};

}  // namespace

ControlFile ReadControlFile(const std::string& name, std::string_view text) {
    return Reader(name, text).Read();
}

std::uint32_t LineOf(std::string_view text, const std::string& name) {
    const std::vector<LayoutRow>& rows = Layout();
    const auto wanted = std::ranges::find(rows, name, &LayoutRow::name);
    auto row = rows.begin();
    std::uint32_t number = 0;
    for (const Line& line : LinesWithKeys(text)) {
        ++number;
        row = std::find_if(row, rows.end(), [&](const auto& r) { return r.IsOf(line.key); });
        if (row >= wanted) {
            break;
        }
    }
    return number;
}

}  // namespace host
