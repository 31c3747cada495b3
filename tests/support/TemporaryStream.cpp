#include "tests/support/TemporaryStream.h"

#include <cstddef>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>

namespace support {

namespace {

#ifdef _WIN32

// tmpfile would put its files into the root folder of the drive, where users may not write and
// other processes' files may have the same names.
std::FILE* Open(std::size_t /*size*/) {
    static const std::string start =
        (std::filesystem::temp_directory_path() /
         ("zorbi2-test-" + std::to_string(std::random_device()()) + "-"))
            .string();
    static unsigned number = 0;
    const char* const shortLivedAndDeletedOnClose = "w+bTD";
    return std::fopen((start + std::to_string(number++)).c_str(), shortLivedAndDeletedOnClose);
}

#else

// In memory: tests and fuzzing open streams by the thousand.
std::FILE* Open(std::size_t size) {
    return fmemopen(nullptr, size + 1, "w+");
}

#endif

}  // namespace

std::FILE* OpenTemporaryStream(const std::string& bytes) {
    std::FILE* const stream = Open(bytes.size());
    if (stream == nullptr || std::fwrite(bytes.data(), 1, bytes.size(), stream) != bytes.size()) {
        throw std::runtime_error("the test cannot make a temporary stream");
    }
    std::rewind(stream);
    return stream;
}

}  // namespace support
