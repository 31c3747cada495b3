// A stream on a file that is gone when the stream is closed.
#pragma once

#include <cstdio>

namespace support {

/// Opens an empty binary file for reading and writing; throws std::runtime_error without one.
std::FILE* OpenTemporaryStream();

}  // namespace support
