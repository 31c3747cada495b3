// A control parameter file without faults, as lines that a test can damage.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "ControlFile.h"
#include "Problem.h"

namespace samples {

using Lines = std::vector<std::string>;

/// Line N of the file is element N - 1.
inline Lines SampleLines() {
    return {
        "I2-Output Control Parameter File",
        "FileVersion = 9064",
        "[HEADER]",
        "OutFolder = D:\\Handover\\Cover",
        "MapFile =  ",
        "SolverType = 0",
        "ProjectType = 6",
        "QuadraticElement = 1 (0:off,1:on)",
        "IDCompositeModel = 1",
        "[MSCNASTRAN] ",  // 10
        "IsOriginalMesh = 0 (0:off,1:on)",
        "IsDeformedMesh = 1 (0:off,1:on)",
        "IsMappedMesh = 0 (0:off,1:on)",
        "Is3DMappingShell = 0 (0:off,1:on)",
        "IsDistributeModel = 0 (0:off,1:on)",
        "IsViewEditModelMapping = 1 (0:off,1:on)",
        "IsDoMaterialReduction =         1   (0:off,1:on)",
        "IsRunnerOutput =                0   (0:off,1:on)",
        "DigimatOutput =                 1   (0:off,1:on)",
        "IsDensityOutput =               1   (0:off,1:on)",  // 20
        "IsWeldlineOutput =              0   (0:off,1:on)",
        "DigimatWeldlineOutput =\t\t0   (0:off,1:on)",
        "DigimatFiberOutput =\t\t1   (0:off,1:on)",
        "DigimatStressOutput =\t\t0   (0:off,1:on)",
        "DigimatTemperatureOutput =\t0   (0:off,1:on)",
        "IsDoDensityReduction =          1   (0:off,1:on)",
        "[MSCNASTRAN_EOF]",
        "[\\HEADER]",
        "[MAP DOMAIN]",
        "SegmentX = 80 (1~100)",  // 30
        "SegmentY = 70 (1~100)",
        "SegmentZ = 60 (1~100)",
        "[\\MAP DOMAIN] ",
        "[MATERIAL REDUCTION]",
        "FiberThetaXSegment = 15 (1~30)",
        "FiberThetaYSegment = 15 (1~30)",
        "FiberThetaZSegment = 15 (1~30)",
        "FiberStrengthXSegment = 10 (1~20)",
        "FiberStrengthYSegment = 3 (1~5)",
        "[\\MATERIAL REDUCTION] ",  // 40
        "[PARTINSERT MATERIAL REDUCTION]",
        "FiberThetaXSegment = 8 (1~30)",
        "FiberThetaYSegment = 8 (1~30)",
        "FiberThetaZSegment = 8 (1~30)",
        "FiberStrengthXSegment = 5 (1~20)",
        "FiberStrengthYSegment = 2 (1~5)",
        "[\\PARTINSERT MATERIAL REDUCTION]",
        "[DENSITY REDUCTION]",
        "DensityReduction = 4 (2~10)",
        "[\\DENSITY REDUCTION]",  // 50
        "[WELDLINE ANGLE]",
        "WeldlineAngle1 = 0.000",
        "WeldlineAngle2 = 30.000",
        "WeldlineAngle3 = 60.000",
        "WeldlineAngle4 = 90.500",
        "[\\WELDLINE ANGLE]",
        "[DIGIMAT WELDLINE ANGLE]",
        "WeldlineAngle = 135.000",
        "[\\DIGIMAT WELDLINE ANGLE]",
        "[REDUCTION RATE]",  // 60
        "ReductionRate1 = 0.800",
        "ReductionRate2 = 0.900",
        "ReductionRate3 = 0.950",
        "[\\REDUCTION RATE]",
    };
}

inline std::string Joined(const Lines& lines, const std::string& lineEnd = "\n") {
    std::string text;
    for (const std::string& line : lines) {
        text += line + lineEnd;
    }
    return text;
}

/// The faults of a text, as the reader throws them.
inline host::Problems FaultsIn(const std::string& text) {
    try {
        host::ReadControlFile("sample.cmi", text);
        return {};
    } catch (const host::Problems& faults) {
        return faults;
    }
}

/// "LINE: message" for each.
inline std::vector<std::string> FaultsOf(const std::string& text) {
    std::vector<std::string> found;
    for (const host::Problem& fault : FaultsIn(text)) {
        found.push_back(std::to_string(fault.place.line) + ": " + fault.message);
    }
    return found;
}

}  // namespace samples
