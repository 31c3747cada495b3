#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace platform {

namespace {

// toupper would depend on the host's locale.
char UpperCased(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

}  // namespace

std::string UpperCased(std::string_view text) {
    std::string upper(text);
    for (char& letter : upper) {
        letter = UpperCased(letter);
    }
    return upper;
}

bool EqualIgnoringCase(const std::string& left, const std::string& right) {
    return UpperCased(left) == UpperCased(right);
}

std::string WithThreeDecimals(double number) {
    // Sign, all digits of the largest double, point and decimals; printf would depend on the
    // locale.
    std::array<char, std::numeric_limits<double>::max_exponent10 + 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::fixed, 3);
    return {digits.data(), end.ptr};
}

}  // namespace platform
