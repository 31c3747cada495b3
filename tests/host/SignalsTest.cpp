// Signals of POSIX, each test in a process of its own.
#ifndef _WIN32
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

#include "system/Signals.h"

namespace {

void SleepUntilTheAlarm() {
    sleep(10);  // ended by it
}

}  // namespace

TEST(SignalsDeathTest, EndTheProcessOnlyWhenItIsReady) {
    const auto ends = [] {
        host::KeepSignals();
        raise(SIGTERM);
        raise(SIGINT);  // as by a program that tells the process and its group
        if (host::IsInterrupted()) {
            host::EndAsSignaled();
        }
    };
    EXPECT_EXIT(ends(), testing::KilledBySignal(SIGTERM), "");
}

TEST(SignalsDeathTest, EndTheProcessAtOnceWhenTheyComeAgainLater) {
    const auto ends = [] {
        host::KeepSignals();
        raise(SIGTERM);
        SleepUntilTheAlarm();
        raise(SIGINT);
    };
    EXPECT_EXIT(ends(), testing::KilledBySignal(SIGINT), "");
}

TEST(SignalsDeathTest, EndTheProcessHoweverOftenTheyCome) {
    const auto ends = [] {
        constexpr unsigned lessThanASecond = 300'000;
        signal(SIGALRM, SIG_IGN);
        host::KeepSignals();
        for (int i = 0; i < 10; ++i) {
            raise(SIGINT);
            usleep(lessThanASecond);
        }
    };
    EXPECT_EXIT(ends(), testing::KilledBySignal(SIGINT), "");
}

TEST(SignalsDeathTest, StayIgnored) {
    const auto ends = [] {
        signal(SIGHUP, SIG_IGN);
        host::KeepSignals();
        raise(SIGHUP);
        _exit(host::IsInterrupted() ? 1 : 0);
    };
    EXPECT_EXIT(ends(), testing::ExitedWithCode(0), "");
}
#endif
