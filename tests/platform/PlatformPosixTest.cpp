// The POSIX side of the platform. This program plays a host that brings a debugger output.
#include <gtest/gtest.h>

#include <limits.h>

#include <string>
#include <vector>

#include "platform/Files.h"
#include "platform/PlatformCalls.h"
#include "platform/Trace.h"
#include "tests/support/TemporaryFolder.h"

namespace {

std::vector<std::wstring> debuggerOutput;

}  // namespace

extern "C" void OutputDebugStringW(const wchar_t* line) {
    debuggerOutput.push_back(line);
}

TEST(PlatformPosix, TraceLinesGoToTheHostsDebuggerOutput) {
    debuggerOutput.clear();
    platform::Trace(L"@@@ Engine read cmx file");
    platform::TraceNarrow("D:\\Proj\\Run03\\Cover03.cmx");
    EXPECT_EQ(debuggerOutput, (std::vector<std::wstring>{L"@@@ Engine read cmx file",
                                                         L"D:\\Proj\\Run03\\Cover03.cmx"}));
}

TEST(PlatformPosix, NativePathHasSlashesOnly) {
    EXPECT_EQ(platform::NativePath("D:\\Proj/Run03/\\Cover03.k5o"), "D:/Proj/Run03//Cover03.k5o");
    EXPECT_EQ(platform::NativePath(""), "");
}

TEST(PlatformPosix, NamesAreCaseSensitive) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.K5O", "1004");
    EXPECT_FALSE(platform::PathExists(folder.EnginePath("Cover03.k5o")));
    EXPECT_TRUE(platform::PathExists(folder.EnginePath("Cover03.K5O")));
}

TEST(PlatformPosix, WrittenLineEndsAreSingleCharacters) {
    const support::TemporaryFolder folder;
    platform::TextFile(folder.EnginePath("debug.txt")).Write("first\nsecond\n");
    EXPECT_EQ(folder.BytesOf("debug.txt"), "first\nsecond\n");
}

TEST(PlatformPosix, LinkToAMissingFileDoesNotExist) {
    const support::TemporaryFolder folder;
    std::filesystem::create_symlink(folder.Path() / "missing", folder.Path() / "Cover03.k5o");
    EXPECT_FALSE(platform::PathExists(folder.EnginePath("Cover03.k5o")));
}

TEST(PlatformPosix, LongestPathOfTheSystemIsFoundAndALongerOneIsNot) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.k5o", "1004");
    const std::string file = folder.EnginePath("Cover03.k5o");
    const std::string filling(PATH_MAX - 1 - file.size(), '\\');
    const std::string longest = folder.EnginePath("") + filling + "Cover03.k5o";
    ASSERT_EQ(longest.size(), PATH_MAX - 1U);
    EXPECT_TRUE(platform::PathExists(longest));
    std::FILE* const opened = platform::OpenForReading(longest);
    ASSERT_NE(opened, nullptr);
    std::fclose(opened);
    EXPECT_FALSE(platform::PathExists("\\" + longest));
    EXPECT_EQ(platform::OpenForReading("\\" + longest), nullptr);
}
