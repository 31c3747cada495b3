#include "tests/fuzz/MemoryPlatform.h"

#include <cstdlib>

#include "tests/support/TemporaryStream.h"

namespace fuzz {

namespace {

MemoryPlatform* current = nullptr;

/// Stands for the one file that is open for writing; nobody looks into it.
std::FILE* WritingStream() {
    return reinterpret_cast<std::FILE*>(current);
}

}  // namespace

struct MemoryCalls {
    static bool PathExists(const char* path) { return current->exists && current->exists(path); }

    static std::FILE* OpenFile(const char* path, const char* mode) {
        return mode[0] == 'r' ? OpenForReading() : OpenForWriting(path);
    }

    static std::FILE* OpenForReading() {
        if (current->readable == nullptr) {
            return nullptr;
        }
        CloseReading();
        return current->reading_ = support::OpenTemporaryStream(*current->readable);
    }

    static std::FILE* OpenForWriting(const char* path) {
        Expect(!current->IsWriting(), "one file is written at a time");
        current->writing_ = &current->written[path];
        current->writing_->clear();
        return WritingStream();
    }

    static int WriteText(const char* text, std::FILE* file) {
        Expect(current->IsWriting() && file == WritingStream(), "an open file is written");
        *current->writing_ += text;
        return 0;
    }

    static int CloseFile(std::FILE* file) {
        Expect(current->IsWriting() && file == WritingStream(), "an open file is closed");
        current->writing_ = nullptr;
        return 0;
    }

    static void TraceLine(const wchar_t* /*line*/) {}

    static void CloseReading() {
        if (current->reading_ != nullptr) {
            std::fclose(current->reading_);
        }
    }
};

MemoryPlatform::MemoryPlatform() : systemCalls_(platform::CurrentCalls()) {
    Expect(current == nullptr, "one memory platform at a time");
    current = this;
    platform::CurrentCalls() = {MemoryCalls::PathExists, MemoryCalls::OpenFile,
                                MemoryCalls::WriteText, MemoryCalls::CloseFile,
                                MemoryCalls::TraceLine};
}

MemoryPlatform::~MemoryPlatform() {
    MemoryCalls::CloseReading();
    platform::CurrentCalls() = systemCalls_;
    current = nullptr;
}

void Break(const std::string& promise) {
    std::fprintf(stderr, "broken promise: %s\n", promise.c_str());
    std::abort();
}

}  // namespace fuzz
