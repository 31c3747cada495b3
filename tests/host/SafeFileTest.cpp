// Files that are replaced: temporary names, of this machine and process and not to be guessed, and
// what happens between the look at a place and its use.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <optional>
#include <set>
#include <string>

#include "system/HostPlatform.h"
#include "system/SafeFile.h"
#include "system/SystemFiles.h"
#include "tests/support/TemporaryFolder.h"

using testing::EndsWith;
using testing::Not;
using testing::StartsWith;

namespace {

namespace fs = std::filesystem;

std::string StartOfNames() {
    return "zorbi2-" + host::MachineMark() + '-' + std::to_string(host::ProcessNumber()) + '-';
}

constexpr const char* anotherCame = "another file has appeared there in the meantime";

}  // namespace

TEST(SafeFile, NamesMachineAndProcess) {
    EXPECT_THAT(host::TemporaryName(), StartsWith(StartOfNames()));
    EXPECT_THAT(host::TemporaryName(), Not(EndsWith("-")));
}

TEST(SafeFile, NamesNoFileTwice) {
    constexpr std::size_t count = 1000;
    std::set<std::string> names;
    for (std::size_t i = 0; i < count; ++i) {
        names.insert(host::TemporaryName());
    }
    EXPECT_EQ(names.size(), count);
}

TEST(SafeFile, DrawsAllDigitsOfANumber) {
    std::uint64_t everOne = 0;
    std::uint64_t everZero = 0;
    for (int i = 0; i < 1000; ++i) {
        const std::uint64_t number = host::RandomNumber();
        everOne |= number;
        everZero |= ~number;
    }
    EXPECT_EQ(~everOne, 0U);
    EXPECT_EQ(~everZero, 0U);
}

TEST(SafeFile, IsLookedForAgainWhenAnotherCame) {
    const support::TemporaryFolder folder;
    const fs::path file = folder.Path() / "new";
    const host::FilePlace before = host::LookAtPlace(file);
    folder.MakeFile("new", "note");
    int looks = 0;
    const auto look = [&] { return ++looks < 3 ? before : host::LookAtPlace(file); };
    EXPECT_EQ(host::ReplaceFile(look, "new"), "");
    EXPECT_EQ(looks, 3);
    EXPECT_EQ(folder.BytesOf("new"), "new");
}

TEST(SafeFile, IsLookedForTenTimes) {
    const support::TemporaryFolder folder;
    const host::FilePlace before = host::LookAtPlace(folder.Path() / "new");
    folder.MakeFile("new", "note");
    int looks = 0;
    const auto look = [&] {
        ++looks;
        return before;
    };
    EXPECT_EQ(host::ReplaceFile(look, "new"), anotherCame);
    EXPECT_EQ(looks, 10);
}

TEST(SafeFile, IsLeftWhenNothingIsToBeWritten) {
    const support::TemporaryFolder folder;
    EXPECT_EQ(host::ReplaceFile([] { return std::nullopt; }, "new"), "");
    EXPECT_TRUE(fs::is_empty(folder.Path()));
}

#ifndef _WIN32
namespace {

/// With a look that was taken before.
std::string Replace(const host::FilePlace& place, const std::string& bytes) {
    return host::ReplaceFile([&place] { return place; }, bytes);
}

}  // namespace

TEST(SafeFile, DoesNotFollowALinkThatComesAfterTheLook) {
    const support::TemporaryFolder folder;
    folder.MakeFile("old", "old");
    folder.MakeFile("note", "note");
    const host::FilePlace place = host::LookAtPlace(folder.Path() / "old");
    fs::remove(folder.Path() / "old");
    fs::create_symlink("note", folder.Path() / "old");
    EXPECT_EQ(Replace(place, "new"), "");
    EXPECT_EQ(folder.BytesOf("note"), "note");
    EXPECT_EQ(folder.BytesOf("old"), "new");
    EXPECT_FALSE(fs::is_symlink(folder.Path() / "old"));
}

TEST(SafeFile, ReplacesOnlyWhatWasRead) {
    const support::TemporaryFolder folder;
    folder.MakeFile("old", "old");
    folder.MakeFile("note", "note");
    host::FilePlace place = host::LookAtPlace(folder.Path() / "old");
    EXPECT_EQ(host::StartOf(place), "old");
    fs::rename(folder.Path() / "note", folder.Path() / "old");
    EXPECT_EQ(Replace(place, "new"), anotherCame);
    EXPECT_EQ(folder.BytesOf("old"), "note");
}

TEST(SafeFile, ReplacesNothingWhereNothingWas) {
    const support::TemporaryFolder folder;
    const host::FilePlace place = host::LookAtPlace(folder.Path() / "new");
    folder.MakeFile("new", "note");
    EXPECT_EQ(Replace(place, "new"), anotherCame);
    EXPECT_EQ(folder.BytesOf("new"), "note");
    fs::remove(folder.Path() / "new");
    EXPECT_EQ(Replace(place, "new"), "");
    EXPECT_EQ(folder.BytesOf("new"), "new");
}

TEST(SafeFile, IsRefusedWhereLinksLeadInACircle) {
    const support::TemporaryFolder folder;
    fs::create_symlink("second", folder.Path() / "first");
    fs::create_symlink("first", folder.Path() / "second");
    EXPECT_EQ(host::LookAtPlace(folder.Path() / "first").reason, std::strerror(ELOOP));
}

TEST(SafeFile, DoesNotWaitForAPipe) {
    const support::TemporaryFolder folder;
    const std::string pipe = (folder.Path() / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::string bytes;
    EXPECT_FALSE(host::ReadStart(pipe, 1, bytes));
    const int writer = open(pipe.c_str(), O_RDWR | O_CLOEXEC);
    EXPECT_EQ(host::ReadStart(pipe, 1, bytes), std::errc::resource_unavailable_try_again);
    close(writer);
    EXPECT_EQ(bytes, "");
}
#endif

#ifdef _WIN32
TEST(SafeFile, NamesThatAreNoUnicodeStopNothing) {
    const wchar_t alone[] = {L'a', 0xD800, L'z', 0};
    EXPECT_EQ(host::Utf8Of(alone), "a\xEF\xBF\xBDz");
}
#endif
