#include "tests/support/FailingAllocations.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

using support::Address;
using support::AddressOf;

/// A list of a fixed size, because it must not allocate.
template <std::size_t capacity>
class AddressList {
public:
    void Clear() { size_ = 0; }
    const Address* begin() const { return addresses_.data(); }
    const Address* end() const { return addresses_.data() + size_; }

    void Add(Address address) {
        if (size_ == capacity) {
            std::fputs("FailingAllocations: too many allocations for one watch\n", stderr);
            std::abort();
        }
        addresses_[size_++] = address;
    }

    bool Remove(Address address) {
        for (std::size_t place = size_; place-- > 0;) {
            if (addresses_[place] == address) {
                addresses_[place] = addresses_[--size_];
                return true;
            }
        }
        return false;
    }

private:
    std::array<Address, capacity> addresses_;
    std::size_t size_ = 0;
};

/// A set of addresses, in many short lists because each is searched from end to end.
class AddressSet {
public:
    std::size_t Size() const { return size_; }

    void Clear() {
        for (auto& list : lists_) {
            list.Clear();
        }
        size_ = 0;
    }

    void Add(Address address) {
        ListFor(address).Add(address);
        ++size_;
    }

    void Remove(Address address) {
        if (ListFor(address).Remove(address)) {
            --size_;
        }
    }

private:
    using List = AddressList<500>;

    List& ListFor(Address address) { return lists_[address / 16 % lists_.size()]; }

    std::array<List, 256> lists_;
    std::size_t size_ = 0;
};

struct Watch {
    AddressSet live;
    AddressList<100000> freed;
    std::size_t count = 0;
    bool mayFail = false;
    bool failsFromThenOn = false;
    bool hasFailed = false;
    std::size_t failingNumber = 0;

    void Start() {
        live.Clear();
        freed.Clear();
        count = 0;
        mayFail = false;
        hasFailed = false;
    }

    /// Counts one allocation and says whether it is to fail.
    bool NextFails() {
        const std::size_t number = count++;
        const bool fails =
            mayFail && (failsFromThenOn ? number >= failingNumber : number == failingNumber);
        hasFailed = hasFailed || fails;
        return fails;
    }
};

Watch watch;
thread_local bool isWatched = false;
thread_local int unwatchedDepth = 0;

void* Allocated(std::size_t size) noexcept {
    if (!isWatched || unwatchedDepth > 0) {
        return std::malloc(std::max<std::size_t>(size, 1));
    }
    if (watch.NextFails()) {
        return nullptr;
    }
    void* const block = std::malloc(std::max<std::size_t>(size, 1));
    watch.live.Add(AddressOf(block));
    return block;
}

void* AllocatedOrThrow(std::size_t size) {
    void* const block = Allocated(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void Free(void* block) noexcept {
    if (isWatched && block != nullptr) {
        watch.live.Remove(AddressOf(block));
        watch.freed.Add(AddressOf(block));
    }
    std::free(block);
}

}  // namespace

void* operator new(std::size_t size) {
    return AllocatedOrThrow(size);
}

void* operator new[](std::size_t size) {
    return AllocatedOrThrow(size);
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocated(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocated(size);
}

void operator delete(void* block) noexcept {
    Free(block);
}

void operator delete[](void* block) noexcept {
    Free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    Free(block);
}

void operator delete[](void* block, std::size_t /*size*/) noexcept {
    Free(block);
}

void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
    Free(block);
}

void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
    Free(block);
}

namespace support {

Address AddressOf(const void* block) {
    return reinterpret_cast<Address>(block);
}

FailingAllocations::FailingAllocations() {
    watch.Start();
    isWatched = true;
}

FailingAllocations::FailingAllocations(std::size_t number, Mode mode) : FailingAllocations() {
    Start(number, mode);
}

FailingAllocations::~FailingAllocations() {
    isWatched = false;
}

void FailingAllocations::Start(std::size_t number, Mode mode) {
    watch.mayFail = true;
    watch.failsFromThenOn = mode == Mode::fromThenOn;
    watch.failingNumber = watch.count + number;
    watch.hasFailed = false;
}

void FailingAllocations::Stop() {
    watch.mayFail = false;
}

bool FailingAllocations::HasFailed() const {
    return watch.hasFailed;
}

std::size_t FailingAllocations::Count() const {
    return watch.count;
}

std::size_t FailingAllocations::Live() const {
    return watch.live.Size();
}

bool FailingAllocations::FreedInOrder(const std::vector<Address>& blocks) const {
    const Address* place = watch.freed.begin();
    for (const Address block : blocks) {
        place = std::find(place, watch.freed.end(), block);
        if (place == watch.freed.end()) {
            return false;
        }
        ++place;
    }
    return true;
}

UnwatchedAllocations::UnwatchedAllocations() {
    ++unwatchedDepth;
}

UnwatchedAllocations::~UnwatchedAllocations() {
    --unwatchedDepth;
}

}  // namespace support
