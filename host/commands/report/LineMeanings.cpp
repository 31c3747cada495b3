#include "commands/report/LineMeanings.h"

#include <algorithm>
#include <iterator>

#include <zorbi2/ControlFileFormat.h>

#include "control_files/LayoutRow.h"
#include "control_files/TextLines.h"

namespace host {

namespace {

/// A line that is no item's, by what it starts with.
struct Row {
    std::string_view start;
    const char* meaning;
};

// clang-format off
constexpr Row explanations[] = {
    {"I2-Output",                "The first line of every control parameter file."},
    {"FileVersion",              "Version of the file's format."},
    {"[HEADER]",                 "What is handed over, and to which solver."},
    {"OutFolder",                "Folder where the translator puts its files."},
    {"MapFile",                  "Mapped mesh, for the two mapped mesh kinds; otherwise one space."},
    {"SolverType",               "Kind of analysis of the project: 0 solid, 1 shell."},
    {"ProjectType",              "Type of the project: 3 annealing, 4 and 6 to 11 injection compression."},
    {"QuadraticElement",         "1: the second of the solver's element types; 0: the first."},
    {"IDCompositeModel",         "Micro-mechanics model: 0 traditional, 1 Halpin-Tsai, 2 Mori-Tanaka; -2 results missing."},
    {"[%s] ",                    "The solver; its part of the header starts here."},
    {"IsOriginalMesh",           "1: the results are put on the original mesh."},
    {"IsDeformedMesh",           "1: the results are put on the deformed mesh."},
    {"IsMappedMesh",             "1: the results are mapped onto another mesh."},
    {"Is3DMappingShell",         "1: the results of a solid model are mapped onto a shell mesh."},
    {"IsDistributeModel",        "1: distributed model."},
    {"IsViewEditModelMapping",   "1: a model edited in the viewer is mapped."},
    {"IsAnnealingDeformedMesh",  "The deformed mesh is the one after annealing."},
    {"IsDoDensityReduction",     "1: the density is reduced by the factor in [DENSITY REDUCTION]."},
    {"[%s_EOF]",                 "The solver's part of the header ends here."},
    {"[\\HEADER]",               "End of the header."},
    {"[MAP DOMAIN]",             "How many segments the domain is divided into for mapping."},
    {"SegmentX",                 "Segments along X, 1 to 100."},
    {"SegmentY",                 "Segments along Y, 1 to 100."},
    {"SegmentZ",                 "Segments along Z, 1 to 100."},
    {"[\\MAP DOMAIN]",           "End of the map domain."},
    {"[MATERIAL REDUCTION]",     "How the fiber materials of the part are collated; set by the option of the fiber orientation."},
    {"FiberThetaXSegment",       "Angle segments X of the part, 1 to 30."},
    {"FiberThetaYSegment",       "Angle segments Y of the part, 1 to 30."},
    {"FiberThetaZSegment",       "Angle segments Z of the part, 1 to 30."},
    {"FiberStrengthXSegment",    "Strength segments X of the part, 1 to 20."},
    {"FiberStrengthYSegment",    "Strength segments Y of the part, 1 to 5."},
    {"[\\MATERIAL REDUCTION]",   "End of the part's material reduction."},
    {"[PARTINSERT MATERIAL",     "The same for the part insert; set by the option of its fiber materials."},
    {"FiberThetaXSegment",       "Angle segments X of the part insert, 1 to 30."},
    {"FiberThetaYSegment",       "Angle segments Y of the part insert, 1 to 30."},
    {"FiberThetaZSegment",       "Angle segments Z of the part insert, 1 to 30."},
    {"FiberStrengthXSegment",    "Strength segments X of the part insert, 1 to 20."},
    {"FiberStrengthYSegment",    "Strength segments Y of the part insert, 1 to 5."},
    {"[\\PARTINSERT MATERIAL",   "End of the part insert's material reduction."},
    {"[DENSITY REDUCTION]",      "How much the density is reduced; set by the option of the density output."},
    {"DensityReduction",         "Reduction factor, 2 to 10; 0 without a reduction."},
    {"[\\DENSITY REDUCTION]",    "End of the density reduction."},
    {"[WELDLINE ANGLE]",         "The meeting angles that bound the ranges of the reduction rates, in degrees."},
    {"WeldlineAngle1",           "Where the first range starts: always 0 degrees."},
    {"WeldlineAngle2",           "Where the first range ends, in degrees."},
    {"WeldlineAngle3",           "Where the second range ends, in degrees."},
    {"WeldlineAngle4",           "Where the third range ends, in degrees."},
    {"[\\WELDLINE ANGLE]",       "End of the weld-line angles."},
    {"[DIGIMAT WELDLINE ANGLE]", "The meeting angle for the Digimat export."},
    {"WeldlineAngle",            "The angle in degrees."},
    {"[\\DIGIMAT WELDLINE",      "End of the Digimat angle."},
    {"[REDUCTION RATE]",         "The reduction rate at weld lines, for each range of meeting angles."},
    {"ReductionRate1",           "Fraction for the first range of angles."},
    {"ReductionRate2",           "Fraction for the second range of angles."},
    {"ReductionRate3",           "Fraction for the third range of angles."},
    {"[\\REDUCTION RATE]",       "End of the reduction rates."},
};
// clang-format on

/// Whether the lines that are no item's are those of the table, in its order.
constexpr bool ExplainsEach() {
    std::size_t row = 0;
    for (const ControlFileLine& line : kControlFileLines) {
        if (line.itemId >= 0) {
            continue;
        }
        if (row == std::size(explanations) ||
            !std::string_view(line.text).starts_with(explanations[row].start)) {
            return false;
        }
        ++row;
    }
    return row == std::size(explanations);
}
static_assert(ExplainsEach());

/// With a full stop, which only some of the engine's texts have, and a space.
std::string Sentence(const std::string& text) {
    return text + (text.ends_with('.') ? " " : ". ");
}

std::string MeaningOf(const CZorbI2Item& item) {
    const std::string title = Sentence(item.title.empty() ? "handed over" : item.title);
    return "1: " + title + (item.description.empty() ? "" : Sentence(item.description)) +
           "0: not handed over.";
}

}  // namespace

std::vector<LineMeaning> LineMeanings(const CZorbI2Engine& engine) {
    std::vector<LineMeaning> meanings;
    const Row* next = explanations;
    for (const LayoutRow& row : Layout()) {
        const std::int32_t itemId = row.line->itemId;
        meanings.push_back({row.IsSolverTag() ? row.InWords()
                            : row.IsFixed()   ? std::string(row.key)
                                              : row.name,
                            itemId >= 0 ? MeaningOf(*engine.items[itemId]) : (next++)->meaning});
    }
    return meanings;
}

std::vector<NumberedLine> ExplainedLines(std::string_view text) {
    const std::vector<LayoutRow>& layout = Layout();
    std::vector<NumberedLine> lines;
    auto next = layout.begin();
    for (const std::string_view whole : LinesOf(text)) {
        const std::string_view line = WithoutEnd(whole);
        const auto key = ControlFileKeyOf(line);
        const auto row = std::find_if(next, layout.end(),
                                      [&key](const LayoutRow& one) { return one.IsOf(key); });
        const bool isKnown = row != layout.end();
        lines.push_back({std::string(line), isKnown ? static_cast<std::size_t>(row - layout.begin())
                                                    : NumberedLine::noMeaning});
        next = isKnown ? row + 1 : next;
    }
    return lines;
}

}  // namespace host
