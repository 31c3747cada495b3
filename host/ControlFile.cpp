#include "ControlFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <span>

#include "ControlFileLayout.h"
#include "ZorbI2Types.h"

namespace host {

using layout::Row;
using layout::Values;

namespace {

/// What a number in the file is called.
struct Name {
    std::int32_t number;
    std::string_view text;
};

constexpr auto compositeModels = std::to_array<Name>({
    {kOptionResultsMissing, "none (its results are missing)"},
    {0, "Traditional composite model"},
    {1, "Halpin-Tsai model"},
    {2, "Mori-Tanaka model"},
});
constexpr auto projects = std::to_array<Name>({{kSolidProject, "solid"}, {kShellProject, "shell"}});
constexpr auto levelsByAngleSegments =
    std::to_array<Name>({{1, "Min"}, {8, "Low"}, {15, "Medium"}, {23, "High"}, {30, "Max"}});
constexpr auto levelsByDensityFactor =
    std::to_array<Name>({{2, "Min"}, {4, "Low"}, {6, "Medium"}, {8, "High"}, {10, "Max"}});

std::string NameOf(std::int32_t number, std::span<const Name> names) {
    const auto name = std::ranges::find(names, number, &Name::number);
    return std::string(name != names.end() ? name->text : "other");
}

std::string WithThreeDecimals(double number) {
    // Sign, all digits of the largest double, point and decimals.
    std::array<char, std::numeric_limits<double>::max_exponent10 + 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::fixed, 3);
    return {digits.data(), end.ptr};
}

/// The line of an item; an empty one for ids without a line.
Row RowOfItem(std::int32_t itemId) {
    const auto row = std::ranges::find(layout::rows, itemId, &Row::itemId);
    return row != layout::rows.end() && itemId >= 0 ? *row : Row{};
}

// ---- Words ------------------------------------------------------------------------------------

std::string Labelled(std::string_view label, std::string_view words) {
    constexpr std::size_t column = 24;
    std::string line(label);
    line.resize(column, ' ');
    return line.append(words) + '\n';
}

std::string ItemsInWords(const ControlFile& file, std::int32_t value, std::string_view label) {
    std::string words;
    for (const ItemLine& item : file.items) {
        if (item.value == value) {
            words += Labelled(words.empty() ? label : "", ItemTitle(item.itemId));
        }
    }
    return words;
}

std::string LevelInWords(bool isOn, std::int32_t number, std::span<const Name> levels,
                         const std::string& unit) {
    return isOn ? NameOf(number, levels) + " (" + unit + ' ' + std::to_string(number) + ')' : "off";
}

std::string WeldlinesInWords(const Values& values) {
    std::string words;
    for (std::size_t i = 0; i < std::size(values.WeldlineAngles); ++i) {
        words += (i > 0 ? ", " : "") + WithThreeDecimals(values.ReductionRates[i]) + " at " +
                 WithThreeDecimals(values.WeldlineAngles[i]);
    }
    return words + " degrees";
}

}  // namespace

std::string layout::Printed(const Place& place) {
    if (auto* const* words = std::get_if<std::string*>(&place)) {
        return **words;
    }
    if (auto* const* decimal = std::get_if<double*>(&place)) {
        return WithThreeDecimals(**decimal);
    }
    auto* const* number = std::get_if<std::int32_t*>(&place);
    return number != nullptr ? std::to_string(**number) : "";
}

std::string layout::Quoted(std::string_view text) {
    constexpr std::size_t longest = 160;
    std::string quoted = "\"";
    for (const char letter : text.substr(0, longest)) {
        const auto byte = static_cast<unsigned char>(letter);
        const bool isControl = byte < 0x20 || byte == 0x7f;
        quoted += letter == '\t' ? "\\t" : std::string(1, isControl ? '?' : letter);
    }
    return quoted + (text.size() > longest ? "...\"" : "\"");
}

ControlFile FileOf(const CZorbI2CMIData& block, std::vector<std::int32_t> itemIds) {
    ControlFile file{block, {}};
    file.values.MapFile = layout::UsesMapFile(block) ? block.MapFile : "";
    file.values.IsAnnealingDeformedMesh = block.IsAnnealingDeformedMesh == 1 ? 1 : 0;
    std::ranges::sort(itemIds);
    for (const std::int32_t itemId : itemIds) {
        if (!ItemKey(itemId).empty()) {
            file.items.push_back({itemId, block.OutputFlags[itemId], 0});
        }
    }
    return file;
}

std::vector<NamedValue> ValuesOf(const ControlFile& file) {
    std::vector<NamedValue> namedValues;
    std::string section;
    Values values = file.values;
    for (const Row& row : layout::rows) {
        const std::string key(layout::KeyOf(row.format));
        const layout::Place place = row.place(values);
        if (std::holds_alternative<std::monostate>(place)) {
            if (row.format.starts_with('[')) {
                section = row.format == "[HEADER]" ? "" : key + ' ';
            }
            continue;
        }
        const bool hasLine =
            row.itemId < 0 || std::ranges::count(file.items, row.itemId, &ItemLine::itemId) > 0;
        namedValues.push_back({row.format == layout::solverHead ? "SolverName" : section + key,
                               hasLine ? layout::Printed(place) : "",
                               !std::holds_alternative<std::string*>(place)});
    }
    return namedValues;
}

std::vector<std::string> Differences(const ControlFile& asked, const ControlFile& found) {
    const auto shown = [](const NamedValue& value) {
        return value.text.empty() && value.isNumber ? "missing" : layout::Quoted(value.text);
    };
    const std::vector<NamedValue> left = ValuesOf(asked);
    const std::vector<NamedValue> right = ValuesOf(found);
    std::vector<std::string> differences;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (left[i].text != right[i].text) {
            differences.push_back(left[i].name + " is " + shown(right[i]) + ", asked for was " +
                                  shown(left[i]));
        }
    }
    return differences;
}

std::string InWords(const ControlFile& file) {
    const Values& v = file.values;
    std::string words = Labelled("Solver:", SolverInWords(v.SolverName));
    words += Labelled("Mesh:", MeshInWords(v));
    words += Labelled("Elements:", v.QuadraticElement == 1 ? "quadratic" : "linear");
    if (layout::UsesMapFile(v)) {
        words += Labelled("Mapped mesh:", layout::Quoted(v.MapFile));
    }
    words += Labelled("Output folder:", layout::Quoted(v.OutFolder));
    words += Labelled("Project:", NameOf(v.SolverType, projects) + " mesh, project type " +
                                      std::to_string(v.ProjectType));
    words += Labelled("Micro mechanics:", NameOf(v.IDCompositeModel, compositeModels));
    words += ItemsInWords(file, 1, "Items on:") + ItemsInWords(file, 0, "Items off:");
    words += Labelled("Fiber reduction:", LevelInWords(v.OutputFlags[0] == 1, v.FiberThetaXSegment,
                                                       levelsByAngleSegments, "angle segments"));
    words += Labelled("Part insert reduction:",
                      LevelInWords(v.OutputFlags[12] == 1, v.InsertFiberThetaXSegment,
                                   levelsByAngleSegments, "angle segments"));
    words +=
        Labelled("Density reduction:", LevelInWords(v.IsDoDensityReduction == 1, v.DensityReduction,
                                                    levelsByDensityFactor, "factor"));
    words += Labelled("Distributed model:", v.IsDistributeModel == 1 ? "on" : "off");
    words += Labelled("View-edit mapping:", v.IsViewEditModelMapping == 1 ? "on" : "off");
    words += Labelled("Weld-line strength:", WeldlinesInWords(v));
    words += Labelled("Digimat weld line:", WithThreeDecimals(v.DigimatWeldlineAngle) + " degrees");
    return words;
}

std::string_view ItemKey(std::int32_t itemId) {
    return layout::KeyOf(RowOfItem(itemId).format);
}

std::string_view ItemTitle(std::int32_t itemId) {
    return RowOfItem(itemId).title;
}

std::string SolverInWords(std::string_view keyword) {
    const auto solver = std::ranges::find(layout::solvers, keyword, &layout::Solver::keyword);
    return std::string(solver != layout::solvers.end() ? solver->name : keyword);
}

std::string MeshInWords(const CZorbI2CMIData& values) {
    if (layout::IsAnnealedMesh(values)) {
        return "deformed after annealing";
    }
    return values.IsOriginalMesh == 1     ? "original"
           : values.IsDeformedMesh == 1   ? "deformed"
           : values.IsMappedMesh == 1     ? "mapped"
           : values.Is3DMappingShell == 1 ? "3D mapping to shell"
                                          : "none";
}

}  // namespace host
