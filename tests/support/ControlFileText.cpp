#include "tests/support/ControlFileText.h"

#include <algorithm>
#include <cstddef>

#include <zorbi2/ControlFileFormat.h>

namespace support {

namespace {

/// Where the first line with a key starts; the text's end without one.
std::size_t StartOfLine(const std::string& text, const std::string& key, std::size_t from) {
    for (std::size_t start = from; start < text.size();) {
        const std::size_t lineEnd = std::min(text.find('\n', start), text.size());
        if (ControlFileKey(text.substr(start, lineEnd - start)) == key) {
            return start;
        }
        start = lineEnd + 1;
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
