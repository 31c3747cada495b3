// Stand-in for the suite's result reader: reads the number at the start of the file, nothing else.
#include "quenta/CQuentaResultReader_Manipulator.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <memory>
#include <string>

namespace {

struct State {
    long long version = 0;
};

State& StateOf(void* state) {
    return *static_cast<State*>(state);
}

/// Empty when the file cannot be read or starts otherwise.
std::string DigitsAtStart(const char* path) {
    constexpr std::size_t tooManyDigits = 20;  // for a version, whatever follows
    std::string digits;
    std::array<char, 64> buffer;  // of more, nothing would be used
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path, "r"), std::fclose);
    if (file) {
        std::setvbuf(file.get(), buffer.data(), _IOFBF, buffer.size());
        for (int next = std::fgetc(file.get());
             next >= '0' && next <= '9' && digits.size() < tooManyDigits;
             next = std::fgetc(file.get())) {
            if (digits == "0") {
                digits.clear();
            }
            digits += static_cast<char>(next);
        }
    }
    return digits;
}

}  // namespace

CQuentaResultReader_Manipulator::CQuentaResultReader_Manipulator() : state_(new State) {}

CQuentaResultReader_Manipulator::~CQuentaResultReader_Manipulator() {
    delete &StateOf(state_);
}

int CQuentaResultReader_Manipulator::BeginReading(const char* path, void* /*options*/) {
    constexpr int success = 0;
    constexpr int failure = 1;
    StateOf(state_) = State{};
    const std::string digits = DigitsAtStart(path);
    long long version = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), version);
    if (result.ec != std::errc{}) {
        return failure;
    }
    StateOf(state_).version = version;
    return success;
}

long long CQuentaResultReader_Manipulator::GetResultVersion() {
    return StateOf(state_).version;
}

void CQuentaResultReader_Manipulator::EndReading() {
    StateOf(state_) = State{};
}
