#include "control_files/LayoutRow.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>

#include "control_files/ControlFile.h"
#include "problems/VisibleText.h"

namespace host {

namespace {

using Data = CZorbI2CMIData;

/// The keys of a tag that names a solver, or none.
std::vector<std::string> TagsOf(const LayoutRow& row) {
    std::vector<std::string> tags = {ControlFileKey(row.With({}))};
    for (const SolverKeyword& solver : kSolverKeywords) {
        tags.push_back(ControlFileKey(row.With(solver.keyword)));
    }
    return tags;
}

/// The row of a line in a section; the header's values go by their keys alone.
LayoutRow RowOf(const ControlFileLine& line, std::string_view section) {
    const std::string_view text = line.text;
    LayoutRow row{&line, ControlFileKeyOf(text), {}, text, {}, {}, {}};
    row.name = row.IsSolverTag()       ? "SolverName"
               : section == "[HEADER]" ? row.key
                                       : std::string(section).append(" ").append(row.key);
    if (line.value != ControlFileValue::none) {
        const std::size_t value = text.find('%');
        row.before = text.substr(0, value);
        row.after = text.substr(text.find_first_of("dfs", value) + 1);
    }
    if (line.number == &Data::FileVersion) {
        static const std::string version = row.With(std::to_string(kControlFileVersion));
        row.before = version;
    }
    if (ControlFileRange range{}; GetControlFileRange(line, &range)) {
        row.range = range;
    }
    if (row.IsSolverTag()) {
        row.tags = TagsOf(row);
    }
    return row;
}

template <class Number>
Number NumberIn(std::string_view value) {
    Number number = 0;
    std::from_chars(value.data(), value.data() + value.size(), number);
    return number;
}

bool IsOfKind(ControlFileValue kind, std::string_view value) {
    switch (kind) {
        case ControlFileValue::number:
            return value == std::to_string(NumberIn<std::int32_t>(value));
        case ControlFileValue::decimal:
            return value.find_first_not_of("-.0123456789") == std::string_view::npos &&
                   value == Printed(NumberIn<double>(value));
        default:
            return value.find('\0') == std::string_view::npos;
    }
}

}  // namespace

bool LayoutRow::IsFixed() const {
    return line->value == ControlFileValue::none || line->number == &Data::FileVersion;
}

bool LayoutRow::IsSolverTag() const {
    return line->words == &Data::SolverName;
}

bool LayoutRow::IsOf(std::string_view keyOfLine) const {
    return IsSolverTag() ? std::ranges::find(tags, keyOfLine) != tags.end() : keyOfLine == key;
}

std::optional<std::string_view> LayoutRow::ValueIn(std::string_view text) const {
    const std::size_t around = before.size() + after.size();
    if (text.size() < around || !text.starts_with(before) || !text.ends_with(after)) {
        return std::nullopt;
    }
    const std::string_view value = text.substr(before.size(), text.size() - around);
    const bool fits = IsFixed() ? value.empty() : IsOfKind(line->value, value);
    return fits ? std::optional(value) : std::nullopt;
}

std::string LayoutRow::With(std::string_view value) const {
    return std::string(before).append(value).append(after);
}

std::string LayoutRow::InWords() const {
    if (IsFixed()) {
        return QuotedLine(before);
    }
    const std::int32_t lowest = range ? range->lowest : 0;
    return "a line like " +
           QuotedLine(With(IsSolverTag()                              ? kSolverKeywords[0].keyword
                           : line->value == ControlFileValue::number  ? std::to_string(lowest)
                           : line->value == ControlFileValue::decimal ? Printed(0.0)
                                                                      : "D:\\Path"));
}

std::string LayoutRow::RangeAgainst(std::string_view value) const {
    const bool isNoReduction = line->number == &Data::DensityReduction && value == "0";
    const auto number = NumberIn<std::int32_t>(value);
    if (isNoReduction || !range || (number >= range->lowest && number <= range->highest)) {
        return {};
    }
    const std::size_t start = after.find('(') + 1;
    return std::string(after.substr(start, after.find(')') - start));
}

const std::vector<LayoutRow>& Layout() {
    static const std::vector<LayoutRow> rows = [] {
        std::vector<LayoutRow> all;
        all.reserve(std::size(kControlFileLines));
        std::string_view section;
        for (const ControlFileLine& line : kControlFileLines) {
            all.push_back(RowOf(line, section));
            const LayoutRow& row = all.back();
            section = row.IsFixed() && row.key.starts_with('[') ? row.key : section;
        }
        return all;
    }();
    return rows;
}

}  // namespace host
