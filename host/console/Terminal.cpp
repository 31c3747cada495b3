#include "console/Terminal.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string_view>

#include "problems/VisibleText.h"

namespace host {

namespace {

std::string_view Environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

}  // namespace

Screen::Screen(Stream stream)
    : columns(TerminalColumns(stream)),
      isTerminal(columns > 0 && Environment("TERM") != "dumb"),
      hasColor(isTerminal && Environment("NO_COLOR").empty()) {
    constexpr std::size_t usual = 80;
    columns = columns > 0 ? columns : usual;
}

Terminal::Terminal(const GeneralOptions& generalOptions)
    : Screen(Stream::output),
      options(generalOptions),
      out(options.json ? nullptr : std::cout.rdbuf()),
      news(options.quiet ? nullptr : out.rdbuf()) {}

std::string Screen::Colored(const std::string& text, Color color) const {
    return hasColor ? "\033[" + std::to_string(static_cast<int>(color)) + "m" + text + "\033[0m"
                    : text;
}

std::string Padded(const std::string& text, std::size_t width) {
    return text + std::string(width - std::min(width, CharactersIn(text)), ' ');
}

std::string Wrapped(const std::string& text, std::size_t columns, std::size_t indent,
                    std::size_t start) {
    std::string lines;
    std::size_t column = start;
    std::istringstream words(text);
    for (std::string word; std::getline(words, word, ' '); column += CharactersIn(word)) {
        if (!lines.empty()) {
            const bool fits = column + 1 + CharactersIn(word) <= columns;
            lines += fits ? " " : "\n" + std::string(indent, ' ');
            column = fits ? column + 1 : indent;
        }
        lines += word;
    }
    return lines;
}

}  // namespace host
