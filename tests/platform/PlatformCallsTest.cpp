#include "platform/PlatformCalls.h"

#include <gtest/gtest.h>

#include "platform/Files.h"
#include "tests/support/TemporaryFolder.h"

TEST(PlatformCalls, AreTheSystemsOwnUntilATestReplacesThem) {
    const platform::Calls system = platform::SystemCalls();
    const platform::Calls& current = platform::CurrentCalls();
    EXPECT_EQ(current.pathExists, system.pathExists);
    EXPECT_EQ(current.openFile, system.openFile);
    EXPECT_EQ(current.writeText, system.writeText);
    EXPECT_EQ(current.closeFile, system.closeFile);
    EXPECT_EQ(current.traceLine, system.traceLine);
}

TEST(PlatformCalls, ReplacedEntryIsUsedUntilItIsPutBack) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.k5o", "1004");
    const platform::Calls before = platform::CurrentCalls();
    platform::CurrentCalls().pathExists = [](const char*) { return false; };
    EXPECT_FALSE(platform::PathExists(folder.EnginePath("Cover03.k5o")));
    platform::CurrentCalls() = before;
    EXPECT_TRUE(platform::PathExists(folder.EnginePath("Cover03.k5o")));
}
