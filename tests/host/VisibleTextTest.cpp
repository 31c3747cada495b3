// Text in messages: what can be seen stays, what cannot is shown in digits.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "problems/VisibleText.h"

using host::Quoted;
using host::QuotedLine;
using host::Visible;

namespace {

std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

}  // namespace

TEST(QuotedLine, ShowsCharactersBesideTheInvisibleOnesAsTheyAre) {
    for (const std::string visible :
         {" .",     "~",      "\u00A1",     "\u00AC",     "\u00AE",     "\u0905",
          "\u1FFE", "\u2010", "\u2027",     "\u2030",     "\u205E",     "\u2070",
          "\u2FFB", "\u3001", "\uFE70",     "\uFF01",     "\u0800",     "\uD7FB",
          "\uE000", "\uFFFC", "\U00010000", "\U000DFFFD", "\U000E1000", "\U0010FFFD"}) {
        EXPECT_EQ(QuotedLine(visible), '"' + visible + '"');
    }
}

TEST(QuotedLine, ShowsInvisibleCharactersInDigits) {
    // clang-format off
    const std::vector<std::pair<std::string, std::string>> rows = {
        {std::string(1, '\0'), R"("\x00")"},
        {"\x1F",               R"("\x1f")"},
        {"\t",                 R"("\t")"},
        {"\x7F",               R"("\x7f")"},
        {"\xC2\x80",           R"("\xc2\x80")"},
        {"\u00A0",             R"("\xc2\xa0")"},
        {"\u00AD",             R"("\xc2\xad")"},
        {"\u2000",             R"("\xe2\x80\x80")"},
        {"\u200F",             R"("\xe2\x80\x8f")"},
        {"\u2028",             R"("\xe2\x80\xa8")"},
        {"\u202F",             R"("\xe2\x80\xaf")"},
        {"\u205F",             R"("\xe2\x81\x9f")"},
        {"\u206F",             R"("\xe2\x81\xaf")"},
        {"\u3000",             R"("\xe3\x80\x80")"},
        {"\uFEFF",             R"("\xef\xbb\xbf")"},
        {"\u034F",             R"("\xcd\x8f")"},
        {"\u061C",             R"("\xd8\x9c")"},
        {"\u1680",             R"("\xe1\x9a\x80")"},
        {"\u17B5",             R"("\xe1\x9e\xb5")"},
        {"\uFFA0",             R"("\xef\xbe\xa0")"},
        {"\U0001BCA3",         R"("\xf0\x9b\xb2\xa3")"},
        {"\U0001D17A",         R"("\xf0\x9d\x85\xba")"},
        {"\u1160",             R"("\xe1\x85\xa0")"},
        {"\u180E",             R"("\xe1\xa0\x8e")"},
        {"\u3164",             R"("\xe3\x85\xa4")"},
        {"\uFE0F",             R"("\xef\xb8\x8f")"},
        {"\uFFF9",             R"("\xef\xbf\xb9")"},
        {"\U000E0041",         R"("\xf3\xa0\x81\x81")"},
    };
    // clang-format on
    for (const auto& [line, expected] : rows) {
        EXPECT_EQ(QuotedLine(line), expected);
    }
}

TEST(QuotedLine, ShowsBytesThatAreNoCharacterInDigits) {
    EXPECT_EQ(QuotedLine("\x80"), R"("\x80")");
    EXPECT_EQ(QuotedLine("\xC1\xBF"), R"("\xc1\xbf")");
    EXPECT_EQ(QuotedLine("\xF5\x80\x80\x80"), R"("\xf5\x80\x80\x80")");
    EXPECT_EQ(QuotedLine("\xC3 ="), R"("\xc3 =")");
    EXPECT_EQ(QuotedLine("\xE2\x82"), R"("\xe2\x82")");
    EXPECT_EQ(QuotedLine("\xFF\xC3\xBC"), "\"\\xff\u00FC\"");
    EXPECT_EQ(QuotedLine("\xED\xA0\x80"), R"("\xed\xa0\x80")");
    EXPECT_EQ(QuotedLine("\xE0\x9F\xBF"), R"("\xe0\x9f\xbf")");
    EXPECT_EQ(QuotedLine("\xF0\x8F\xBF\xBF"), R"("\xf0\x8f\xbf\xbf")");
    EXPECT_EQ(QuotedLine("\xF4\x90\x80\x80"), R"("\xf4\x90\x80\x80")");
}

TEST(VisibleText, IsInOneLine) {
    EXPECT_EQ(Visible("a\nb\tc"), R"(a\nb\tc)");
    EXPECT_EQ(Visible(""), "");
}

TEST(VisibleText, KeepsSomeCharacters) {
    EXPECT_EQ(Visible("a\nb\tc", "\t"), "a\\nb\tc");
}

TEST(VisibleText, IsQuotedWhole) {
    const std::string line = Repeated("a", 200);
    EXPECT_EQ(Quoted(line + "\x1B "), '"' + line + R"(\x1b ")");
}

TEST(QuotedLine, OfALongLineShowsWholeCharacters) {
    const std::string line = Repeated("a", 159);
    EXPECT_EQ(QuotedLine(line + "b"), '"' + line + "b\"");
    EXPECT_EQ(QuotedLine(line + "bc"), '"' + line + "b...\"");
    EXPECT_EQ(QuotedLine(line + "\u00FC"), '"' + line + "...\"");
    EXPECT_EQ(QuotedLine(Repeated("\u20AC", 54)), '"' + Repeated("\u20AC", 53) + "...\"");
    EXPECT_EQ(QuotedLine(Repeated("\x80", 161)), "\"...\"");
    EXPECT_EQ(QuotedLine(Repeated(" ", 161)), '"' + Repeated(" ", 160) + "...\"");
}

TEST(QuotedLine, TellsOfSpacesAtTheEnd) {
    EXPECT_EQ(QuotedLine("[ANSYS] "), "\"[ANSYS] \" (with a space at its end)");
    EXPECT_EQ(QuotedLine("[ANSYS]  "), "\"[ANSYS]  \" (with spaces at its end)");
    EXPECT_EQ(QuotedLine(""), "\"\"");
}
