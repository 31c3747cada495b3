#include "control_files/TextLines.h"

namespace host {

std::vector<std::string_view> LinesOf(std::string_view text, std::size_t most) {
    std::vector<std::string_view> lines;
    while (!text.empty() && lines.size() < most) {
        const std::size_t end = text.find('\n');
        lines.push_back(text.substr(0, end == std::string_view::npos ? end : end + 1));
        text.remove_prefix(lines.back().size());
    }
    return lines;
}

std::string_view WithoutEnd(std::string_view line) {
    line.remove_suffix(line.ends_with('\n') ? 1 : 0);
    line.remove_suffix(line.ends_with('\r') ? 1 : 0);
    return line;
}

}  // namespace host
