// Makes one allocation of an operation fail, or all from one on, and tells what the operation left
// behind. The unit tests' operator new and delete are here too.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace support {

/// Where a block lies or lay. A number, because pointers are not for use once the block is freed.
using Address = std::uintptr_t;

Address AddressOf(const void* block);

/// While one lives, it watches what the thread that made it allocates with operator new. One at a
/// time; it makes no allocation itself.
class FailingAllocations {
public:
    enum class Mode { once, fromThenOn };

    /// Watches; nothing fails yet.
    FailingAllocations();
    /// Watches, and starts the failing at once.
    FailingAllocations(std::size_t number, Mode mode);
    ~FailingAllocations();
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;

    /// Makes allocation `number` fail, counted from now and from 0, or that and all after it.
    void Start(std::size_t number, Mode mode);
    /// Ends the failing. The watching goes on.
    void Stop();

    /// Whether an allocation failed since the failing started.
    bool HasFailed() const;
    /// Number of allocations so far, the failed ones included.
    std::size_t Count() const;
    /// Number of blocks that were allocated since the start and not given back.
    std::size_t Live() const;
    /// Whether these blocks were given back since the start, one after the other as listed.
    bool FreedInOrder(const std::vector<Address>& blocks) const;
};

/// While one lives, this thread's allocations neither fail nor count: for what a test's doubles do
/// inside an operation that is watched.
class UnwatchedAllocations {
public:
    UnwatchedAllocations();
    ~UnwatchedAllocations();
    UnwatchedAllocations(const UnwatchedAllocations&) = delete;
    UnwatchedAllocations& operator=(const UnwatchedAllocations&) = delete;
};

}  // namespace support
