// The Windows side of the platform. Its debugger output is met by the tests of the real library.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

#include "platform/Files.h"
#include "platform/PlatformCalls.h"
#include "tests/support/TemporaryFolder.h"

TEST(PlatformWindows, NativePathIsThePathAsItStands) {
    EXPECT_EQ(platform::NativePath("D:\\Proj/Run03/\\Cover03.k5o"), "D:\\Proj/Run03/\\Cover03.k5o");
    EXPECT_EQ(platform::NativePath(""), "");
}

TEST(PlatformWindows, NamesDoNotDifferInCase) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.K5O", "1004");
    EXPECT_TRUE(platform::PathExists(folder.EnginePath("Cover03.k5o")));
    EXPECT_FALSE(platform::PathExists(folder.EnginePath("Cover03.o2w")));
}

TEST(PlatformWindows, BothSeparatorsLeadToAFile) {
    const support::TemporaryFolder folder;
    folder.MakeFolder("Run03");
    folder.MakeFile("Run03/Cover03.k5o", "1004");
    const std::string path = folder.Path().string();
    EXPECT_TRUE(platform::PathExists(path + "\\Run03\\Cover03.k5o"));
    EXPECT_TRUE(platform::PathExists(path + "/Run03/Cover03.k5o"));
    EXPECT_TRUE(platform::PathExists(path + "/Run03/\\Cover03.k5o"));
}

TEST(PlatformWindows, WrittenLineEndsGetACarriageReturn) {
    const support::TemporaryFolder folder;
    platform::TextFile(folder.EnginePath("debug.txt")).Write("first\nsecond\n");
    EXPECT_EQ(folder.BytesOf("debug.txt"), "first\r\nsecond\r\n");
}

TEST(PlatformWindows, ReadLineEndsLoseTheirCarriageReturn) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.cmx", "first\r\nsecond\n");
    std::FILE* const file = platform::OpenForReading(folder.EnginePath("Cover03.cmx"));
    ASSERT_NE(file, nullptr);
    std::array<char, 100> line{};
    EXPECT_STREQ(std::fgets(line.data(), line.size(), file), "first\n");
    EXPECT_STREQ(std::fgets(line.data(), line.size(), file), "second\n");
    EXPECT_EQ(std::fgets(line.data(), line.size(), file), nullptr);
    std::fclose(file);
}
