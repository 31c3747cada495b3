// Signals that would end the process. They wait until the file at work is finished or abandoned and
// the temporary files are gone; then the process ends as it would have. One source per system.
#pragma once

namespace host {

/// From now on a signal waits for EndAsSignaled. Another one ends the process at once: a second
/// after the first or later, on Windows at any time.
void KeepSignals();

bool IsInterrupted();

/// Ends the process as the signal that came would have. Returns when none came.
void EndAsSignaled();

}  // namespace host
