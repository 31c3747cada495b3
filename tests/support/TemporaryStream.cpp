#include "tests/support/TemporaryStream.h"

#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>

namespace support {

namespace {

#ifdef _WIN32

// tmpfile would put its files into the root folder of the drive, where users may not write and
// other processes' files may have the same names.
std::FILE* Open() {
    static const std::string start =
        (std::filesystem::temp_directory_path() /
         ("zorbi2-test-" + std::to_string(std::random_device()()) + "-"))
            .string();
    static unsigned number = 0;
    const char* const shortLivedAndDeletedOnClose = "w+bTD";
    return std::fopen((start + std::to_string(number++)).c_str(), shortLivedAndDeletedOnClose);
}

#else

std::FILE* Open() {
    return std::tmpfile();
}

#endif

}  // namespace

std::FILE* OpenTemporaryStream() {
    std::FILE* const stream = Open();
    if (stream == nullptr) {
        throw std::runtime_error("the test cannot make a temporary file");
    }
    return stream;
}

}  // namespace support
