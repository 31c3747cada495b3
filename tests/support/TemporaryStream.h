// A stream on bytes that are gone when the stream is closed.
#pragma once

#include <cstdio>
#include <string>

namespace support {

/// Opens a binary stream at the start of the bytes; throws std::runtime_error without one.
std::FILE* OpenTemporaryStream(const std::string& bytes);

}  // namespace support
