// The page: what stands in the templates beside this file, filled with a report's data.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <zorbi2/CZorbI2Engine.h>

#include "console/Report.h"

namespace host {

class Page {
public:
    /// @param engine knows what the items are called
    /// @param isSingle whether the page is about a single recipe or file
    Page(const CZorbI2Engine& engine, bool isSingle) : engine_(engine), isSingle_(isSingle) {}

    /// Adds an entry of the report; those that failed come first.
    void Add(const Json& entry);

    /// The whole page.
    std::string Text(const Json& summary) const;

    /// Whether a file starts as a page does.
    static bool IsPage(std::string_view text);

private:
    const CZorbI2Engine& engine_;
    bool isSingle_;
    std::size_t count_ = 0;
    std::string failedRows_;  ///< of the table, as HTML
    std::string rows_;
    std::string details_;  ///< what the rows open into
};

}  // namespace host
