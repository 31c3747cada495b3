// Preloaded into zorbi2: makes one allocation fail, the one that ZORBI2_FAIL_AT numbers, and with
// ZORBI2_FAIL_ON all that follow. In the end it writes their number into ZORBI2_COUNT_FILE.
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

long Number(const char* text) {
    return text == nullptr ? 0 : std::strtol(text, nullptr, 10);
}

/// Counts from the first allocation, which is before main(), to the end of the process.
struct Allocations {
    const long first = Number(std::getenv("ZORBI2_FAIL_AT"));
    const bool failsOn = std::getenv("ZORBI2_FAIL_ON") != nullptr;
    long number = 0;

    bool NextFails() {
        ++number;
        return first != 0 && (number == first || (failsOn && number > first));
    }

    ~Allocations() {
        const char* const path = std::getenv("ZORBI2_COUNT_FILE");
        if (std::FILE* const file = path == nullptr ? nullptr : std::fopen(path, "w")) {
            std::fprintf(file, "%ld", number);
            std::fclose(file);
        }
    }
};

void* Allocate(std::size_t size) noexcept {
    static Allocations allocations;
    return allocations.NextFails() ? nullptr : std::malloc(size);
}

}  // namespace

#define EXPORTED [[gnu::visibility("default")]]

// Like those of the standard library, which tell the program's handler.
EXPORTED void* operator new(std::size_t size) {
    if (void* const block = Allocate(size)) {
        return block;
    }
    if (const std::new_handler handler = std::get_new_handler()) {
        handler();
    }
    throw std::bad_alloc();
}

EXPORTED void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

EXPORTED void operator delete(void* block) noexcept {
    std::free(block);
}

EXPORTED void operator delete(void* block, std::size_t /*size*/) noexcept {
    std::free(block);
}

EXPORTED void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
    std::free(block);
}
