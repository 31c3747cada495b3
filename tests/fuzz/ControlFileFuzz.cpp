// Control files of any bytes: what the reader takes without a fault is what the engine writes with
// these values, byte by byte; what it refuses, it refuses with problems that stand in the file.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2CMIData.h>

#include "cmi/CMIFileText.h"
#include "control_files/ControlFile.h"
#include "control_files/LayoutRow.h"
#include "tests/fuzz/MemoryPlatform.h"
#include "tests/fuzz/Problems.h"

namespace {

/// Puts a value that the file says into the data block that the engine prints.
void SetField(const host::LayoutRow& row, const std::string& value, CZorbI2CMIData& data) {
    const ControlFileLine& line = *row.line;
    if (line.itemId >= 0) {
        data.OutputFlags[line.itemId] = std::stoi(value);
    } else if (line.number != nullptr) {
        data.*line.number = std::stoi(value);
    } else if (line.words != nullptr) {
        data.*line.words = value;
    } else if (line.decimals != nullptr) {
        (data.*line.decimals)[line.element] = std::stod(value);
    } else if (line.decimal != nullptr) {
        data.*line.decimal = std::stod(value);
    } else {
        data.IsAnnealingDeformedMesh = 1;  // the only line that is there or not, without a value
    }
}

/// The file that the engine writes when it is told what a file says.
std::string WrittenAnew(const host::ControlFile& file) {
    CZorbI2CMIData data;
    data.FileVersion = kControlFileVersion;
    std::vector<std::int32_t> items;
    for (const host::LayoutRow& row : host::Layout()) {
        const auto value = file.find(row.name);
        if (value != file.end()) {
            SetField(row, value->second, data);
            if (row.line->itemId >= 0) {
                items.push_back(row.line->itemId);
            }
        }
    }
    return cmi::CMIFileText(data, {items});
}

std::string WithoutReturns(const std::string& text) {
    const bool hasReturns = text.find("\r\n") < text.find('\n');
    std::string lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isReturn = hasReturns && text.compare(i, 2, "\r\n") == 0;
        lines += isReturn ? "" : std::string(1, text[i]);
    }
    return lines;
}

void ExpectGoodFaults(const host::Problems& faults, const std::string& text) {
    fuzz::ExpectGoodProblems(faults, text);
    fuzz::Expect(!faults.empty() && host::HasErrors(faults), "a refused file has faults");
    fuzz::Expect(faults.size() <= 21, "long lists of faults are cut");
    fuzz::Expect(std::ranges::is_sorted(faults, {}, [](const auto& f) { return f.place.line; }),
                 "faults stand in the order of the lines");
}

void ExpectGoodOddities(const host::ControlFile& file, const std::string& text) {
    const host::Problems oddities = host::OdditiesOf("fuzz.cmi", text, file);
    fuzz::ExpectGoodProblems(oddities, text);
    fuzz::Expect(!host::HasErrors(oddities), "oddities are warnings");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    try {
        const host::ControlFile file = host::ReadControlFile("fuzz.cmi", text);
        ExpectGoodOddities(file, text);
        fuzz::Expect(WrittenAnew(file) == WithoutReturns(text), "the engine writes this file");
    } catch (const host::Failure& failure) {
        ExpectGoodFaults(failure.List(), text);
    }
    return 0;
}
