// Element access with the error that hosts know from the Windows runtime, on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>

namespace platform {

/// Throws std::out_of_range("invalid vector<T> subscript") for a position outside the list. The
/// position is compared as an unsigned number, so a negative one is outside too.
template <typename List>
auto CheckedElement(List& list, std::int32_t position) -> decltype(list[0])& {
    const auto index = static_cast<std::uint32_t>(position);
    if (index >= list.size()) {
        throw std::out_of_range("invalid vector<T> subscript");
    }
    return list[index];
}

}  // namespace platform
