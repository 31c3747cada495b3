#include "recipes/UnfitToml.h"

#include <algorithm>
#include <string>

#include "problems/VisibleText.h"

namespace host {

namespace {

constexpr std::string_view spaces = " \t";
constexpr std::string_view decimalDigits = "0123456789";
constexpr std::size_t mostDots = 8;  // recipes have one
constexpr std::string_view skipped = " \t\r\n#";

/// What is looked at next, and where in it something is unfit, if so.
struct Part {
    std::size_t length;
    std::size_t unfit = 0;
    const char* reason = nullptr;
};

bool IsAmong(std::string_view characters, char character) {
    return characters.find(character) != std::string_view::npos;
}

bool IsBeyondAscii(char byte) {
    return static_cast<unsigned char>(byte) >= 0x80;
}

/// The opening bracket of a section, or two of them.
Part SectionAt(std::string_view text) {
    constexpr std::string_view starts =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-\"']";
    const std::size_t bracket = text.starts_with("[[") ? 2 : 1;
    const std::size_t name = std::min(text.find_first_not_of(spaces, bracket), text.size());
    return name < text.size() && IsAmong(starts, text[name])
               ? Part{name}
               : Part{name, name,
                      R"(a section name may contain only a to z, A to Z, 0 to 9, "_" and "-" )"
                      R"(unless it is in quotes)"};
}

/// Bytes of a string with its quotes.
std::size_t LengthOfString(std::string_view text) {
    const std::string quotes(3, text[0]);
    const bool hasLines = text.starts_with(quotes);
    const std::string_view end = std::string_view(quotes).substr(0, hasLines ? 3 : 1);
    std::size_t at = end.size();
    while (at < text.size() && !text.substr(at).starts_with(end)) {
        if (text[at] == '\n' && !hasLines) {
            return at;  // the library refuses it there
        }
        at += text[0] == '"' && text[at] == '\\' ? 2 : 1;
    }
    at = std::min(at + end.size(), text.size());
    const std::size_t ownQuotes = hasLines ? 2 : 0;  // may be its last characters
    return std::min({text.find_first_not_of(text[0], at), at + ownQuotes, text.size()});
}

/// Whether there is a dash that belongs to no exponent.
bool IsLikeADate(std::string_view number) {
    for (std::size_t dash = 1; (dash = number.find('-', dash)) != std::string_view::npos; ++dash) {
        if (!IsAmong("eE", number[dash - 1])) {
            return true;
        }
    }
    return false;
}

/// Whether a date has its ten characters and no time after it.
bool IsPlainDate(std::string_view date, std::string_view after) {
    const bool hasTime = after.starts_with(' ') && IsAmong(decimalDigits, after.back());
    return date.size() == 10 && date[4] == '-' && date[7] == '-' &&
           date.find_first_not_of("0123456789-") == std::string_view::npos && !hasTime;
}

/// A number, or a date.
Part NumberAt(std::string_view text) {
    const std::size_t end = std::min(text.find_first_of(" \t\r\n,]}#="), text.size());
    const std::string_view number = text.substr(0, end);
    return IsLikeADate(number) && !IsPlainDate(number, text.substr(end, 2))
               ? Part{end, 0, "dates and times are not allowed in a recipe; put text in quotes"}
               : Part{end};
}

/// What is known from the text before, without strings' insides and comments.
struct Context {
    bool startsLine = true;  ///< but for spaces
    char before = '\n';      ///< the last character but for spaces and line ends
    std::size_t dots = 0;    ///< of the key at hand

    bool IsInList() const { return before == '[' || before == ','; }
    bool StartsValue() const { return before == '=' || IsInList(); }

    void Pass(char character) {
        startsLine = character == '\n' || (startsLine && IsAmong(spaces, character));
        before = IsAmong(skipped, character) ? before : character;
        dots = IsAmong("\n=,[{", character) ? 0 : dots + (character == '.' ? 1 : 0);
    }
};

Part PartAt(std::string_view text, const Context& context) {
    if (IsAmong(decimalDigits, text[0]) && context.StartsValue()) {
        return NumberAt(text);
    }
    switch (text[0]) {
        case '[':
            return context.startsLine && !context.IsInList() ? SectionAt(text) : Part{1};
        case '"':
        case '\'':
            return {LengthOfString(text)};
        case '#':
            return {std::min(text.find('\n'), text.size())};
        case '.':  // the library ends such a key's tables one within the other, on the stack
            return context.dots < mostDots ? Part{1} : Part{1, 0, "a key has too many parts"};
        case '}':
            return context.IsInList() ? Part{1, 0, R"("}" cannot follow "[" or ",")"} : Part{1};
        default:
            return context.IsInList() && IsBeyondAscii(text[0])
                       ? Part{1, 0, "non-ASCII characters are allowed only in quotes and comments"}
                       : Part{1};
    }
}

UnfitToml PlaceIn(std::string_view text, std::size_t position, const char* reason) {
    const std::string_view before = text.substr(0, position);
    const std::string_view line = before.substr(before.rfind('\n') + 1);
    return {static_cast<std::uint32_t>(std::ranges::count(before, '\n') + 1),
            static_cast<std::uint32_t>(CharactersIn(line) + 1), reason};
}

}  // namespace

std::optional<UnfitToml> FindUnfitToml(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    text.remove_prefix(text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0);
    Context context;
    for (std::size_t at = 0; at < text.size();) {
        const Part part = PartAt(text.substr(at), context);
        if (part.reason != nullptr) {
            return PlaceIn(text, at + part.unfit, part.reason);
        }
        context.Pass(text[at]);
        at += part.length;
    }
    return std::nullopt;
}

}  // namespace host
