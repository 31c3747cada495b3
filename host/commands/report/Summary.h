// What all entries of a report come to.
#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "console/Report.h"

namespace host {

class Summary {
public:
    /// Counts an entry of the report.
    void Add(const Json& entry);

    /// As the document shows it: the items that are missing most come first.
    Json AsJson() const;

private:
    std::map<std::string, std::size_t> counts_;
    /// By item and reason.
    std::map<std::string, std::map<std::string, std::size_t>> missing_;
};

/// The word for an entry by which one looks for it: "failed", "new", "changed", "unchanged" or, for
/// a control file, "read".
std::string OutcomeOf(const Json& entry);

/// Its warnings; with --strict there are none.
std::size_t WarningsOf(const Json& entry);

}  // namespace host
