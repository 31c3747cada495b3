// What the TOML library must not see, and what it may.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "recipes/UnfitToml.h"

using host::FindUnfitToml;

namespace {

/// Line and column of what is unfit, as "2:5"; empty when nothing is.
std::string PlaceOfUnfit(const std::string& text) {
    const auto unfit = FindUnfitToml(text);
    return unfit ? std::to_string(unfit->line) + ":" + std::to_string(unfit->column) : "";
}

}  // namespace

TEST(UnfitToml, IsNotLookedForInsideTextsAndComments) {
    const std::string unfit = "a = [ } [=] 1979-05-2";
    const std::vector<std::string> texts = {
        "a = '" + unfit + "'",
        "a = \"" + unfit + "\"",
        "a = \"\\\"" + unfit + "\"",
        "a = '''\n" + unfit + "\n''" + unfit + "'''",
        "a = \"\"\"\n" + unfit + "\n\"\"" + unfit + "\"\"\"",
        "a = [ # " + unfit + "\n]",
    };
    for (const std::string& text : texts) {
        EXPECT_EQ(PlaceOfUnfit(text), "") << text;
    }
}

TEST(UnfitToml, IsFoundBehindTextsOfEachKind) {
    for (const std::string text : {"''", "'x'", "\"\"", "\"x\\\"\"", "'''x'''", "\"\"\"x\"\"\""}) {
        EXPECT_EQ(PlaceOfUnfit("a = " + text + "\nb = [ }"), "2:7") << text;
        EXPECT_EQ(PlaceOfUnfit("b = [ " + text + ", }"), "1:" + std::to_string(text.size() + 9));
    }
}

TEST(UnfitToml, IsAnyByteBeyondAsciiInAList) {
    EXPECT_EQ(PlaceOfUnfit("a = [\xC3\xA4"), "1:6");
    EXPECT_EQ(PlaceOfUnfit("a = [1,\xFF"), "1:8");
    EXPECT_EQ(PlaceOfUnfit("a = [\x7F"), "");
    EXPECT_NE(PlaceOfUnfit("a = [\x80"), "");
}

TEST(UnfitToml, IsADashInANumberThatIsNoDateOfItsOwn) {
    for (const std::string value : {"197y-05-27 1", "0832-01-0= 0", "1979-05-2_7", "1979-05-27 1",
                                    "1e-3-1", "1-", "1979-05-27T07:32:00"}) {
        EXPECT_EQ(PlaceOfUnfit("a = " + value), "1:5") << value;
        EXPECT_EQ(PlaceOfUnfit("a = [" + value), "1:6") << value;
        EXPECT_EQ(PlaceOfUnfit("a = [1,\n" + value), "2:1") << value;
    }
}

TEST(UnfitToml, IsNoNumberPlainDateOrKey) {
    for (const std::string text : {"a = 1e-3", "a = 1E-3", "a = -1", "a = 1979-05-27",
                                   "a = [1979-05-27, 1e-3]", "12-3 = 1", "\n1979-05-27 1 = 2"}) {
        EXPECT_EQ(PlaceOfUnfit(text), "") << text;
    }
}

TEST(UnfitToml, IsAKeyOfManyParts) {
    const auto key = [](int dots) {
        std::string text = "a";
        for (int i = 0; i < dots; ++i) {
            text += i % 2 == 0 ? ".a" : " . 'a.a'";
        }
        return text;
    };
    EXPECT_EQ(PlaceOfUnfit(key(8) + " = 1"), "");
    EXPECT_EQ(PlaceOfUnfit("[" + key(8) + "]\n" + key(8) + " = {" + key(8) + "= 1}"), "");
    EXPECT_EQ(PlaceOfUnfit("b = 1.5\n" + key(9) + " = 1"), "2:42");
    EXPECT_EQ(PlaceOfUnfit("[" + key(9) + "]"), "1:43");
    EXPECT_EQ(PlaceOfUnfit("b = [" + std::string(200, '.')), "1:14");
}
