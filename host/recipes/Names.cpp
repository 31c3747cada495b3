#include "recipes/Names.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <numeric>

#include <zorbi2/ControlFileFormat.h>
#include <zorbi2/ZorbI2Types.h>

namespace host {

namespace {

using Word = std::pair<std::int32_t, const char*>;

// clang-format off
constexpr auto itemNames = std::to_array<Word>({
    {kItemFiberOrientation,        "fiber-orientation"},
    {kItemRunner,                  "runner"},
    {kItemMoldbaseMesh,            "moldbase-mesh"},
    {kItemFlowInducedStress,       "flow-stress"},
    {kItemThermalStress,           "thermal-stress"},
    {kItemInitialStrain,           "initial-strain"},
    {kItemInsertFlowPressure,      "insert-pressure"},
    {kItemMoldbasePressure,        "moldbase-pressure"},
    {kItemPackingTemperature,      "packing-temperature"},
    {kItemEndOfCoolingTemperature, "cooling-temperature"},
    {kItemMoldbaseTemperature,     "moldbase-temperature"},
    {kItemDigimatExport,           "digimat-export"},
    {kItemInsertFiberMaterial,     "insert-fiber-material"},
    {kItemDensity,                 "density"},
    {kItemWeldLine,                "weld-line"},
    {kItemMicroMechanics,          "micro-mechanics"},
    {kItemDigimatWeldLine,         "digimat-weldline"},
    {kItemDigimatMucell,           "digimat-mucell"},
    {kItemDigimatFiber,            "digimat-fiber"},
    {kItemDigimatStress,           "digimat-stress"},
    {kItemDigimatTemperature,      "digimat-temperature"},
    {kItemAnnealingStress,         "annealing-stress"},
});
constexpr auto meshNames = std::to_array<Word>({
    {kMeshOriginal,       "original"},
    {kMeshDeformed,       "deformed"},
    {kMeshMapped,         "mapped"},
    {kMesh3DMappingShell, "3d-mapping-to-shell"},
});
// clang-format on

/// Whether row i has number i, from 0 to the last number.
template <std::size_t size>
constexpr bool NamesEach(const std::array<Word, size>& rows, std::int32_t last) {
    for (std::size_t row = 0; row < size; ++row) {
        if (rows[row].first != static_cast<std::int32_t>(row)) {
            return false;
        }
    }
    return rows[size - 1].first == last;
}
static_assert(NamesEach(itemNames, kItemCount - 1));
static_assert(NamesEach(meshNames, kMesh3DMappingShell));

Vocabulary Keywords() {
    Vocabulary keywords;
    for (const auto& [solver, keyword] : kSolverKeywords) {
        keywords.emplace_back(solver, keyword);
    }
    return keywords;
}

Vocabulary KeysOfItems() {
    Vocabulary keys;
    for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
        if (const ControlFileLine* line = ControlFileLineOfItem(itemId)) {
            keys.emplace_back(itemId, ControlFileKey(line->text));
        }
    }
    return keys;
}

std::string Folded(std::string_view name) {
    std::string folded(name);
    for (char& character : folded) {
        const bool joins = character == ' ' || character == '_';
        const bool isUpper = character >= 'A' && character <= 'Z';
        character = joins ? '-' : static_cast<char>(isUpper ? character - 'A' + 'a' : character);
    }
    return folded;
}

/// Characters to insert, delete or replace until one text has become the other; 0 for a text that
/// is a part of the other.
std::size_t Distance(const std::string& from, const std::string& to) {
    if (!from.empty() && to.find(from) != std::string::npos) {
        return 0;
    }
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char character : from) {
        std::size_t diagonal = row[0]++;
        for (std::size_t column = 0; column < to.size(); ++column) {
            const std::size_t replaced = diagonal + (character == to[column] ? 0 : 1);
            diagonal = row[column + 1];
            row[column + 1] = std::min({replaced, diagonal + 1, row[column] + 1});
        }
    }
    return row.back();
}

}  // namespace

const Vocabulary shortNames(itemNames.begin(), itemNames.end());
const Vocabulary meshKinds(meshNames.begin(), meshNames.end());
const Vocabulary solverKeywords = Keywords();
const Vocabulary itemKeys = KeysOfItems();

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

std::vector<std::string> WordsOf(const Vocabulary& vocabulary) {
    std::vector<std::string> words;
    for (const auto& [number, word] : vocabulary) {
        words.push_back(word);
    }
    return words;
}

std::string Listed(const std::vector<std::string>& words) {
    std::string list;
    for (const std::string& word : words) {
        list += (list.empty() ? "" : ", ") + word;
    }
    return list;
}

std::string Nearest(std::string_view text, const std::vector<std::string>& words) {
    constexpr std::size_t most = 3;
    const std::string wanted = Folded(text);
    std::multimap<std::size_t, std::string> byDistance;
    for (const std::string& word : words) {
        byDistance.emplace(Distance(wanted, Folded(word)), word);
    }
    std::vector<std::string> nearest;
    for (const auto& [distance, word] : byDistance) {
        if (nearest.size() < most) {
            nearest.push_back(word);
        }
    }
    return Listed(nearest);
}

}  // namespace host
