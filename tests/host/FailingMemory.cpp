// Preloaded into zorbi2: makes one allocation fail, the one that ZORBI2_FAIL_AT numbers.
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

void* Allocate(std::size_t size) noexcept {
    static const char* const numbered = std::getenv("ZORBI2_FAIL_AT");
    static long number = 0;
    const bool fails = numbered != nullptr && ++number == std::strtol(numbered, nullptr, 10);
    return fails ? nullptr : std::malloc(size);
}

}  // namespace

#define EXPORTED [[gnu::visibility("default")]]

EXPORTED void* operator new(std::size_t size) {
    void* block = Allocate(size);
    return block != nullptr ? block : throw std::bad_alloc();
}

EXPORTED void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size);
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
