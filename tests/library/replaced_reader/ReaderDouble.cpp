// A result reader to put in the place of the bundled one. Reads no file: answers what it was built
// to answer.
#include "quenta/CQuentaResultReader_Manipulator.h"

CQuentaResultReader_Manipulator::CQuentaResultReader_Manipulator() = default;

CQuentaResultReader_Manipulator::~CQuentaResultReader_Manipulator() = default;

int CQuentaResultReader_Manipulator::BeginReading(const char* /*path*/, void* /*options*/) {
    return ZORBI2_DOUBLE_BEGIN_RESULT;
}

long long CQuentaResultReader_Manipulator::GetResultVersion() {
    return ZORBI2_DOUBLE_VERSION;
}

void CQuentaResultReader_Manipulator::EndReading() {}
