#include "Names.h"

#include <algorithm>
#include <numeric>

namespace host {

// clang-format off
const Vocabulary shortNames = {
    {0, "fiber-orientation"}, {1, "runner"}, {2, "moldbase-mesh"}, {3, "flow-stress"},
    {4, "thermal-stress"}, {5, "initial-strain"}, {6, "insert-pressure"},
    {7, "moldbase-pressure"}, {8, "packing-temperature"}, {9, "cooling-temperature"},
    {10, "moldbase-temperature"}, {11, "digimat-export"}, {12, "insert-fiber-material"},
    {13, "density"}, {14, "weld-line"}, {15, "micro-mechanics"}, {16, "digimat-weldline"},
    {17, "digimat-mucell"}, {18, "digimat-fiber"}, {19, "digimat-stress"},
    {20, "digimat-temperature"}, {21, "annealing-stress"}};
const Vocabulary meshKinds = {
    {0, "original"}, {1, "deformed"}, {2, "mapped"}, {3, "3d-mapping-to-shell"}};
const Vocabulary solverKeywords = {
    {0, "ANSYS"}, {1, "ABAQUS"}, {2, "MSCNASTRAN"}, {3, "NENASTRAN"}, {4, "LSDYNA"}, {5, "MARC"},
    {6, "NXNASTRAN"}, {7, "RADIOSS"}, {8, "WORKBENCH"}};
const Vocabulary itemKeys = {
    {0, "IsDoMaterialReduction"}, {1, "IsRunnerOutput"}, {2, "IsMoldbaseOutput"},
    {3, "IsFlowResidualstressOutput"}, {4, "IsThermalResidualstressOutput"},
    {5, "IsInitialstrainOutput"}, {6, "IsFlowPressureOutput"}, {7, "IsMoldbasePressureOutput"},
    {8, "IsPackTempOutput"}, {9, "IsCoolTempOutput"}, {10, "IsMoldbaseTempOutput"},
    {11, "DigimatOutput"}, {12, "IsPartInsertMaterialReduction"}, {13, "IsDensityOutput"},
    {14, "IsWeldlineOutput"}, {16, "DigimatWeldlineOutput"}, {17, "DigimatMucellOutput"},
    {18, "DigimatFiberOutput"}, {19, "DigimatStressOutput"}, {20, "DigimatTemperatureOutput"},
    {21, "IsAnnealingstressOutput"}};
// clang-format on

namespace {

std::string Folded(std::string_view name) {
    std::string folded(name);
    for (char& letter : folded) {
        const bool joins = letter == ' ' || letter == '_';
        const bool isUpper = letter >= 'A' && letter <= 'Z';
        letter = joins ? '-' : static_cast<char>(isUpper ? letter - 'A' + 'a' : letter);
    }
    return folded;
}

/// Letters to insert, delete or replace until one text has become the other; nothing for a text
/// that is a part of the other.
std::size_t Distance(const std::string& from, const std::string& to) {
    if (!from.empty() && to.find(from) != std::string::npos) {
        return 0;
    }
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char letter : from) {
        std::size_t diagonal = row[0]++;
        for (std::size_t column = 0; column < to.size(); ++column) {
            const std::size_t replaced = diagonal + (letter == to[column] ? 0 : 1);
            diagonal = row[column + 1];
            row[column + 1] = std::min({replaced, diagonal + 1, row[column] + 1});
        }
    }
    return row.back();
}

}  // namespace

std::string NameOf(std::int32_t number, const Vocabulary& words) {
    return std::ranges::find(words, number, &Vocabulary::value_type::first)->second;
}

std::optional<std::int32_t> Find(std::string_view name, const Vocabulary& words) {
    const std::string folded = Folded(name);
    for (const auto& [number, word] : words) {
        if (folded == Folded(word) || folded == std::to_string(number)) {
            return number;
        }
    }
    return std::nullopt;
}

std::string Nearest(std::string_view text, Vocabulary words) {
    constexpr std::size_t count = 3;
    std::ranges::stable_sort(words, {}, [wanted = Folded(text)](const auto& entry) {
        return Distance(wanted, Folded(entry.second));
    });
    words.resize(std::min(count, words.size()));
    return Listed(words);
}

std::string Listed(const Vocabulary& words) {
    std::vector<std::string> names;
    for (const auto& [number, word] : words) {
        names.push_back(word);
    }
    return Listed(names);
}

std::string Listed(const std::vector<std::string>& words) {
    std::string list;
    for (const std::string& word : words) {
        list += (list.empty() ? "" : ", ") + word;
    }
    return list;
}

}  // namespace host
