// Remembers that memory ran out, for what hides it: a stream of the standard library drops the rest
// of a text for which it has no memory.
#pragma once

namespace host {

void RememberLackOfMemory();

/// Whether an allocation failed since then.
bool HasLackedMemory();

}  // namespace host
