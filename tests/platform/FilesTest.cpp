#include "platform/Files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/WatchedPlatform.h"

namespace {

using Lines = std::vector<std::string>;

/// Closes what a test opened; the engine itself may leave a stream open.
struct CloseStream {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using Stream = std::unique_ptr<std::FILE, CloseStream>;

std::string FirstLine(const std::string& path) {
    const Stream file(platform::OpenForReading(path));
    char line[64] = "";
    return file && std::fgets(line, sizeof line, file.get()) ? line : "";
}

}  // namespace

// ---- Does a path exist ------------------------------------------------------------------------

TEST(PathExists, FindsAFileByAPathWithBackslashes) {
    const support::TemporaryFolder folder;
    folder.MakeFolder("Run03");
    folder.MakeFile("Run03/Cover03.k5o", "1004");
    EXPECT_TRUE(platform::PathExists(folder.EnginePath("Run03/Cover03.k5o")));
}

TEST(PathExists, FindsAFileBehindAFolderThatEndsInASlash) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.k5o", "1004");
    EXPECT_TRUE(platform::PathExists(folder.Path().string() + "/\\Cover03.k5o"));
}

TEST(PathExists, CountsAFolder) {
    const support::TemporaryFolder folder;
    folder.MakeFolder("Cover03.k5o");
    EXPECT_TRUE(platform::PathExists(folder.EnginePath("Cover03.k5o")));
}

TEST(PathExists, CountsAnEmptyFile) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.k5o", "");
    EXPECT_TRUE(platform::PathExists(folder.EnginePath("Cover03.k5o")));
}

TEST(PathExists, MissesWhatIsNotThere) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.k5o", "1004");
    EXPECT_FALSE(platform::PathExists(folder.EnginePath("Cover03.k5f")));
    EXPECT_FALSE(platform::PathExists(folder.EnginePath("Run02/Cover03.k5o")));
    EXPECT_FALSE(platform::PathExists(""));
}

TEST(PathExists, FindsAFileByAPathWithSpacesAndUmlauts) {
    const support::TemporaryFolder folder;
    const std::string path = folder.EnginePath("Geh\xe4use neu.k5o");
    EXPECT_FALSE(platform::PathExists(path));
    platform::TextFile(path).Write("1004");
    EXPECT_TRUE(platform::PathExists(path));
}

// ---- Reading ----------------------------------------------------------------------------------

TEST(OpenForReading, OpensAFileByAPathWithBackslashes) {
    const support::TemporaryFolder folder;
    folder.MakeFolder("Run03");
    folder.MakeFile("Run03/Cover03.cmx", "first\nsecond\n");
    EXPECT_EQ(FirstLine(folder.EnginePath("Run03/Cover03.cmx")), "first\n");
}

TEST(OpenForReading, GivesNullForAMissingFileAndMakesNone) {
    const support::TemporaryFolder folder;
    EXPECT_EQ(platform::OpenForReading(folder.EnginePath("Cover03.cmx")), nullptr);
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

// ---- Writing ----------------------------------------------------------------------------------

TEST(TextFile, HoldsWhatIsWrittenAtTheEndOfItsLife) {
    const support::TemporaryFolder folder;
    {
        platform::TextFile file(folder.EnginePath("debug.txt"));
        file.Write("RSP = 1");
        file.Write("RSG = 0");
    }
    EXPECT_EQ(folder.BytesOf("debug.txt"), "RSP = 1RSG = 0");
}

TEST(TextFile, ReplacesAnEarlierFile) {
    const support::TemporaryFolder folder;
    folder.MakeFile("debug.txt", "a longer text from the last time");
    platform::TextFile(folder.EnginePath("debug.txt")).Write("new");
    EXPECT_EQ(folder.BytesOf("debug.txt"), "new");
}

TEST(TextFile, ExistsEvenWhenNothingIsWritten) {
    const support::TemporaryFolder folder;
    { const platform::TextFile file(folder.EnginePath("debug.txt")); }
    EXPECT_EQ(folder.BytesOf("debug.txt"), "");
}

TEST(TextFile, TakesTextWithPercentSignsAsItIs) {
    const support::TemporaryFolder folder;
    platform::TextFile(folder.EnginePath("debug.txt")).Write("100%s%n%");
    EXPECT_EQ(folder.BytesOf("debug.txt"), "100%s%n%");
}

TEST(TextFile, ThatCannotBeCreatedDropsWhatIsWritten) {
    const support::TemporaryFolder folder;
    platform::TextFile(folder.EnginePath("no such folder/debug.txt")).Write("text");
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    platform::TextFile(folder.EnginePath("")).Write("text");
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(TextFile, ThatCannotBeCreatedIsNeitherWrittenNorClosed) {
    support::WatchedPlatform platform;
    platform.unwritable = {"debug.txt"};
    platform::TextFile("debug.txt").Write("text");
    EXPECT_EQ(platform.events, Lines{"open w debug.txt"});
    EXPECT_TRUE(platform.written.empty());
}

TEST(TextFile, IsClosedOnce) {
    support::WatchedPlatform platform;
    platform::TextFile("debug.txt").Write("text");
    EXPECT_EQ(platform.events, (Lines{"open w debug.txt", "close debug.txt"}));
}
