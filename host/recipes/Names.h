// The names under which recipes speak of items, solvers and mesh kinds. Titles and display names
// are the engine's, keywords and keys those of the control file; the host adds short names.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

/// Names with the numbers that they stand for. Compared without regard to case; spaces and
/// underscores count as hyphens.
using Vocabulary = std::vector<std::pair<std::int32_t, std::string>>;

/// The first name of a number that has one.
std::string NameOf(std::int32_t number, const Vocabulary& words);

/// The number of a name; the number itself, written in digits, is a name too.
std::optional<std::int32_t> Find(std::string_view name, const Vocabulary& words);

std::vector<std::string> WordsOf(const Vocabulary& vocabulary);

/// "a, b, c".
std::string Listed(const std::vector<std::string>& words);

/// Those that are most like a text, best first: "a, b, c".
std::string Nearest(std::string_view text, const std::vector<std::string>& words);

extern const Vocabulary shortNames;      ///< of the items
extern const Vocabulary meshKinds;       ///< the engine's labels are the same words
extern const Vocabulary solverKeywords;  ///< as in the control file
extern const Vocabulary itemKeys;        ///< as in the control file; of the items with a line there

/// The names by which users may call items and solvers: those above and the engine's.
struct Names {
    Vocabulary items;
    Vocabulary solvers;
};

}  // namespace host
