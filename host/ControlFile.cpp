#include "host/ControlFile.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "host/ControlFileLayout.h"
#include "host/Problem.h"

namespace host {

namespace {

/// How often the line of a row stands in a file.
std::ptrdiff_t LinesFor(const Row& row, const ControlFile& file) {
    if (row.IsItem()) {
        return std::ranges::count(file.itemIds, row.itemId);
    }
    return row.format != annealingLine || file.values.IsAnnealingDeformedMesh == 1 ? 1 : 0;
}

}  // namespace

std::string Printed(const Field& field) {
    if (auto* const* words = std::get_if<std::string*>(&field)) {
        return (*words)->c_str();  // ends at a NUL byte, as in the engine's file
    }
    if (auto* const* number = std::get_if<std::int32_t*>(&field)) {
        return std::to_string(**number);
    }
    if (std::holds_alternative<std::monostate>(field)) {
        return {};
    }
    // Sign, all digits of the largest double, point and decimals.
    std::array<char, std::numeric_limits<double>::max_exponent10 + 8> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), *std::get<double*>(field),
                                   std::chars_format::fixed, 3);
    return {digits.begin(), end.ptr};
}

std::string Filled(const Row& row, std::string_view value) {
    std::string line(row.format);
    const std::size_t conversion = line.find('%');
    return conversion == std::string::npos ? line : line.replace(conversion, 2, value);
}

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
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

std::vector<std::string> LinesOf(const ControlFile& file) {
    Values values = file.values;
    if (!UsesMapFile(values)) {
        values.MapFile = " ";
    }
    std::vector<std::string> lines;
    for (const Row& row : rows) {
        lines.insert(lines.end(), LinesFor(row, file), Filled(row, Printed(row.field(values))));
    }
    return lines;
}

std::string Expected(std::string_view line, std::string_view found) {
    return "expected " + Quoted(line) + ", found " + Quoted(found);
}

bool UsesMapFile(const CZorbI2CMIData& values) {
    return values.IsMappedMesh == 1 || values.Is3DMappingShell == 1;
}

bool IsAnnealedMesh(const CZorbI2CMIData& values) {
    constexpr std::int32_t annealingProject = 3;
    return values.IsAnnealingDeformedMesh == 1 && values.ProjectType == annealingProject &&
           values.IsOriginalMesh != 1 && !UsesMapFile(values);
}

}  // namespace host
