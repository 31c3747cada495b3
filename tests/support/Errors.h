// What an operation throws, as text that a test can compare.
#pragma once

#include <stdexcept>
#include <string>

namespace support {

/// The texts of the engine's out-of-range errors: of lists and of texts.
constexpr const char* kInvalidSubscript = "invalid vector<T> subscript";
constexpr const char* kInvalidPosition = "invalid string position";

/// The text of the std::out_of_range that the operation throws; "nothing thrown" without one.
template <typename Operation>
std::string OutOfRangeText(Operation&& operation) {
    try {
        operation();
    } catch (const std::out_of_range& error) {
        return error.what();
    }
    return "nothing thrown";
}

}  // namespace support
