#include "platform/CheckedElement.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

#include "tests/support/Errors.h"

using support::kInvalidSubscript;

namespace {

/// The error text of an access.
template <typename List>
std::string ErrorOf(List& list, std::int32_t position) {
    return support::OutOfRangeText([&] { platform::CheckedElement(list, position); });
}

}  // namespace

TEST(CheckedElement, GivesTheElementItself) {
    std::vector<int> list = {10, 20, 30};
    EXPECT_EQ(platform::CheckedElement(list, 0), 10);
    EXPECT_EQ(&platform::CheckedElement(list, 2), &list[2]);
    platform::CheckedElement(list, 1) = 21;
    EXPECT_EQ(list, (std::vector<int>{10, 21, 30}));
}

TEST(CheckedElement, GivesElementsOfAConstantListForReading) {
    const std::vector<int> list = {10, 20};
    EXPECT_EQ(&platform::CheckedElement(list, 1), &list[1]);
    EXPECT_EQ(ErrorOf(list, 2), kInvalidSubscript);
}

TEST(CheckedElement, RefusesThePositionAfterTheLast) {
    std::vector<int> list = {10, 20, 30};
    EXPECT_EQ(platform::CheckedElement(list, 2), 30);
    EXPECT_EQ(ErrorOf(list, 3), kInvalidSubscript);
    EXPECT_EQ(ErrorOf(list, std::numeric_limits<std::int32_t>::max()), kInvalidSubscript);
}

TEST(CheckedElement, RefusesNegativePositions) {
    std::vector<int> list = {10, 20, 30};
    EXPECT_EQ(ErrorOf(list, -1), kInvalidSubscript);
    EXPECT_EQ(ErrorOf(list, std::numeric_limits<std::int32_t>::min()), kInvalidSubscript);
}

TEST(CheckedElement, RefusesEveryPositionOfAnEmptyList) {
    std::vector<int> list;
    EXPECT_EQ(ErrorOf(list, 0), kInvalidSubscript);
    EXPECT_EQ(ErrorOf(list, -1), kInvalidSubscript);
}

TEST(CheckedElement, ErrorIsExactlyTheStandardOutOfRangeError) {
    std::vector<int> list;
    try {
        platform::CheckedElement(list, 0);
        FAIL() << "no error";
    } catch (const std::exception& error) {
        EXPECT_EQ(typeid(error), typeid(std::out_of_range));
        EXPECT_STREQ(error.what(), "invalid vector<T> subscript");
    }
}
