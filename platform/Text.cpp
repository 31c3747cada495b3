#include "platform/Text.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

namespace platform {

std::string UpperCased(std::string_view text) {
    std::string upper(text);
    for (char& letter : upper) {
        letter = UpperCasedLetter(letter);
    }
    return upper;
}

bool EqualIgnoringCase(const std::string& left, const std::string& right) {
    return UpperCased(left) == UpperCased(right);
}

namespace {

/// The thousandths to which a number that is not negative is rounded. Nothing for a large number,
/// and where the product may itself have been rounded to the middle between two.
std::optional<std::int64_t> Thousandths(double number) {
    constexpr double large = 1e12;
    const double product = number * 1000.0;
    if (!(product < large)) {
        return {};
    }
    const auto below = static_cast<std::int64_t>(product);
    const double rest = product - static_cast<double>(below);
    if (rest == 0.5) {
        return {};
    }
    return rest < 0.5 ? below : below + 1;
}

char* PrintWithPoint(char* to, std::int64_t thousandths) {
    constexpr std::ptrdiff_t longest = std::numeric_limits<std::int64_t>::digits10 + 1;
    to = std::to_chars(to, to + longest, thousandths / 1000).ptr;
    *to++ = '.';
    for (const std::int64_t unit : {100, 10, 1}) {
        *to++ = static_cast<char>('0' + thousandths / unit % 10);
    }
    return to;
}

}  // namespace

// printf would depend on the locale.
char* PrintThreeDecimals(char* to, double number) {
    const std::optional<std::int64_t> thousandths = Thousandths(std::abs(number));
    if (!thousandths) {
        return std::to_chars(to, to + kLongestDecimal, number, std::chars_format::fixed, 3).ptr;
    }
    if (std::signbit(number)) {
        *to++ = '-';
    }
    return PrintWithPoint(to, *thousandths);
}

}  // namespace platform
