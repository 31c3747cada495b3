// A control parameter file without faults, as lines that a test can damage.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include <zorbi2/ControlFileFormat.h>

#include "commands/check/OfferCheck.h"
#include "control_files/ControlFile.h"
#include "problems/Problem.h"
#include "tests/support/WatchedPlatform.h"

namespace samples {

using Lines = std::vector<std::string>;

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
        "[MSCNASTRAN] ",
        "IsOriginalMesh = 0 (0:off,1:on)",
        "IsDeformedMesh = 1 (0:off,1:on)",
        "IsMappedMesh = 0 (0:off,1:on)",
        "Is3DMappingShell = 0 (0:off,1:on)",
        "IsDistributeModel = 0 (0:off,1:on)",
        "IsViewEditModelMapping = 1 (0:off,1:on)",
        "IsDoMaterialReduction =         1   (0:off,1:on)",
        "IsRunnerOutput =                0   (0:off,1:on)",
        "DigimatOutput =                 1   (0:off,1:on)",
        "IsDensityOutput =               1   (0:off,1:on)",
        "IsWeldlineOutput =              0   (0:off,1:on)",
        "DigimatWeldlineOutput =\t\t0   (0:off,1:on)",
        "DigimatFiberOutput =\t\t1   (0:off,1:on)",
        "DigimatStressOutput =\t\t0   (0:off,1:on)",
        "DigimatTemperatureOutput =\t0   (0:off,1:on)",
        "IsDoDensityReduction =          1   (0:off,1:on)",
        "[MSCNASTRAN_EOF]",
        "[\\HEADER]",
        "[MAP DOMAIN]",
        "SegmentX = 80 (1~100)",
        "SegmentY = 70 (1~100)",
        "SegmentZ = 60 (1~100)",
        "[\\MAP DOMAIN] ",
        "[MATERIAL REDUCTION]",
        "FiberThetaXSegment = 15 (1~30)",
        "FiberThetaYSegment = 15 (1~30)",
        "FiberThetaZSegment = 15 (1~30)",
        "FiberStrengthXSegment = 10 (1~20)",
        "FiberStrengthYSegment = 3 (1~5)",
        "[\\MATERIAL REDUCTION] ",
        "[PARTINSERT MATERIAL REDUCTION]",
        "FiberThetaXSegment = 8 (1~30)",
        "FiberThetaYSegment = 8 (1~30)",
        "FiberThetaZSegment = 8 (1~30)",
        "FiberStrengthXSegment = 5 (1~20)",
        "FiberStrengthYSegment = 2 (1~5)",
        "[\\PARTINSERT MATERIAL REDUCTION]",
        "[DENSITY REDUCTION]",
        "DensityReduction = 4 (2~10)",
        "[\\DENSITY REDUCTION]",
        "[WELDLINE ANGLE]",
        "WeldlineAngle1 = 0.000",
        "WeldlineAngle2 = 30.000",
        "WeldlineAngle3 = 60.000",
        "WeldlineAngle4 = 90.500",
        "[\\WELDLINE ANGLE]",
        "[DIGIMAT WELDLINE ANGLE]",
        "WeldlineAngle = 135.000",
        "[\\DIGIMAT WELDLINE ANGLE]",
        "[REDUCTION RATE]",
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

/// In the place of a key: the line after the last one.
constexpr const char* endOfFile = "";

/// The number of the line with a key. A key that several sections have follows its section:
/// "SegmentX", "[MATERIAL REDUCTION] FiberThetaXSegment", "[HEADER]".
inline std::size_t LineOf(const std::string& key, const Lines& lines = SampleLines()) {
    auto line = lines.end();
    if (key != endOfFile) {
        const std::string tag = key.substr(0, key.starts_with('[') ? key.find(']') + 1 : 0);
        const bool isInSection = !tag.empty() && tag != key;
        line = std::ranges::find(lines, isInSection ? tag : key, ControlFileKey);
        if (isInSection) {
            line = std::find_if(line, lines.end(), [&](const std::string& text) {
                return ControlFileKey(text) == key.substr(tag.size() + 1);
            });
        }
        if (line == lines.end()) {
            throw std::invalid_argument("no line has the key " + key);
        }
    }
    return static_cast<std::size_t>(line - lines.begin()) + 1;
}

/// "LINE: message", where LINE is that of a key in the sample, or one some lines below it.
inline std::string At(const std::string& key, int below, const std::string& message) {
    return std::to_string(static_cast<int>(LineOf(key)) + below) + ": " + message;
}

inline std::string At(const std::string& key, const std::string& message) {
    return At(key, 0, message);
}

/// What the reader makes of a text: its values, or the faults that it throws.
struct Reading {
    host::ControlFile values;
    std::vector<host::Problem> faults;
};

inline Reading Read(const std::string& text) {
    try {
        return {host::ReadControlFile("sample.cmi", text), {}};
    } catch (const host::Failure& failure) {
        return {{}, failure.List()};
    }
}

/// "LINE: message" for each.
inline std::vector<std::string> InWords(const std::vector<host::Problem>& faults) {
    std::vector<std::string> words;
    for (const host::Problem& fault : faults) {
        words.push_back(std::to_string(fault.place.line) +
                        (fault.isWarning ? ": warning: " : ": ") + fault.message);
    }
    return words;
}

/// The same with what is odd and what does not fit together, as "check" finds it. The engines that
/// are asked for their offers must see no files.
inline Reading Check(const std::string& text, host::OfferCheck& offers) {
    Reading reading = Read(text);
    if (reading.faults.empty()) {
        reading.faults = host::OdditiesOf("sample.cmi", text, reading.values);
        std::ranges::copy(offers.Check("sample.cmi", text, reading.values),
                          std::back_inserter(reading.faults));
    }
    return reading;
}

inline std::vector<host::Problem> FoundIn(const std::string& text) {
    static host::OfferCheck offers;
    const support::WatchedPlatform noFiles;
    return Check(text, offers).faults;
}

inline std::vector<std::string> FaultsOf(const std::string& text) {
    return InWords(Read(text).faults);
}

}  // namespace samples
