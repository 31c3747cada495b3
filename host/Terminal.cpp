#include "host/Terminal.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "host/HostPlatform.h"

namespace host {

Terminal::Terminal() {
    constexpr std::size_t withoutTerminal = 80;
    const char* noColour = std::getenv("NO_COLOR");
    columns = TerminalColumns();
    isTerminal = columns > 0;
    hasColour = isTerminal && (noColour == nullptr || *noColour == '\0');
    columns = isTerminal ? columns : withoutTerminal;
}

std::string Terminal::Coloured(const std::string& text, Colour colour) const {
    return hasColour ? "\033[" + std::to_string(static_cast<int>(colour)) + "m" + text + "\033[0m"
                     : text;
}

std::size_t WidthOf(const std::string& text) {
    return std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; });
}

std::string Padded(const std::string& text, std::size_t width) {
    return text + std::string(width - std::min(width, WidthOf(text)), ' ');
}

std::string Wrapped(const std::string& text, std::size_t width, std::size_t indent) {
    std::string lines;
    std::size_t column = 0;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const bool fits = column + 1 + WidthOf(word) <= width;
        if (column > 0) {
            lines += fits ? " " : "\n" + std::string(indent, ' ');
        }
        column = (column > 0 && fits ? column + 1 : 0) + WidthOf(word);
        lines += word;
    }
    return lines;
}

}  // namespace host
