#include "items/ResultMessages.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>

namespace {

std::string MessageOf(int code) {
    std::string text = "text of an earlier code";
    items::GetResultMessage(code, text);
    return text;
}

}  // namespace

TEST(ResultMessages, EveryCodeHasItsText) {
    const std::map<int, std::string> texts = {
        {-24, "No meeting angle information."},
        {-23, "No digimat information"},
        {-19, "No part insert fiber results."},
        {-18, "No file *.k5c"},
        {-17, "No moldbase nor file *.k5c."},
        {-16, "No moldbase nor file *.k5f"},
        {-15, "No moldbase"},
        {-14, "No inserted-part"},
        {-13, "No inserted-part nor file *.k5f"},
        {-10, "No file *_medi.crp"},
        {-9, "No file *.k5p"},
        {-8, "No file *.k5f"},
        {-7, "No file *.RSF"},
        {-6, "No file *.k5w"},
        {-5, "Ostra mesh exists"},
        {-4, "Ostra mesh exists and no file *.k5w"},
        {-3, "No runners"},
        {-2, "No file *.o2w"},
        {-1, "No fiber results."},
        {0, "No fiber results nor file *.o2w"},
        {15, "No fiber results."},
    };
    for (int code = -40; code <= 40; ++code) {
        const auto row = texts.find(code);
        EXPECT_EQ(MessageOf(code), row != texts.end() ? row->second : "Unknown messages")
            << "code " << code;
    }
}

TEST(ResultMessages, CodeOfAvailableResultsHasNoMessageOfItsOwn) {
    EXPECT_EQ(MessageOf(1), "Unknown messages");
}

TEST(ResultMessages, GapsBetweenCodesHaveNoTextButTheirNeighborsDo) {
    EXPECT_EQ(MessageOf(-13), "No inserted-part nor file *.k5f");
    EXPECT_EQ(MessageOf(-12), "Unknown messages");
    EXPECT_EQ(MessageOf(-11), "Unknown messages");
    EXPECT_EQ(MessageOf(-10), "No file *_medi.crp");
}

TEST(ResultMessages, CodeOfNeitherFiberResultsNorFilesHasATextOfItsOwn) {
    EXPECT_EQ(MessageOf(0), "No fiber results nor file *.o2w");
}

TEST(ResultMessages, CodesJustBeyondTheTableAreUnknown) {
    EXPECT_EQ(MessageOf(-25), "Unknown messages");
    EXPECT_EQ(MessageOf(16), "Unknown messages");
}

TEST(ResultMessages, CodesFarBeyondTheTableAreUnknown) {
    EXPECT_EQ(MessageOf(std::numeric_limits<int>::min()), "Unknown messages");
    EXPECT_EQ(MessageOf(std::numeric_limits<int>::max()), "Unknown messages");
}
