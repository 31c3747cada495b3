// Puts the engine into a made-up world of files for the length of a test, and notes in order what
// it does there.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/PlatformCalls.h"

namespace support {

/// While one lives, no call of the engine reaches the real file system or the debugger output.
/// One at a time.
class WatchedPlatform {
public:
    WatchedPlatform();
    ~WatchedPlatform();
    WatchedPlatform(const WatchedPlatform&) = delete;
    WatchedPlatform& operator=(const WatchedPlatform&) = delete;

    /// Paths that exist, with backslashes as the engine composes them.
    std::set<std::string> existing;
    /// Files that can be opened for reading, with their bytes.
    std::map<std::string, std::string> readable;
    /// Paths that cannot be opened for writing.
    std::set<std::string> unwritable;
    /// What was written, by path.
    std::map<std::string, std::string> written;
    /// What the engine did, in order: "exists PATH", "open MODE PATH", "close PATH", "trace TEXT".
    std::vector<std::string> events;

    /// The events that start with a word, without it: EventsOf("trace").
    std::vector<std::string> EventsOf(const std::string& kind) const;

private:
    platform::Calls systemCalls_;
    std::map<std::FILE*, std::string> openPaths_;
    friend struct WatchedCalls;
};

}  // namespace support
