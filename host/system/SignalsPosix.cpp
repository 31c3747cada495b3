// POSIX: a signal that comes during a blocking call ends that call.
#include <unistd.h>

#include <csignal>

#include "system/Signals.h"

namespace host {

namespace {

/// All that end a process, unless they tell of a fault in it or cannot be caught.
constexpr int endingSignals[] = {SIGHUP,  SIGINT,    SIGQUIT, SIGTERM, SIGXCPU,
                                 SIGALRM, SIGVTALRM, SIGPROF, SIGUSR1, SIGUSR2};

volatile sig_atomic_t signalThatCame = 0;

void Keep(int number) {
    if (signalThatCame != 0 && number != SIGALRM) {
        signal(number, SIG_DFL);
        raise(number);
    }
    signalThatCame = signalThatCame != 0 ? signalThatCame : number;
    alarm(1);  // a call that blocks only after the signal is ended by the next one
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
