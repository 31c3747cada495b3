// Stand-in for the suite's result reader: reads the number at the start of the file, nothing else.
#include "quenta/CQuentaResultReader_Manipulator.h"

#include <fstream>

namespace {

struct State {
    long long version = 0;
};

State& StateOf(void* state) {
    return *static_cast<State*>(state);
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
    std::ifstream file(path);
    file.imbue(std::locale::classic());
    const int first = file.peek();
    if (first < '0' || first > '9') {
        return failure;
    }
    long long version = 0;
    if (!(file >> version)) {
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
