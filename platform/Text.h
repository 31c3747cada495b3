// Text operations that must give the same bytes under every locale of the host.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Upper-cases the letters a to z and no others.
std::string UpperCased(std::string_view text);

/// Whether both texts are equal when the letters a to z count as A to Z.
bool EqualIgnoringCase(const std::string& left, const std::string& right);

/// The number with exactly three decimals and a decimal point, as "%.3f" gives it in the C locale.
std::string WithThreeDecimals(double number);

}  // namespace platform
