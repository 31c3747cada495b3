// Puts the engine into a world of files in memory for the length of an execution. Unlike
// support::WatchedPlatform it notes nothing on the way: thousands of executions a second pass here.
#pragma once

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/PlatformCalls.h"

namespace fuzz {

/// While one lives, no call of the engine reaches the disk or the debugger output. One at a time.
class MemoryPlatform {
public:
    MemoryPlatform();
    ~MemoryPlatform();
    MemoryPlatform(const MemoryPlatform&) = delete;
    MemoryPlatform& operator=(const MemoryPlatform&) = delete;

    /// Whether a path exists. Nothing does unless a target says so.
    std::function<bool(std::string_view path)> exists;
    /// The bytes of every file that is opened for reading; null when none can be.
    const std::string* readable = nullptr;
    /// What was written, by path.
    std::map<std::string, std::string, std::less<>> written;
    /// Whether a file that was opened for writing is still open.
    bool IsWriting() const { return writing_ != nullptr; }

private:
    friend struct MemoryCalls;
    platform::Calls systemCalls_;
    std::FILE* reading_ = nullptr;    ///< which the engine deliberately leaves open
    std::string* writing_ = nullptr;  ///< in `written`
};

/// Ends the program with a message, by which libFuzzer notices that a promise is broken.
[[noreturn]] void Break(const std::string& promise);

inline void Expect(bool isKept, const char* promise) {
    if (!isKept) {
        Break(promise);
    }
}

}  // namespace fuzz
