#include "control_files/ControlFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include <zorbi2/ControlFileFormat.h>
#include <zorbi2/ZorbI2Types.h>

namespace host {

bool IsControlFile(const std::string& text) {
    const std::string first = kControlFileLines[0].text;
    return text.starts_with(first + "\n") || text.starts_with(first + "\r\n");
}

std::string Printed(double number) {
    // Sign, all digits of the largest double, point and decimals.
    std::array<char, std::numeric_limits<double>::max_exponent10 + 8> digits{};
    char* const start = digits.data();
    const auto end =
        std::to_chars(start, start + digits.size(), number, std::chars_format::fixed, 3);
    return {start, end.ptr};
}

double NumberAt(const ControlFile& file, const std::string& key) {
    const std::string& value = file.at(key);
    double number = 0.0;
    std::from_chars(value.data(), value.data() + value.size(), number);
    return number;
}

bool IsOn(const ControlFile& file, const std::string& key) {
    const auto value = file.find(key);
    return value != file.end() && value->second == "1";
}

std::string AngleKey(int range) {
    return "[WELDLINE ANGLE] WeldlineAngle" + std::to_string(range + 1);  // the first is always 0
}

std::string RateKey(int range) {
    return "[REDUCTION RATE] ReductionRate" + std::to_string(range);
}

std::optional<std::int32_t> MeshKindOf(const ControlFile& file) {
    for (std::size_t kind = 0; kind < std::size(meshKeys); ++kind) {
        if (IsOn(file, meshKeys[kind])) {
            return static_cast<std::int32_t>(kind);
        }
    }
    return std::nullopt;
}

bool IsMapped(const ControlFile& file) {
    return IsOn(file, meshKeys[kMeshMapped]) || IsOn(file, meshKeys[kMesh3DMappingShell]);
}

bool IsAnnealedMesh(const ControlFile& file) {
    return file.contains(annealedMeshKey) &&
           file.at("ProjectType") == std::to_string(kProjectTypeAnnealing) &&
           std::ranges::none_of(meshKeys, [&file](const std::string& key) {
               return key != meshKeys[kMeshDeformed] && IsOn(file, key);
           });
}

}  // namespace host
