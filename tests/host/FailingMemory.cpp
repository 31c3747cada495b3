// Preloaded into zorbi2: makes one allocation fail, the one that ZORBI2_FAIL_AT numbers, and with
// ZORBI2_FAIL_ON all that follow; those of the C library too. In the end it writes their number
// into ZORBI2_COUNT_FILE.
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#define EXPORTED [[gnu::visibility("default")]]

// The C library's own, under the names that it has for those who replace them.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
}

namespace {

long Number(const char* text) {
    return text == nullptr ? 0 : std::strtol(text, nullptr, 10);
}

/// Counts from before main() to the end of the process.
struct Allocations {
    bool isCounting = true;  // not before it is made, nor behind its end
    const long first = Number(std::getenv("ZORBI2_FAIL_AT"));
    const bool failsOn = std::getenv("ZORBI2_FAIL_ON") != nullptr;
    long number = 0;

    bool NextFails() {
        number += isCounting ? 1 : 0;
        const bool fails = isCounting && (number == first || (failsOn && number > first));
        errno = fails ? ENOMEM : errno;
        return fails;
    }

    ~Allocations() {
        isCounting = false;
        const char* const path = std::getenv("ZORBI2_COUNT_FILE");
        if (std::FILE* const file = path == nullptr ? nullptr : std::fopen(path, "w")) {
            std::fprintf(file, "%ld", number);
            std::fclose(file);
        }
    }
};

Allocations allocations;

}  // namespace

extern "C" {

EXPORTED void* malloc(std::size_t size) {
    return allocations.NextFails() ? nullptr : __libc_malloc(size);
}

EXPORTED void* calloc(std::size_t count, std::size_t size) {
    return allocations.NextFails() ? nullptr : __libc_calloc(count, size);
}

EXPORTED void* realloc(void* block, std::size_t size) {
    return allocations.NextFails() ? nullptr : __libc_realloc(block, size);
}
}
