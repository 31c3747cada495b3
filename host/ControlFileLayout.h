// The control parameter file as data: its lines from top to bottom, and where their values go.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <variant>

#include "cmi/CZorbI2CMIData.h"

namespace host {

using Values = CZorbI2CMIData;

/// Where the value of a line is kept; nowhere if it has none of its own.
using Field = std::variant<std::monostate, std::int32_t*, double*, std::string*>;

template <auto field>
Field At(Values& values) {
    return &(values.*field);
}

template <auto list, std::size_t position>
Field At(Values& values) {
    return &(values.*list)[position];
}

inline Field Nowhere(Values& /*values*/) {
    return {};
}

/// One line: its text with "%d" (a whole number), "%f" (three decimals) or "%s" (any text) in the
/// place of the value, and the numbers that are allowed. Lines of items have an id.
struct Row {
    std::string_view format;
    Field (*field)(Values& values) = Nowhere;
    std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
    std::int32_t highest = std::numeric_limits<std::int32_t>::max();
    std::int32_t itemId = -1;

    bool IsItem() const { return itemId >= 0; }
};

constexpr std::string_view solverHead = "[%s] ";
constexpr std::string_view solverTail = "[%s_EOF]";
constexpr std::string_view annealingLine = "IsAnnealingDeformedMesh = %d (0:off,1:on)";

// Item lines may be missing or stand twice, the annealing line may be missing.
// clang-format off
constexpr auto rows = std::to_array<Row>({
    {"I2-Output Control Parameter File"},
    {"FileVersion = %d",                                    At<&Values::FileVersion>, 9064, 9064},
    {"[HEADER]"},
    {"OutFolder = %s",                                      At<&Values::OutFolder>},
    {"MapFile = %s",                                        At<&Values::MapFile>},
    {"SolverType = %d",                                     At<&Values::SolverType>},
    {"ProjectType = %d",                                    At<&Values::ProjectType>},
    {"QuadraticElement = %d (0:off,1:on)",                  At<&Values::QuadraticElement>, 0, 1},
    {"IDCompositeModel = %d",                               At<&Values::IDCompositeModel>},
    {solverHead,                                            At<&Values::SolverName>},
    {"IsOriginalMesh = %d (0:off,1:on)",                    At<&Values::IsOriginalMesh>, 0, 1},
    {"IsDeformedMesh = %d (0:off,1:on)",                    At<&Values::IsDeformedMesh>, 0, 1},
    {"IsMappedMesh = %d (0:off,1:on)",                      At<&Values::IsMappedMesh>, 0, 1},
    {"Is3DMappingShell = %d (0:off,1:on)",                  At<&Values::Is3DMappingShell>, 0, 1},
    {"IsDistributeModel = %d (0:off,1:on)",                 At<&Values::IsDistributeModel>, 0, 1},
    {"IsViewEditModelMapping = %d (0:off,1:on)",            At<&Values::IsViewEditModelMapping>, 0, 1},
    {annealingLine,                                         At<&Values::IsAnnealingDeformedMesh>, 1, 1},
    {"IsDoMaterialReduction =         %d   (0:off,1:on)",   At<&Values::OutputFlags, 0>, 0, 1, 0},
    {"IsRunnerOutput =                %d   (0:off,1:on)",   At<&Values::OutputFlags, 1>, 0, 1, 1},
    {"IsMoldbaseOutput =              %d   (0:off,1:on)",   At<&Values::OutputFlags, 2>, 0, 1, 2},
    {"IsFlowResidualstressOutput =    %d   (0:off,1:on)",   At<&Values::OutputFlags, 3>, 0, 1, 3},
    {"IsThermalResidualstressOutput = %d   (0:off,1:on)",   At<&Values::OutputFlags, 4>, 0, 1, 4},
    {"IsInitialstrainOutput =         %d   (0:off,1:on)",   At<&Values::OutputFlags, 5>, 0, 1, 5},
    {"IsFlowPressureOutput =          %d   (0:off,1:on)",   At<&Values::OutputFlags, 6>, 0, 1, 6},
    {"IsMoldbasePressureOutput =      %d   (0:off,1:on)",   At<&Values::OutputFlags, 7>, 0, 1, 7},
    {"IsPackTempOutput =              %d   (0:off,1:on)",   At<&Values::OutputFlags, 8>, 0, 1, 8},
    {"IsCoolTempOutput =              %d   (0:off,1:on)",   At<&Values::OutputFlags, 9>, 0, 1, 9},
    {"IsMoldbaseTempOutput =          %d   (0:off,1:on)",   At<&Values::OutputFlags, 10>, 0, 1, 10},
    {"DigimatOutput =                 %d   (0:off,1:on)",   At<&Values::OutputFlags, 11>, 0, 1, 11},
    {"IsPartInsertMaterialReduction = %d   (0:off,1:on)",   At<&Values::OutputFlags, 12>, 0, 1, 12},
    {"IsDensityOutput =               %d   (0:off,1:on)",   At<&Values::OutputFlags, 13>, 0, 1, 13},
    {"IsWeldlineOutput =              %d   (0:off,1:on)",   At<&Values::OutputFlags, 14>, 0, 1, 14},
    {"DigimatWeldlineOutput =\t\t%d   (0:off,1:on)",        At<&Values::OutputFlags, 16>, 0, 1, 16},
    {"DigimatMucellOutput =\t\t%d   (0:off,1:on)",          At<&Values::OutputFlags, 17>, 0, 1, 17},
    {"DigimatFiberOutput =\t\t%d   (0:off,1:on)",           At<&Values::OutputFlags, 18>, 0, 1, 18},
    {"DigimatStressOutput =\t\t%d   (0:off,1:on)",          At<&Values::OutputFlags, 19>, 0, 1, 19},
    {"DigimatTemperatureOutput =\t%d   (0:off,1:on)",       At<&Values::OutputFlags, 20>, 0, 1, 20},
    {"IsAnnealingstressOutput =\t%d   (0:off,1:on)",        At<&Values::OutputFlags, 21>, 0, 1, 21},
    {"IsDoDensityReduction =          %d   (0:off,1:on)",   At<&Values::IsDoDensityReduction>, 0, 1},
    {solverTail,                                            At<&Values::SolverName>},
    {"[\\HEADER]"},
    {"[MAP DOMAIN]"},
    {"SegmentX = %d (1~100)",                               At<&Values::SegmentX>, 1, 100},
    {"SegmentY = %d (1~100)",                               At<&Values::SegmentY>, 1, 100},
    {"SegmentZ = %d (1~100)",                               At<&Values::SegmentZ>, 1, 100},
    {"[\\MAP DOMAIN] "},
    {"[MATERIAL REDUCTION]"},
    {"FiberThetaXSegment = %d (1~30)",                      At<&Values::FiberThetaXSegment>, 1, 30},
    {"FiberThetaYSegment = %d (1~30)",                      At<&Values::FiberThetaYSegment>, 1, 30},
    {"FiberThetaZSegment = %d (1~30)",                      At<&Values::FiberThetaZSegment>, 1, 30},
    {"FiberStrengthXSegment = %d (1~20)",                   At<&Values::FiberStrengthXSegment>, 1, 20},
    {"FiberStrengthYSegment = %d (1~5)",                    At<&Values::FiberStrengthYSegment>, 1, 5},
    {"[\\MATERIAL REDUCTION] "},
    {"[PARTINSERT MATERIAL REDUCTION]"},
    {"FiberThetaXSegment = %d (1~30)",                      At<&Values::InsertFiberThetaXSegment>, 1, 30},
    {"FiberThetaYSegment = %d (1~30)",                      At<&Values::InsertFiberThetaYSegment>, 1, 30},
    {"FiberThetaZSegment = %d (1~30)",                      At<&Values::InsertFiberThetaZSegment>, 1, 30},
    {"FiberStrengthXSegment = %d (1~20)",                   At<&Values::InsertFiberStrengthXSegment>, 1, 20},
    {"FiberStrengthYSegment = %d (1~5)",                    At<&Values::InsertFiberStrengthYSegment>, 1, 5},
    {"[\\PARTINSERT MATERIAL REDUCTION]"},
    {"[DENSITY REDUCTION]"},
    {"DensityReduction = %d (2~10)",                        At<&Values::DensityReduction>},
    {"[\\DENSITY REDUCTION]"},
    {"[WELDLINE ANGLE]"},
    {"WeldlineAngle1 = 0.000"},
    {"WeldlineAngle2 = %f",                                 At<&Values::WeldlineAngles, 0>},
    {"WeldlineAngle3 = %f",                                 At<&Values::WeldlineAngles, 1>},
    {"WeldlineAngle4 = %f",                                 At<&Values::WeldlineAngles, 2>},
    {"[\\WELDLINE ANGLE]"},
    {"[DIGIMAT WELDLINE ANGLE]"},
    {"WeldlineAngle = %f",                                  At<&Values::DigimatWeldlineAngle>},
    {"[\\DIGIMAT WELDLINE ANGLE]"},
    {"[REDUCTION RATE]"},
    {"ReductionRate1 = %f",                                 At<&Values::ReductionRates, 0>},
    {"ReductionRate2 = %f",                                 At<&Values::ReductionRates, 1>},
    {"ReductionRate3 = %f",                                 At<&Values::ReductionRates, 2>},
    {"[\\REDUCTION RATE]"},
});
// clang-format on

/// What tells lines apart: a tag up to its bracket, otherwise the text before "=".
constexpr std::string_view KeyOf(std::string_view line) {
    const bool isTag = line.starts_with('[');
    const std::size_t end = line.find(isTag ? ']' : '=');
    const std::string_view key =
        line.substr(0, isTag && end != std::string_view::npos ? end + 1 : end);
    return key.substr(0, key.find_last_not_of(" \t") + 1);
}

/// The value of a field as the file prints it.
std::string Printed(const Field& field);

/// The line of a row with a value.
std::string Filled(const Row& row, std::string_view value);

}  // namespace host
