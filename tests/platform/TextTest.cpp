#include "platform/Text.h"

#include <gtest/gtest.h>

#include <limits>

TEST(Text, UpperCasesAsciiLettersOnly) {
    EXPECT_EQ(platform::UpperCased(".k5o\xe4"), ".K5O\xe4");
    EXPECT_EQ(platform::UpperCased(""), "");
    EXPECT_EQ(platform::UpperCased("`az{@AZ[09"), "`AZ{@AZ[09");
}

TEST(Text, ComparesWithoutRegardToAsciiCase) {
    EXPECT_TRUE(platform::EqualIgnoringCase("FlagPrevShot", "fLAGpREVsHOT"));
    EXPECT_FALSE(platform::EqualIgnoringCase("FlagPrevShot", "FlagPrevShot "));
    EXPECT_FALSE(platform::EqualIgnoringCase("\xe4", "\xc4"));
}

TEST(Text, WritesThreeDecimals) {
    EXPECT_EQ(platform::WithThreeDecimals(0.0), "0.000");
    EXPECT_EQ(platform::WithThreeDecimals(-5.0), "-5.000");
    EXPECT_EQ(platform::WithThreeDecimals(0.85), "0.850");
    EXPECT_EQ(platform::WithThreeDecimals(135.0), "135.000");
    EXPECT_EQ(platform::WithThreeDecimals(-0.0001), "-0.000");
}

TEST(Text, WritesTheLargestDoubleWhole) {
    const std::string text = platform::WithThreeDecimals(-std::numeric_limits<double>::max());
    EXPECT_EQ(text.size(), 1 + 309 + 4U);
    EXPECT_EQ(text.substr(0, 8), "-1797693");
    EXPECT_EQ(text.substr(text.size() - 8), "8368.000");
}
