#include "host/Names.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "ZorbI2Types.h"
#include "engine/CZorbI2Engine.h"
#include "host/Session.h"

namespace host {

namespace {

// clang-format off
constexpr std::array<const char*, kItemCount> shortNames = {
    "fiber-orientation", "runner", "moldbase-mesh", "flow-stress", "thermal-stress",
    "initial-strain", "insert-pressure", "moldbase-pressure", "packing-temperature",
    "cooling-temperature", "moldbase-temperature", "digimat-export", "insert-fiber-material",
    "density", "weld-line", "micro-mechanics", "digimat-weldline", "digimat-mucell",
    "digimat-fiber", "digimat-stress", "digimat-temperature", "annealing-stress"};
constexpr std::array<const char*, kSolverCount> solverKeywords = {
    "ANSYS", "ABAQUS", "MSCNASTRAN", "NENASTRAN", "LSDYNA", "MARC", "NXNASTRAN", "RADIOSS",
    "WORKBENCH"};
// The engine's labels for the mesh kinds are the same words.
constexpr std::array<const char*, 4> meshNames = {
    "original", "deformed", "mapped", "3d-mapping-to-shell"};
// clang-format on

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
    if (!from.empty() && to.find(from) != to.npos) {
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

std::string ShortName(std::int32_t itemId) {
    return shortNames.at(itemId);
}

std::string MeshName(std::int32_t meshKind) {
    return meshNames.at(meshKind);
}

std::string SolverKeyword(std::int32_t solver) {
    return solverKeywords.at(solver);
}

Names::Names() {
    const Recipe noProject;  // the names are the same for all
    const Session session(noProject);
    for (const auto& item : session.Engine().items) {
        items.Add(item->itemId, ShortName(item->itemId));
        if (!item->title.empty()) {
            items.Add(item->itemId, item->title);
        }
    }
    for (const auto& slot : session.Engine().solverSlots) {
        solvers.Add(slot->solverIndex, slot->name);
        if (slot->name != SolverKeyword(slot->solverIndex)) {
            solvers.Add(slot->solverIndex, SolverKeyword(slot->solverIndex));
        }
    }
    for (std::int32_t kind = kMeshOriginal; kind <= kMesh3DMappingShell; ++kind) {
        meshes.Add(kind, MeshName(kind));
    }
}

}  // namespace host
