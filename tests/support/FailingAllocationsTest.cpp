#include "tests/support/FailingAllocations.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>
#include <vector>

using support::Address;
using support::AddressOf;
using support::FailingAllocations;
using support::UnwatchedAllocations;

namespace {

using Mode = FailingAllocations::Mode;

/// Kept out of line, so that no compiler leaves the allocation out.
std::vector<std::unique_ptr<int>>& Kept() {
    static std::vector<std::unique_ptr<int>> kept;
    return kept;
}

/// Three allocations; which of them succeeded.
std::string ThreeAllocations() {
    std::string succeeded = "---";
    Kept().clear();
    Kept().reserve(3);
    for (char& mark : succeeded) {
        Kept().emplace_back(new (std::nothrow) int);
        mark = Kept().back() ? 'x' : '-';
    }
    return succeeded;
}

}  // namespace

TEST(FailingAllocations, FailsOne) {
    Kept().reserve(3);
    const FailingAllocations failing(1, Mode::once);
    EXPECT_EQ(ThreeAllocations(), "x-x");
    EXPECT_TRUE(failing.HasFailed());
    EXPECT_EQ(failing.Count(), 3U);
    EXPECT_EQ(failing.Live(), 2U);
    Kept().clear();
    EXPECT_EQ(failing.Live(), 0U);
}

TEST(FailingAllocations, FailsFromOneOn) {
    Kept().reserve(3);
    const FailingAllocations failing(1, Mode::fromThenOn);
    EXPECT_EQ(ThreeAllocations(), "x--");
    Kept().clear();
}

TEST(FailingAllocations, CountsFromTheStartOfTheFailing) {
    Kept().reserve(3);
    FailingAllocations failing;
    EXPECT_EQ(ThreeAllocations(), "xxx");
    EXPECT_FALSE(failing.HasFailed());
    failing.Start(2, Mode::once);
    EXPECT_EQ(ThreeAllocations(), "xx-");
    EXPECT_TRUE(failing.HasFailed());
    failing.Start(3, Mode::fromThenOn);
    EXPECT_EQ(ThreeAllocations(), "xxx");
    EXPECT_FALSE(failing.HasFailed());
    failing.Stop();
    EXPECT_EQ(ThreeAllocations(), "xxx");
    Kept().clear();
}

TEST(FailingAllocations, ThrowsWhereTheAllocationMustNotFail) {
    const FailingAllocations failing(0, Mode::once);
    EXPECT_THROW(Kept().emplace_back(std::make_unique<int>(1)), std::bad_alloc);
    EXPECT_EQ(failing.Live(), 0U);
}

TEST(FailingAllocations, LeavesUnwatchedAllocationsAlone) {
    Kept().reserve(3);
    const FailingAllocations failing(0, Mode::fromThenOn);
    {
        const UnwatchedAllocations unwatched;
        EXPECT_EQ(ThreeAllocations(), "xxx");
    }
    EXPECT_EQ(failing.Count(), 0U);
    EXPECT_EQ(failing.Live(), 0U);
    Kept().clear();
}

TEST(FailingAllocations, TellsTheOrderOfFrees) {
    Kept().clear();
    auto first = std::make_unique<int>(1);
    auto second = std::make_unique<int>(2);
    const Address firstBlock = AddressOf(first.get());
    const Address secondBlock = AddressOf(second.get());
    const FailingAllocations watch;
    second.reset();
    EXPECT_FALSE(watch.FreedInOrder({firstBlock}));
    first.reset();
    EXPECT_TRUE(watch.FreedInOrder({secondBlock, firstBlock}));
    EXPECT_FALSE(watch.FreedInOrder({firstBlock, secondBlock}));
}
