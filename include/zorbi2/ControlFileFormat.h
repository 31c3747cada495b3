// The control parameter file, line by line from top to bottom: the text of each line and the field
// of the data block that it prints. The engine writes the file from this table; a program that
// reads the file can use it too.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "CZorbI2CMIData.h"
#include "ZorbI2Types.h"

/// FileVersion of every file.
constexpr std::int32_t kControlFileVersion = 9064;

/// What the file calls a solver. Not always the display name.
struct SolverKeyword {
    SolverIndex solver;   ///< one of kSolver...
    const char* keyword;  ///< such as "MSCNASTRAN"
};

/// By solver.
// clang-format off
constexpr SolverKeyword kSolverKeywords[] = {
    {kSolverAnsys,      "ANSYS"},
    {kSolverAbaqus,     "ABAQUS"},
    {kSolverMscNastran, "MSCNASTRAN"},
    {kSolverNeNastran,  "NENASTRAN"},
    {kSolverLsDyna,     "LSDYNA"},
    {kSolverMarc,       "MARC"},
    {kSolverNxNastran,  "NXNASTRAN"},
    {kSolverRadioss,    "RADIOSS"},
    {kSolverWorkbench,  "WORKBENCH"},
};
// clang-format on
static_assert(sizeof kSolverKeywords / sizeof kSolverKeywords[0] == kSolverCount,
              "each solver has a keyword");

/// When a line is in the file.
enum class ControlFilePresence {
    always,
    whenAnnealed,  ///< only when IsAnnealingDeformedMesh of the data block is 1
    whenOffered,   ///< once for each group of the dialog that offers the line's item
};

/// What a line prints for a field.
enum class ControlFileValue {
    none,          ///< the text is printed as it is
    number,        ///< "%d": a whole number, with its sign when it is negative
    text,          ///< "%s": any text; it ends at a NUL byte
    textIfMapped,  ///< "%s": the text for the two mapped mesh kinds, one space for the others
    decimal,       ///< "%.3f": three decimals and a decimal point
};

/// One line of the file. Its text is what the engine prints, without the line ending, and with a
/// printf conversion where the value goes.
struct ControlFileLine {
    typedef CZorbI2CMIData Data;  ///< whose fields lines print

    /// A line without a value.
    constexpr ControlFileLine(const char* fixedText,
                              ControlFilePresence when = ControlFilePresence::always)
        : text(fixedText), value(ControlFileValue::none), presence(when) {}
    /// A line with a whole number.
    constexpr ControlFileLine(const char* format, std::int32_t Data::*field)
        : text(format), value(ControlFileValue::number), number(field) {}
    /// A line with a text.
    constexpr ControlFileLine(const char* format, std::string Data::*field,
                              ControlFileValue kind = ControlFileValue::text)
        : text(format), value(kind), words(field) {}
    /// A line with a decimal.
    constexpr ControlFileLine(const char* format, double Data::*field)
        : text(format), value(ControlFileValue::decimal), decimal(field) {}
    /// A line with one decimal of a list.
    constexpr ControlFileLine(const char* format, double (Data::*list)[3], std::size_t position)
        : text(format), value(ControlFileValue::decimal), decimals(list), element(position) {}
    /// The on/off line of an item, which prints the item's element of OutputFlags.
    constexpr ControlFileLine(const char* format, std::int32_t item)
        : text(format),
          value(ControlFileValue::number),
          presence(ControlFilePresence::whenOffered),
          itemId(item) {}

    const char* text;        ///< with a conversion where the value goes
    ControlFileValue value;  ///< what the conversion prints
    ControlFilePresence presence = ControlFilePresence::always;  ///< when the line is there
    std::int32_t itemId = -1;  ///< item of an on/off line; -1: not an item's line
    // The field of the data block; all are null for a fixed text and for an item's line.
    std::int32_t Data::*number = nullptr;   ///< of a whole number
    std::string Data::*words = nullptr;     ///< of a text
    double Data::*decimal = nullptr;        ///< of a single decimal
    double (Data::*decimals)[3] = nullptr;  ///< of a list of decimals
    std::size_t element = 0;                ///< of `decimals`
};

/// The whole file. All of this is deliberate: three lines end in a space; closing tags have a
/// backslash; keys of items are padded with spaces up to kItemWeldLine and with tabs from
/// kItemDigimatWeldLine on; kItemMicroMechanics has no line; the section of the part insert repeats
/// the keys of the part; the first weld-line angle is always zero.
// clang-format off
constexpr ControlFileLine kControlFileLines[] = {
    {"I2-Output Control Parameter File"},
    {"FileVersion = %d",                                 &CZorbI2CMIData::FileVersion},
    {"[HEADER]"},
    {"OutFolder = %s",                                   &CZorbI2CMIData::OutFolder},
    {"MapFile = %s",                                     &CZorbI2CMIData::MapFile, ControlFileValue::textIfMapped},
    {"SolverType = %d",                                  &CZorbI2CMIData::SolverType},
    {"ProjectType = %d",                                 &CZorbI2CMIData::ProjectType},
    {"QuadraticElement = %d (0:off,1:on)",               &CZorbI2CMIData::QuadraticElement},
    {"IDCompositeModel = %d",                            &CZorbI2CMIData::IDCompositeModel},
    {"[%s] ",                                            &CZorbI2CMIData::SolverName},
    {"IsOriginalMesh = %d (0:off,1:on)",                 &CZorbI2CMIData::IsOriginalMesh},
    {"IsDeformedMesh = %d (0:off,1:on)",                 &CZorbI2CMIData::IsDeformedMesh},
    {"IsMappedMesh = %d (0:off,1:on)",                   &CZorbI2CMIData::IsMappedMesh},
    {"Is3DMappingShell = %d (0:off,1:on)",               &CZorbI2CMIData::Is3DMappingShell},
    {"IsDistributeModel = %d (0:off,1:on)",              &CZorbI2CMIData::IsDistributeModel},
    {"IsViewEditModelMapping = %d (0:off,1:on)",         &CZorbI2CMIData::IsViewEditModelMapping},
    {"IsAnnealingDeformedMesh = 1 (0:off,1:on)",         ControlFilePresence::whenAnnealed},
    {"IsDoMaterialReduction =         %d   (0:off,1:on)", kItemFiberOrientation},
    {"IsRunnerOutput =                %d   (0:off,1:on)", kItemRunner},
    {"IsMoldbaseOutput =              %d   (0:off,1:on)", kItemMoldbaseMesh},
    {"IsFlowResidualstressOutput =    %d   (0:off,1:on)", kItemFlowInducedStress},
    {"IsThermalResidualstressOutput = %d   (0:off,1:on)", kItemThermalStress},
    {"IsInitialstrainOutput =         %d   (0:off,1:on)", kItemInitialStrain},
    {"IsFlowPressureOutput =          %d   (0:off,1:on)", kItemInsertFlowPressure},
    {"IsMoldbasePressureOutput =      %d   (0:off,1:on)", kItemMoldbasePressure},
    {"IsPackTempOutput =              %d   (0:off,1:on)", kItemPackingTemperature},
    {"IsCoolTempOutput =              %d   (0:off,1:on)", kItemEndOfCoolingTemperature},
    {"IsMoldbaseTempOutput =          %d   (0:off,1:on)", kItemMoldbaseTemperature},
    {"DigimatOutput =                 %d   (0:off,1:on)", kItemDigimatExport},
    {"IsPartInsertMaterialReduction = %d   (0:off,1:on)", kItemInsertFiberMaterial},
    {"IsDensityOutput =               %d   (0:off,1:on)", kItemDensity},
    {"IsWeldlineOutput =              %d   (0:off,1:on)", kItemWeldLine},
    {"DigimatWeldlineOutput =\t\t%d   (0:off,1:on)",     kItemDigimatWeldLine},
    {"DigimatMucellOutput =\t\t%d   (0:off,1:on)",       kItemDigimatMucell},
    {"DigimatFiberOutput =\t\t%d   (0:off,1:on)",        kItemDigimatFiber},
    {"DigimatStressOutput =\t\t%d   (0:off,1:on)",       kItemDigimatStress},
    {"DigimatTemperatureOutput =\t%d   (0:off,1:on)",    kItemDigimatTemperature},
    {"IsAnnealingstressOutput =\t%d   (0:off,1:on)",     kItemAnnealingStress},
    {"IsDoDensityReduction =          %d   (0:off,1:on)", &CZorbI2CMIData::IsDoDensityReduction},
    {"[%s_EOF]",                                         &CZorbI2CMIData::SolverName},
    {"[\\HEADER]"},
    {"[MAP DOMAIN]"},
    {"SegmentX = %d (1~100)",                            &CZorbI2CMIData::SegmentX},
    {"SegmentY = %d (1~100)",                            &CZorbI2CMIData::SegmentY},
    {"SegmentZ = %d (1~100)",                            &CZorbI2CMIData::SegmentZ},
    {"[\\MAP DOMAIN] "},
    {"[MATERIAL REDUCTION]"},
    {"FiberThetaXSegment = %d (1~30)",                   &CZorbI2CMIData::FiberThetaXSegment},
    {"FiberThetaYSegment = %d (1~30)",                   &CZorbI2CMIData::FiberThetaYSegment},
    {"FiberThetaZSegment = %d (1~30)",                   &CZorbI2CMIData::FiberThetaZSegment},
    {"FiberStrengthXSegment = %d (1~20)",                &CZorbI2CMIData::FiberStrengthXSegment},
    {"FiberStrengthYSegment = %d (1~5)",                 &CZorbI2CMIData::FiberStrengthYSegment},
    {"[\\MATERIAL REDUCTION] "},
    {"[PARTINSERT MATERIAL REDUCTION]"},
    {"FiberThetaXSegment = %d (1~30)",                   &CZorbI2CMIData::InsertFiberThetaXSegment},
    {"FiberThetaYSegment = %d (1~30)",                   &CZorbI2CMIData::InsertFiberThetaYSegment},
    {"FiberThetaZSegment = %d (1~30)",                   &CZorbI2CMIData::InsertFiberThetaZSegment},
    {"FiberStrengthXSegment = %d (1~20)",                &CZorbI2CMIData::InsertFiberStrengthXSegment},
    {"FiberStrengthYSegment = %d (1~5)",                 &CZorbI2CMIData::InsertFiberStrengthYSegment},
    {"[\\PARTINSERT MATERIAL REDUCTION]"},
    {"[DENSITY REDUCTION]"},
    {"DensityReduction = %d (2~10)",                     &CZorbI2CMIData::DensityReduction},
    {"[\\DENSITY REDUCTION]"},
    {"[WELDLINE ANGLE]"},
    {"WeldlineAngle1 = 0.000"},
    {"WeldlineAngle2 = %.3f",                            &CZorbI2CMIData::WeldlineAngles, 0},
    {"WeldlineAngle3 = %.3f",                            &CZorbI2CMIData::WeldlineAngles, 1},
    {"WeldlineAngle4 = %.3f",                            &CZorbI2CMIData::WeldlineAngles, 2},
    {"[\\WELDLINE ANGLE]"},
    {"[DIGIMAT WELDLINE ANGLE]"},
    {"WeldlineAngle = %.3f",                             &CZorbI2CMIData::DigimatWeldlineAngle},
    {"[\\DIGIMAT WELDLINE ANGLE]"},
    {"[REDUCTION RATE]"},
    {"ReductionRate1 = %.3f",                            &CZorbI2CMIData::ReductionRates, 0},
    {"ReductionRate2 = %.3f",                            &CZorbI2CMIData::ReductionRates, 1},
    {"ReductionRate3 = %.3f",                            &CZorbI2CMIData::ReductionRates, 2},
    {"[\\REDUCTION RATE]"},
};
// clang-format on

/// What identifies a line: a tag up to its closing bracket, otherwise the text before "=" without
/// trailing spaces and tabs. Works for lines of the table and of a file. `Text` is std::string or
/// std::string_view.
template <typename Text>
Text ControlFileKeyOf(const Text& line) {
    const bool isTag = !line.empty() && line[0] == '[';
    const std::size_t end = line.find(isTag ? ']' : '=');
    const Text key = line.substr(0, isTag && end != Text::npos ? end + 1 : end);
    return key.substr(0, key.find_last_not_of(" \t") + 1);
}

/// The same for a line in any form that a std::string takes.
inline std::string ControlFileKey(const std::string& line) {
    return ControlFileKeyOf(line);
}

/// The line of an item; null for an item without one.
inline const ControlFileLine* ControlFileLineOfItem(std::int32_t itemId) {
    for (const ControlFileLine& line : kControlFileLines) {
        if (line.itemId == itemId && itemId >= 0) {
            return &line;
        }
    }
    return nullptr;
}

/// The range that a line prints after its number, such as "(1~100)" or "(0:off,1:on)". The engine
/// does not check values against it.
struct ControlFileRange {
    std::int32_t lowest;   ///< first number in the parentheses
    std::int32_t highest;  ///< last number in the parentheses
};

/// Whether the line prints a whole number with its range, which is then stored in `*range`.
inline bool GetControlFileRange(const ControlFileLine& line, ControlFileRange* range) {
    const char* const start = std::strchr(line.text, '(');
    const char* const middle = start != nullptr ? std::strpbrk(start, "~,") : nullptr;
    if (line.value != ControlFileValue::number || middle == nullptr) {
        return false;
    }
    range->lowest = static_cast<std::int32_t>(std::atoi(start + 1));
    range->highest = static_cast<std::int32_t>(std::atoi(middle + 1));
    return true;
}
