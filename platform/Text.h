// Text operations that must give the same bytes under every locale of the host.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace platform {

/// Upper-cases the letters a to z and no others. toupper would depend on the host's locale.
constexpr char UpperCasedLetter(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}
std::string UpperCased(std::string_view text);

/// Whether both texts are equal when the letters a to z count as A to Z.
bool EqualIgnoringCase(const std::string& left, const std::string& right);

/// Prints the number with exactly three decimals and a decimal point, as "%.3f" does in the C
/// locale. Takes up to kLongestDecimal characters; returns their end.
char* PrintThreeDecimals(char* to, double number);

/// Sign, all digits of the largest double, point and decimals.
constexpr std::size_t kLongestDecimal = std::numeric_limits<double>::max_exponent10 + 8;

}  // namespace platform
