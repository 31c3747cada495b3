#include "problems/VisibleText.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace host {

namespace {

/// Code points that cannot be seen, or that there are not.
struct Invisible {
    std::uint32_t first;
    std::uint32_t last;
};
constexpr auto invisible = std::to_array<Invisible>({
    {0x00, 0x1F},          // control characters
    {0x7F, 0xA0},          // DEL, more control characters, and the space that does not break
    {0xAD, 0xAD},          // soft hyphen
    {0x34F, 0x34F},        // joiner of graphemes
    {0x61C, 0x61C},        // a mark of the writing direction
    {0x115F, 0x1160},      // fillers
    {0x1680, 0x1680},      // a space
    {0x17B4, 0x17B5},      // vowels without a shape
    {0x180B, 0x180F},      // selectors of variants, and a separator without width
    {0x2000, 0x200F},      // spaces, some without width, and more marks of the direction
    {0x2028, 0x202F},      // line separators and more marks
    {0x205F, 0x206F},      // invisible operators
    {0x3000, 0x3000},      // wide space
    {0x3164, 0x3164},      // filler
    {0xD800, 0xDFFF},      // halves of pairs
    {0xFE00, 0xFE0F},      // selectors of variants
    {0xFEFF, 0xFEFF},      // byte order mark
    {0xFFA0, 0xFFA0},      // filler
    {0xFFF0, 0xFFFB},      // marks of annotations
    {0x1BCA0, 0x1BCA3},    // marks of shorthand
    {0x1D173, 0x1D17A},    // marks of music
    {0xE0000, 0xE0FFF},    // tags, and more selectors
    {0x110000, 0x1FFFFF},  // beyond the last
});

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Bytes of a UTF-8 character by its first byte; 0 when none starts so.
std::size_t LengthAfter(unsigned char first) {
    return first < 0x80                     ? 1
           : first >= 0xC2 && first <= 0xDF ? 2
           : first >= 0xE0 && first <= 0xEF ? 3
           : first >= 0xF0 && first <= 0xF4 ? 4
                                            : 0;
}

/// Bytes of the character that a text starts with; 0 when it is none that can be seen.
std::size_t VisibleLength(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = LengthAfter(first);
    if (length == 0 || text.size() < length ||
        !std::ranges::all_of(text.substr(1, length - 1), IsContinuation)) {
        return 0;
    }
    constexpr std::uint32_t lowest[] = {0, 0, 0x80, 0x800, 0x10000};  // in as many bytes
    std::uint32_t point = length == 1 ? first : first & (0x7FU >> length);
    for (const char byte : text.substr(1, length - 1)) {
        point = point << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    const bool isInvisible = std::ranges::any_of(invisible, [point](const Invisible& row) {
        return point >= row.first && point <= row.last;
    });
    return isInvisible || point < lowest[length] ? 0 : length;
}

std::string InDigits(char byte) {
    constexpr std::string_view digits = "0123456789abcdef";
    const auto value = static_cast<unsigned char>(byte);
    switch (byte) {
        case '\t':
            return "\\t";
        case '\n':
            return "\\n";
        default:
            return std::string("\\x") + digits[value >> 4U] + digits[value & 0xFU];
    }
}

std::string_view FirstBytes(std::string_view line, std::size_t longest) {
    while (longest > 0 && IsContinuation(line[longest])) {
        --longest;
    }
    return line.substr(0, longest);
}

}  // namespace

bool IsControl(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7F;
}

std::size_t CharactersIn(std::string_view text) {
    return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, IsContinuation));
}

std::string Visible(std::string_view text, std::string_view kept) {
    std::string visible;
    while (!text.empty()) {
        const std::size_t length =
            kept.find(text[0]) != std::string_view::npos ? 1 : VisibleLength(text);
        visible += length > 0 ? std::string(text.substr(0, length)) : InDigits(text[0]);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return visible;
}

std::string Quoted(std::string_view text) {
    return '"' + Visible(text) + '"';
}

std::string QuotedLine(std::string_view line) {
    constexpr std::size_t longest = 160;
    if (line.size() > longest) {
        return '"' + Visible(FirstBytes(line, longest)) + "...\"";
    }
    return Quoted(line) + (line.ends_with("  ")  ? " (with spaces at its end)"
                           : line.ends_with(' ') ? " (with a space at its end)"
                                                 : "");
}

}  // namespace host
