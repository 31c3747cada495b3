// Stand-in for the suite's result reader: reads the number at the start of the file, nothing else.
// It uses the C library alone, so that a program need not load the C++ library for it.
#include "quenta/CQuentaResultReader_Manipulator.h"

#include <array>
#include <cstdio>
#include <limits>
#include <memory>
#include <optional>

namespace {

/// The number at the start of the file. Empty when the file cannot be read, starts otherwise, or
/// has a number beyond 64 bits.
std::optional<long long> NumberAtStart(const char* path) {
    constexpr long long largest = std::numeric_limits<long long>::max();
    std::optional<long long> number;
    std::array<char, 64> buffer;  // of more, nothing would be used
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path, "r"), std::fclose);
    if (!file) {
        return number;
    }
    std::setvbuf(file.get(), buffer.data(), _IOFBF, buffer.size());
    for (int next = std::fgetc(file.get()); next >= '0' && next <= '9';
         next = std::fgetc(file.get())) {
        const int digit = next - '0';
        const long long before = number.value_or(0);
        if (before > (largest - digit) / 10) {
            return std::nullopt;
        }
        number = before * 10 + digit;
    }
    return number;
}

}  // namespace

CQuentaResultReader_Manipulator::CQuentaResultReader_Manipulator() = default;

CQuentaResultReader_Manipulator::~CQuentaResultReader_Manipulator() {
    EndReading();
}

int CQuentaResultReader_Manipulator::BeginReading(const char* path, void* /*options*/) {
    constexpr int success = 0;
    constexpr int failure = 1;
    const std::optional<long long> version = NumberAtStart(path);
    version_ = version.value_or(0);
    return version ? success : failure;
}

long long CQuentaResultReader_Manipulator::GetResultVersion() {
    return version_;
}

void CQuentaResultReader_Manipulator::EndReading() {
    version_ = 0;
}
