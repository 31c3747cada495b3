#include "platform/Text.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include "tests/support/HostLocale.h"

namespace {

constexpr std::array<const char*, 4> hostLocales = {
    "C", support::kGermanLocale, support::kTurkishLocale, support::kMultiByteLocale};

std::string WithThreeDecimals(double number) {
    std::array<char, platform::kLongestDecimal> characters;
    return {characters.data(), platform::PrintThreeDecimals(characters.data(), number)};
}

std::string WithThreeDecimalsOfPrintf(double number) {
    std::array<char, platform::kLongestDecimal + 1> characters;
    const int size = std::snprintf(characters.data(), characters.size(), "%.3f", number);
    return {characters.data(), characters.data() + size};
}

/// The number, and those just below and above it, with both signs.
void ExpectNeighborsAsPrintf(double number) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double near :
         {std::nextafter(number, -infinity), number, std::nextafter(number, infinity)}) {
        ASSERT_EQ(WithThreeDecimals(near), WithThreeDecimalsOfPrintf(near)) << near;
        ASSERT_EQ(WithThreeDecimals(-near), WithThreeDecimalsOfPrintf(-near)) << near;
    }
}

}  // namespace

TEST(Text, UpperCasesAsciiCharactersOnly) {
    EXPECT_EQ(platform::UpperCased(".k5o\xe4"), ".K5O\xe4");
    EXPECT_EQ(platform::UpperCased(""), "");
    EXPECT_EQ(platform::UpperCased("`az{@AZ[09"), "`AZ{@AZ[09");
}

TEST(Text, ComparesWithoutRegardToAsciiCase) {
    EXPECT_TRUE(platform::EqualIgnoringCase("FlagPrevShot", "fLAGpREVsHOT"));
    EXPECT_TRUE(platform::EqualIgnoringCase("", ""));
    EXPECT_FALSE(platform::EqualIgnoringCase("FlagPrevShot", "FlagPrevShot "));
    EXPECT_FALSE(platform::EqualIgnoringCase("FlagPrevShot", "FlagPrevSho"));
    EXPECT_FALSE(platform::EqualIgnoringCase("\xe4", "\xc4"));
    EXPECT_FALSE(platform::EqualIgnoringCase("[", "{"));
}

TEST(Text, WritesThreeDecimals) {
    EXPECT_EQ(WithThreeDecimals(0.0), "0.000");
    EXPECT_EQ(WithThreeDecimals(-0.0), "-0.000");
    EXPECT_EQ(WithThreeDecimals(-5.0), "-5.000");
    EXPECT_EQ(WithThreeDecimals(0.85), "0.850");
    EXPECT_EQ(WithThreeDecimals(135.0), "135.000");
    EXPECT_EQ(WithThreeDecimals(-0.0001), "-0.000");
    EXPECT_EQ(WithThreeDecimals(1234567.5), "1234567.500");
}

TEST(Text, RoundsToTheNearestThirdDecimalAndTiesToTheEvenOne) {
    EXPECT_EQ(WithThreeDecimals(0.0004), "0.000");
    EXPECT_EQ(WithThreeDecimals(0.0006), "0.001");
    EXPECT_EQ(WithThreeDecimals(0.9996), "1.000");
    EXPECT_EQ(WithThreeDecimals(0.0625), "0.062");
    EXPECT_EQ(WithThreeDecimals(0.1875), "0.188");
}

TEST(Text, RoundsLikePrintfAroundEachMiddleBetweenTwoThousandths) {
    for (int halves = 0; halves < 20'000; ++halves) {
        ExpectNeighborsAsPrintf(halves / 2000.0);
    }
}

TEST(Text, RoundsLikePrintfAtEverySize) {
    std::mt19937_64 random(1);
    for (int exponent = -20; exponent < 60; ++exponent) {
        for (int draw = 0; draw < 200; ++draw) {
            const double number = std::ldexp(static_cast<double>(random() >> 11), exponent - 53);
            ExpectNeighborsAsPrintf(number);
            ExpectNeighborsAsPrintf(std::floor(number * 16.0) / 16.0);  // often in the middle
        }
    }
}

TEST(Text, WritesTheLargestDoubleWhole) {
    const std::string text = WithThreeDecimals(-std::numeric_limits<double>::max());
    EXPECT_EQ(text.size(), 1 + 309 + 4U);
    EXPECT_EQ(text.substr(0, 8), "-1797693");
    EXPECT_EQ(text.substr(text.size() - 8), "8368.000");
}

TEST(Text, WritesTheSmallestDoubleAsZero) {
    EXPECT_EQ(WithThreeDecimals(std::numeric_limits<double>::denorm_min()), "0.000");
}

TEST(Text, WritesNumbersWithoutAValueByName) {
    EXPECT_EQ(WithThreeDecimals(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(WithThreeDecimals(-std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(WithThreeDecimals(std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(Text, WritesADecimalPointUnderEveryLocale) {
    for (const char* name : hostLocales) {
        const support::HostLocale locale(name);
        EXPECT_EQ(WithThreeDecimals(0.8), "0.800") << name;
        EXPECT_EQ(WithThreeDecimals(-1234567.25), "-1234567.250") << name;
    }
}

TEST(Text, UpperCasesAlikeUnderEveryLocale) {
    for (const char* name : hostLocales) {
        const support::HostLocale locale(name);
        for (int byte = 0; byte <= 0xff; ++byte) {
            const char letter = static_cast<char>(byte);
            const bool isSmall = byte >= 0x61 && byte <= 0x7a;
            const char expected = static_cast<char>(isSmall ? byte - 0x20 : byte);
            EXPECT_EQ(platform::UpperCased(std::string(1, letter)), std::string({expected}))
                << name << byte;
        }
    }
}

TEST(Text, ComparesAlikeUnderEveryLocale) {
    for (const char* name : hostLocales) {
        const support::HostLocale locale(name);
        EXPECT_TRUE(platform::EqualIgnoringCase("VERSION ID", "version id")) << name;
        EXPECT_FALSE(platform::EqualIgnoringCase("\xfd", "I")) << name;
        EXPECT_FALSE(platform::EqualIgnoringCase("i", "\xdd")) << name;
        EXPECT_FALSE(platform::EqualIgnoringCase("\xe4", "\xc4")) << name;
    }
}

TEST(Text, GermanLocaleOfTheseTestsHasADecimalComma) {
    const support::HostLocale locale(support::kGermanLocale);
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
}
