// POSIX: a signal that comes during a blocking call ends that call.
#include <unistd.h>

#include <csignal>

#include "system/Signals.h"

namespace host {

namespace {

/// With which people, shells and batch systems end a process.
constexpr int endingSignals[] = {SIGHUP,  SIGINT,    SIGQUIT, SIGTERM, SIGXCPU,
                                 SIGALRM, SIGVTALRM, SIGPROF, SIGUSR1, SIGUSR2};

volatile sig_atomic_t signalThatCame = 0;
volatile sig_atomic_t isLater = 0;  // by a second: until then some programs repeat theirs

/// The alarm ends calls that block only after the signal came.
void Keep(int number) {
    if (signalThatCame == 0) {
        signalThatCame = number;
    } else if (number == SIGALRM) {
        isLater = 1;
    } else if (isLater != 0) {
        signal(number, SIG_DFL);
        raise(number);
    }
    alarm(1);
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
