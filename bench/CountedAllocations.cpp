// Replaces the global allocation functions. A source of its own, so that the compiler does not see
// through them.
#include "bench/CountedAllocations.h"

#include <cstdlib>
#include <new>

namespace {

long calls = 0;

void* Allocate(std::size_t size) noexcept {
    ++calls;
    return std::malloc(size);
}

}  // namespace

long AllocationsSoFar() {
    return calls;
}

void* operator new(std::size_t size) {
    if (void* memory = Allocate(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t& /*nothrow*/) noexcept {
    return Allocate(size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
