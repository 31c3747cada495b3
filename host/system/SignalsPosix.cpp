// POSIX: a signal that comes during a blocking call ends that call.
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <ctime>

#include "system/Signals.h"

namespace host {

namespace {

/// With which people, shells and batch systems end a process.
constexpr int endingSignals[] = {SIGHUP,  SIGINT,    SIGQUIT, SIGTERM, SIGXCPU,
                                 SIGALRM, SIGVTALRM, SIGPROF, SIGUSR1, SIGUSR2};

volatile sig_atomic_t signalThatCame = 0;
volatile sig_atomic_t whenItCame = 0;  // in milliseconds

/// Of a clock that is never set, cut to what fits.
std::uint32_t Milliseconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint32_t>(now.tv_sec * 1000 + now.tv_nsec / 1'000'000);
}

/// Some programs tell a process and its group: what comes at once is not another signal. The alarm
/// ends calls that block only after the signal came.
void Keep(int number) {
    constexpr std::uint32_t later = 1000;
    const bool isFirst = signalThatCame == 0;
    if (isFirst) {
        signalThatCame = number;
        whenItCame = static_cast<sig_atomic_t>(Milliseconds());
    } else if (number != SIGALRM &&
               Milliseconds() - static_cast<std::uint32_t>(whenItCame) >= later) {
        signal(number, SIG_DFL);
        raise(number);
    }
    if (isFirst || number == SIGALRM) {
        alarm(1);
    }
}

}  // namespace

void KeepSignals() {
    for (const int number : endingSignals) {
        struct sigaction action {};
        sigaction(number, nullptr, &action);
        if (action.sa_handler == SIG_DFL) {  // "nohup" and its like have their way
            action.sa_handler = Keep;
            action.sa_flags = 0;
            sigaction(number, &action, nullptr);
        }
    }
}

bool IsInterrupted() {
    return signalThatCame != 0;
}

void EndAsSignaled() {
    if (signalThatCame != 0) {
        signal(signalThatCame, SIG_DFL);
        raise(signalThatCame);
    }
}

}  // namespace host
