#include "cmi/CMIFileText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "platform/Text.h"

namespace {

using Data = CZorbI2CMIData;

struct Source {
    const Data& data;
    const std::vector<std::int32_t>& itemIds;
};

/// The format with its one conversion ("%d", "%s" or "%.3f") replaced by the value.
std::string Filled(std::string_view format, std::string_view value) {
    const std::size_t conversion = format.find('%');
    const std::size_t rest = format.find_first_of("dsf", conversion) + 1;
    std::string line(format.substr(0, conversion));
    line += value;
    line += format.substr(rest);
    return line;
}

// The ways in which a line gets its value.

std::string Fixed(const char* format, const Source& /*source*/) {
    return format;
}

template <std::int32_t Data::*field>
std::string Number(const char* format, const Source& source) {
    return Filled(format, std::to_string(source.data.*field));
}

template <std::string Data::*field>
std::string Text(const char* format, const Source& source) {
    return Filled(format, (source.data.*field).c_str());  // ends at a NUL byte, as printf's text
}

std::string MapFile(const char* format, const Source& source) {
    const bool isUsed = source.data.IsMappedMesh == 1 || source.data.Is3DMappingShell == 1;
    return isUsed ? Text<&Data::MapFile>(format, source) : Filled(format, " ");
}

std::string ZeroAngle(const char* format, const Source& /*source*/) {
    return Filled(format, platform::WithThreeDecimals(0.0));
}

template <double (Data::*list)[3], std::size_t position>
std::string Element(const char* format, const Source& source) {
    return Filled(format, platform::WithThreeDecimals((source.data.*list)[position]));
}

std::string DigimatAngle(const char* format, const Source& source) {
    return Filled(format, platform::WithThreeDecimals(source.data.DigimatWeldlineAngle));
}

std::string WhenAnnealed(const char* format, const Source& source) {
    return source.data.IsAnnealingDeformedMesh == 1 ? format : "";
}

struct ItemLine {
    std::int32_t itemId;
    const char* format;
};

// Padding is the file's own: blanks to one column up to 14, tabs from 16 on. Item 15 has no line.
// clang-format off
constexpr auto itemLines = std::to_array<ItemLine>({
    { 0, "IsDoMaterialReduction =         %d   (0:off,1:on)\n"},
    { 1, "IsRunnerOutput =                %d   (0:off,1:on)\n"},
    { 2, "IsMoldbaseOutput =              %d   (0:off,1:on)\n"},
    { 3, "IsFlowResidualstressOutput =    %d   (0:off,1:on)\n"},
    { 4, "IsThermalResidualstressOutput = %d   (0:off,1:on)\n"},
    { 5, "IsInitialstrainOutput =         %d   (0:off,1:on)\n"},
    { 6, "IsFlowPressureOutput =          %d   (0:off,1:on)\n"},
    { 7, "IsMoldbasePressureOutput =      %d   (0:off,1:on)\n"},
    { 8, "IsPackTempOutput =              %d   (0:off,1:on)\n"},
    { 9, "IsCoolTempOutput =              %d   (0:off,1:on)\n"},
    {10, "IsMoldbaseTempOutput =          %d   (0:off,1:on)\n"},
    {11, "DigimatOutput =                 %d   (0:off,1:on)\n"},
    {12, "IsPartInsertMaterialReduction = %d   (0:off,1:on)\n"},
    {13, "IsDensityOutput =               %d   (0:off,1:on)\n"},
    {14, "IsWeldlineOutput =              %d   (0:off,1:on)\n"},
    {16, "DigimatWeldlineOutput =\t\t%d   (0:off,1:on)\n"},
    {17, "DigimatMucellOutput =\t\t%d   (0:off,1:on)\n"},
    {18, "DigimatFiberOutput =\t\t%d   (0:off,1:on)\n"},
    {19, "DigimatStressOutput =\t\t%d   (0:off,1:on)\n"},
    {20, "DigimatTemperatureOutput =\t%d   (0:off,1:on)\n"},
    {21, "IsAnnealingstressOutput =\t%d   (0:off,1:on)\n"},
});
// clang-format on

std::string ItemLines(const char* /*format*/, const Source& source) {
    std::string lines;
    for (const std::int32_t itemId : source.itemIds) {
        const auto row = std::ranges::find(itemLines, itemId, &ItemLine::itemId);
        if (row != itemLines.end()) {
            lines += Filled(row->format, std::to_string(source.data.OutputFlags[itemId]));
        }
    }
    return lines;
}

struct Line {
    const char* format;
    std::string (*text)(const char* format, const Source& source);
};

// The file from top to bottom. Three lines end in a blank, closing tags bear a backslash, the part
// insert's section repeats the part's keys, and the first weld-line angle is always zero: all
// meant.
// clang-format off
constexpr auto fileLines = std::to_array<Line>({
    {"I2-Output Control Parameter File\n",                Fixed},
    {"FileVersion = %d\n",                                Number<&Data::FileVersion>},
    {"[HEADER]\n",                                        Fixed},
    {"OutFolder = %s\n",                                  Text<&Data::OutFolder>},
    {"MapFile = %s\n",                                    MapFile},
    {"SolverType = %d\n",                                 Number<&Data::SolverType>},
    {"ProjectType = %d\n",                                Number<&Data::ProjectType>},
    {"QuadraticElement = %d (0:off,1:on)\n",              Number<&Data::QuadraticElement>},
    {"IDCompositeModel = %d\n",                           Number<&Data::IDCompositeModel>},
    {"[%s] \n",                                           Text<&Data::SolverName>},
    {"IsOriginalMesh = %d (0:off,1:on)\n",                Number<&Data::IsOriginalMesh>},
    {"IsDeformedMesh = %d (0:off,1:on)\n",                Number<&Data::IsDeformedMesh>},
    {"IsMappedMesh = %d (0:off,1:on)\n",                  Number<&Data::IsMappedMesh>},
    {"Is3DMappingShell = %d (0:off,1:on)\n",              Number<&Data::Is3DMappingShell>},
    {"IsDistributeModel = %d (0:off,1:on)\n",             Number<&Data::IsDistributeModel>},
    {"IsViewEditModelMapping = %d (0:off,1:on)\n",        Number<&Data::IsViewEditModelMapping>},
    {"IsAnnealingDeformedMesh = 1 (0:off,1:on)\n",        WhenAnnealed},
    {"",                                                  ItemLines},
    {"IsDoDensityReduction =          %d   (0:off,1:on)\n", Number<&Data::IsDoDensityReduction>},
    {"[%s_EOF]\n",                                        Text<&Data::SolverName>},
    {"[\\HEADER]\n",                                      Fixed},
    {"[MAP DOMAIN]\n",                                    Fixed},
    {"SegmentX = %d (1~100)\n",                           Number<&Data::SegmentX>},
    {"SegmentY = %d (1~100)\n",                           Number<&Data::SegmentY>},
    {"SegmentZ = %d (1~100)\n",                           Number<&Data::SegmentZ>},
    {"[\\MAP DOMAIN] \n",                                 Fixed},
    {"[MATERIAL REDUCTION]\n",                            Fixed},
    {"FiberThetaXSegment = %d (1~30)\n",                  Number<&Data::FiberThetaXSegment>},
    {"FiberThetaYSegment = %d (1~30)\n",                  Number<&Data::FiberThetaYSegment>},
    {"FiberThetaZSegment = %d (1~30)\n",                  Number<&Data::FiberThetaZSegment>},
    {"FiberStrengthXSegment = %d (1~20)\n",               Number<&Data::FiberStrengthXSegment>},
    {"FiberStrengthYSegment = %d (1~5)\n",                Number<&Data::FiberStrengthYSegment>},
    {"[\\MATERIAL REDUCTION] \n",                         Fixed},
    {"[PARTINSERT MATERIAL REDUCTION]\n",                 Fixed},
    {"FiberThetaXSegment = %d (1~30)\n",                  Number<&Data::InsertFiberThetaXSegment>},
    {"FiberThetaYSegment = %d (1~30)\n",                  Number<&Data::InsertFiberThetaYSegment>},
    {"FiberThetaZSegment = %d (1~30)\n",                  Number<&Data::InsertFiberThetaZSegment>},
    {"FiberStrengthXSegment = %d (1~20)\n",               Number<&Data::InsertFiberStrengthXSegment>},
    {"FiberStrengthYSegment = %d (1~5)\n",                Number<&Data::InsertFiberStrengthYSegment>},
    {"[\\PARTINSERT MATERIAL REDUCTION]\n",               Fixed},
    {"[DENSITY REDUCTION]\n",                             Fixed},
    {"DensityReduction = %d (2~10)\n",                    Number<&Data::DensityReduction>},
    {"[\\DENSITY REDUCTION]\n",                           Fixed},
    {"[WELDLINE ANGLE]\n",                                Fixed},
    {"WeldlineAngle1 = %.3f\n",                           ZeroAngle},
    {"WeldlineAngle2 = %.3f\n",                           Element<&Data::WeldlineAngles, 0>},
    {"WeldlineAngle3 = %.3f\n",                           Element<&Data::WeldlineAngles, 1>},
    {"WeldlineAngle4 = %.3f\n",                           Element<&Data::WeldlineAngles, 2>},
    {"[\\WELDLINE ANGLE]\n",                              Fixed},
    {"[DIGIMAT WELDLINE ANGLE]\n",                        Fixed},
    {"WeldlineAngle = %.3f\n",                            DigimatAngle},
    {"[\\DIGIMAT WELDLINE ANGLE]\n",                      Fixed},
    {"[REDUCTION RATE]\n",                                Fixed},
    {"ReductionRate1 = %.3f\n",                           Element<&Data::ReductionRates, 0>},
    {"ReductionRate2 = %.3f\n",                           Element<&Data::ReductionRates, 1>},
    {"ReductionRate3 = %.3f\n",                           Element<&Data::ReductionRates, 2>},
    {"[\\REDUCTION RATE]\n",                              Fixed},
});
// clang-format on

}  // namespace

std::string CMIFileText(const CZorbI2CMIData& data, const std::vector<std::int32_t>& itemIds) {
    const Source source{data, itemIds};
    std::string text;
    for (const Line& line : fileLines) {
        text += line.text(line.format, source);
    }
    return text;
}
