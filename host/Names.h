// The names under which recipes speak of items, solvers and mesh kinds. Titles and display names
// are the engine's; the host adds short names, and the solver keywords of the control file.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

/// Names with the numbers that they stand for. Compared without regard to case; blanks and
/// underscores count as hyphens.
class Vocabulary {
public:
    using Entry = std::pair<std::int32_t, std::string>;
    Vocabulary(std::initializer_list<Entry> entries = {}) : entries_(entries) {}
    template <class Entries>
    explicit Vocabulary(const Entries& entries) : entries_(entries.begin(), entries.end()) {}

    void Add(std::int32_t number, std::string name) { entries_.emplace_back(number, name); }

    /// The first name of a number.
    std::string NameOf(std::int32_t number) const;

    /// The number of a name; the number itself, written in digits, is a name too.
    std::optional<std::int32_t> Find(std::string_view name) const;

    /// The names that are most like a text, best first: "a, b, c".
    std::string Nearest(std::string_view text) const;

    /// All names in the order in which they were added: "a, b, c".
    std::string All() const;

private:
    std::vector<Entry> entries_;
};

extern const Vocabulary shortNames;      ///< of the items
extern const Vocabulary meshKinds;       ///< the engine's labels are the same words
extern const Vocabulary solverKeywords;  ///< as in the control file

struct Names {
    Names();  ///< asks the engine for its titles and display names

    Vocabulary items;
    Vocabulary solvers;
};

}  // namespace host
