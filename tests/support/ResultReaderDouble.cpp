#include "tests/support/ResultReaderDouble.h"

#include "quenta/CQuentaResultReader_Manipulator.h"

namespace support {

ResultReaderDouble& ResultReader() {
    static ResultReaderDouble reader;
    return reader;
}

}  // namespace support

CQuentaResultReader_Manipulator::CQuentaResultReader_Manipulator() : state_(nullptr) {}

CQuentaResultReader_Manipulator::~CQuentaResultReader_Manipulator() = default;

int CQuentaResultReader_Manipulator::BeginReading(const char* path, void* options) {
    support::ResultReader().events.push_back(
        std::string(options == nullptr ? "begin " : "begin with options ") + path);
    return support::ResultReader().beginResult;
}

long long CQuentaResultReader_Manipulator::GetResultVersion() {
    support::ResultReader().events.push_back("version");
    return support::ResultReader().version;
}

void CQuentaResultReader_Manipulator::EndReading() {
    support::ResultReader().events.push_back("end");
}
