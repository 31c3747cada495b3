#include "system/Memory.h"

#include <new>

namespace host {

namespace {

bool hasLackedMemory = false;

/// Called for each allocation that fails.
void Remember() {
    hasLackedMemory = true;
    throw std::bad_alloc();
}

}  // namespace

void RememberLackOfMemory() {
    std::set_new_handler(Remember);
}

bool HasLackedMemory() {
    return hasLackedMemory;
}

}  // namespace host
