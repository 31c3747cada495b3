// Temporary names: of this machine and process, and not to be guessed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>

#include "system/HostPlatform.h"
#include "system/SafeFile.h"
#include "system/SystemFiles.h"

using testing::EndsWith;
using testing::Not;
using testing::StartsWith;

namespace {

std::string StartOfNames() {
    return "zorbi2-" + host::MachineMark() + '-' + std::to_string(host::ProcessNumber()) + '-';
}

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

#ifdef _WIN32
TEST(SafeFile, NamesThatAreNoUnicodeStopNothing) {
    const wchar_t alone[] = {L'a', 0xD800, L'z', 0};
    EXPECT_EQ(host::Utf8Of(alone), "a\xEF\xBF\xBDz");
}
#endif
