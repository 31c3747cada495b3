// TOML that the library must not see: on some malformed texts its assertions end the program.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace host {

/// Where such a text goes wrong, and why.
struct UnfitToml {
    std::uint32_t line;
    std::uint32_t column;
    const char* reason;
};

/// The first such place. None of them is valid TOML, but for what no recipe has: dates with a time,
/// and keys like dates after the comma of an inline table.
std::optional<UnfitToml> FindUnfitToml(std::string_view text);

}  // namespace host
