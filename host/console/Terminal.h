// Text for people: where it goes, color, width and line breaks.
#pragma once

#include <cstddef>
#include <ostream>
#include <string>

#include "system/HostPlatform.h"

namespace host {

/// What every command takes.
struct GeneralOptions {
    std::string command;  ///< its name, which JSON documents carry
    bool json = false;
    bool trace = false;
    bool quiet = false;
    bool strict = false;  ///< warnings are errors
};

enum class Color { strong = 1, faint = 2, bad = 31, odd = 33 };

/// What a standard stream goes to.
struct Screen {
    explicit Screen(Stream stream);

    /// Colored on a terminal only, and never with NO_COLOR.
    std::string Colored(const std::string& text, Color color) const;

    std::size_t columns;  ///< 80 where there is no terminal
    bool isTerminal;      ///< one that knows colors and moves its cursor
    bool hasColor;
};

/// Standard output.
struct Terminal : Screen {
    explicit Terminal(const GeneralOptions& generalOptions);

    GeneralOptions options;
    std::ostream out;   ///< for what was asked for; leads nowhere with --json
    std::ostream news;  ///< for what was done; leads nowhere with --json and --quiet
};

/// The text, padded with spaces to a width in characters.
std::string Padded(const std::string& text, std::size_t width);

/// The text, which starts at a column, broken between words so that no line goes beyond `columns`.
/// All lines but the first are indented.
std::string Wrapped(const std::string& text, std::size_t columns, std::size_t indent,
                    std::size_t start);

}  // namespace host
