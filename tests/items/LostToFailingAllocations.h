// Finds out in which order an array of owned objects is built, by what is missing from it when
// memory is short.
#pragma once

#include <cstddef>
#include <new>
#include <vector>

#include "tests/support/FailingAllocations.h"

/// The positions that are left null when one allocation after the other fails, in this order.
template <typename Array, typename Build>
std::vector<int> LostToFailingAllocations(Build&& build) {
    std::vector<int> lost;
    bool ranClean = false;
    for (std::size_t number = 0; !ranClean; ++number) {
        Array parts;
        try {
            const support::FailingAllocations failing(number,
                                                      support::FailingAllocations::Mode::once);
            build(parts);
            ranClean = !failing.HasFailed();
        } catch (const std::bad_alloc&) {
            continue;  // no memory for a text, a list or an option
        }
        for (std::size_t position = 0; position < parts.size(); ++position) {
            if (!parts[position]) {
                lost.push_back(static_cast<int>(position));
            }
        }
    }
    return lost;
}
