#include "host/Names.h"

#include <algorithm>
#include <numeric>

#include "engine/CZorbI2Engine.h"
#include "host/Session.h"

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

std::optional<std::int32_t> Vocabulary::Find(std::string_view name) const {
    const std::string folded = Folded(name);
    for (const auto& [number, known] : entries_) {
        if (folded == Folded(known) || folded == std::to_string(number)) {
            return number;
        }
    }
    return std::nullopt;
}

std::string Vocabulary::Nearest(std::string_view text) const {
    constexpr std::size_t count = 3;
    std::vector<Entry> ranked = entries_;
    std::ranges::stable_sort(ranked, {}, [wanted = Folded(text)](const Entry& known) {
        return Distance(wanted, Folded(known.second));
    });
    ranked.resize(std::min(count, ranked.size()));
    return Vocabulary(ranked).All();
}

std::string Vocabulary::All() const {
    std::string all;
    for (const auto& [number, name] : entries_) {
        all += (all.empty() ? "" : ", ") + name;
    }
    return all;
}

std::string Vocabulary::NameOf(std::int32_t number) const {
    return std::ranges::find(entries_, number, &Entry::first)->second;
}

Names::Names() {
    const Recipe noProject;  // the names are the same for all
    const Session session(noProject);
    for (const auto& item : session.Engine().items) {
        items.Add(item->itemId, shortNames.NameOf(item->itemId));
        if (!item->title.empty()) {
            items.Add(item->itemId, item->title);
        }
    }
    for (const auto& slot : session.Engine().solverSlots) {
        solvers.Add(slot->solverIndex, slot->name);
        if (slot->name != solverKeywords.NameOf(slot->solverIndex)) {
            solvers.Add(slot->solverIndex, solverKeywords.NameOf(slot->solverIndex));
        }
    }
}

}  // namespace host
