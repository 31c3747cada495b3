// Replaces the global allocation functions to count their calls. A source of its own, so that the
// compiler does not see through them.
#include <atomic>
#include <cstdlib>
#include <new>

std::atomic<long> allocations{0};

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
