#include "tests/support/ControlFileText.h"

#include <cstddef>

namespace support {

namespace {

/// Where the first line that starts with a key starts; the text's end without one.
std::size_t StartOfLine(const std::string& text, const std::string& key, std::size_t from) {
    for (std::size_t start = from; start < text.size();) {
        if (text.compare(start, key.size(), key) == 0) {
            return start;
        }
        const std::size_t lineEnd = text.find('\n', start);
        start = lineEnd == std::string::npos ? text.size() : lineEnd + 1;
    }
    return text.size();
}

}  // namespace

std::string LineOf(const std::string& text, const std::string& key) {
    const std::size_t start = StartOfLine(text, key, 0);
    return text.substr(start, text.find('\n', start) - start + 1);
}

std::string ItemLinesOf(const std::string& text) {
    const std::size_t lastMeshLine = StartOfLine(text, "IsViewEditModelMapping", 0);
    const std::size_t start = text.find('\n', lastMeshLine) + 1;
    return text.substr(start, StartOfLine(text, "IsDoDensityReduction", start) - start);
}

}  // namespace support
