// A result reader to put in the place of the bundled one: memory runs out in it or, with
// ZORBI2_THROW_NUMBER, it throws what is no exception. It loads the C++ library, which the program
// may not.
#include <cstdlib>
#include <new>

#include "quenta/CQuentaResultReader_Manipulator.h"

CQuentaResultReader_Manipulator::CQuentaResultReader_Manipulator() {
    if (std::getenv("ZORBI2_THROW_NUMBER") != nullptr) {
        throw 1;
    }
    throw std::bad_alloc();
}

CQuentaResultReader_Manipulator::~CQuentaResultReader_Manipulator() = default;

int CQuentaResultReader_Manipulator::BeginReading(const char* /*path*/, void* /*options*/) {
    return 1;
}

long long CQuentaResultReader_Manipulator::GetResultVersion() {
    return 0;
}

void CQuentaResultReader_Manipulator::EndReading() {}
