#include "tests/support/WatchedPlatform.h"

#include <cstdlib>
#include <stdexcept>

#include "tests/support/FailingAllocations.h"
#include "tests/support/TemporaryStream.h"

namespace support {

namespace {

WatchedPlatform* current = nullptr;

std::string Narrow(const wchar_t* text) {
    std::string narrow;
    for (; *text != L'\0'; ++text) {
        narrow += *text < 256 ? static_cast<char>(*text) : '?';
    }
    return narrow;
}

}  // namespace

struct WatchedCalls {
    static bool PathExists(const char* path) {
        const UnwatchedAllocations unwatched;
        current->events.push_back(std::string("exists ") + path);
        return current->existing.count(path) != 0;
    }

    static std::FILE* OpenFile(const char* path, const char* mode) {
        const UnwatchedAllocations unwatched;
        current->events.push_back(std::string("open ") + mode + " " + path);
        const bool reading = mode[0] == 'r';
        const auto content = current->readable.find(path);
        if (reading ? content == current->readable.end() : current->unwritable.count(path) != 0) {
            return nullptr;
        }
        if (!reading) {
            current->written[path].clear();
        }
        std::FILE* file = OpenTemporaryStream(reading ? content->second : "");
        current->openPaths_[file] = path;
        return file;
    }

    static int WriteText(const char* text, std::FILE* file) {
        const UnwatchedAllocations unwatched;
        current->written[current->openPaths_.at(file)] += text;
        return 0;
    }

    static int CloseFile(std::FILE* file) {
        const UnwatchedAllocations unwatched;
        current->events.push_back("close " + current->openPaths_.at(file));
        current->openPaths_.erase(file);
        return std::fclose(file);
    }

    static void TraceLine(const wchar_t* line) {
        const UnwatchedAllocations unwatched;
        current->events.push_back("trace " + Narrow(line));
    }
};

WatchedPlatform::WatchedPlatform() : systemCalls_(platform::CurrentCalls()) {
    if (current != nullptr) {
        throw std::logic_error("only one watched platform at a time");
    }
    current = this;
    platform::CurrentCalls() = {WatchedCalls::PathExists, WatchedCalls::OpenFile,
                                WatchedCalls::WriteText, WatchedCalls::CloseFile,
                                WatchedCalls::TraceLine};
}

WatchedPlatform::~WatchedPlatform() {
    platform::CurrentCalls() = systemCalls_;
    current = nullptr;
    for (const auto& [file, path] : openPaths_) {
        std::fclose(file);  // which the engine deliberately leaves open
    }
}

std::vector<std::string> WatchedPlatform::EventsOf(const std::string& kind) const {
    std::vector<std::string> found;
    for (const std::string& event : events) {
        if (event.compare(0, kind.size() + 1, kind + " ") == 0) {
            found.push_back(event.substr(kind.size() + 1));
        }
    }
    return found;
}

}  // namespace support
