// Text for people: colour, width and line breaks.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace host {

enum class Colour { strong = 1, faint = 2, bad = 31, good = 32 };

/// What standard output goes to.
struct Terminal {
    Terminal();

    /// Coloured on a terminal only, and never with NO_COLOR.
    std::string Coloured(const std::string& text, Colour colour) const;

    bool isTerminal;
    bool hasColour;
    std::size_t columns;  ///< 80 where there is no terminal
};

/// Letters of a UTF-8 text.
std::size_t WidthOf(const std::string& text);

/// The text, filled with blanks up to a width.
std::string Padded(const std::string& text, std::size_t width);

/// The text broken between words into lines of at most a width, all but the first indented.
std::string Wrapped(const std::string& text, std::size_t width, std::size_t indent);

}  // namespace host
