// Windows: the console tells of Ctrl-C and its like on a thread of its own.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <atomic>
#include <cstdlib>

#include "system/Signals.h"

namespace host {

namespace {

std::atomic<bool> isInterrupted = false;

BOOL WINAPI Keep(DWORD event) {
    if (isInterrupted.exchange(true)) {
        return FALSE;  // a second one: the default, which ends the process
    }
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) {
        Sleep(INFINITE);  // the system ends the process when this returns
    }
    return TRUE;
}

}  // namespace

void KeepSignals() {
    SetConsoleCtrlHandler(Keep, TRUE);
}

bool IsInterrupted() {
    return isInterrupted;
}

void EndAsSignaled() {
    constexpr unsigned endedByControlC = 0xC000013A;
    if (isInterrupted) {
        std::exit(static_cast<int>(endedByControlC));
    }
}

}  // namespace host
