#include "tests/support/ResultReaderDouble.h"

#include "quenta/CQuentaResultReader_Manipulator.h"
#include "tests/support/FailingAllocations.h"

namespace support {

ResultReaderDouble& ResultReader() {
    static ResultReaderDouble reader;
    return reader;
}

}  // namespace support

namespace {

void Note(const std::string& event) {
    const support::UnwatchedAllocations unwatched;
    support::ResultReaderDouble& reader = support::ResultReader();
    reader.events.push_back(event);
    if (reader.sharedEvents != nullptr) {
        reader.sharedEvents->push_back("reader " + event);
    }
}

}  // namespace

CQuentaResultReader_Manipulator::CQuentaResultReader_Manipulator() = default;

CQuentaResultReader_Manipulator::~CQuentaResultReader_Manipulator() = default;

int CQuentaResultReader_Manipulator::BeginReading(const char* path, void* options) {
    const support::UnwatchedAllocations unwatched;
    const std::string call = options == nullptr ? "begin " : "begin with options ";
    Note(call + path);
    return support::ResultReader().beginResult;
}

long long CQuentaResultReader_Manipulator::GetResultVersion() {
    Note("version");
    return support::ResultReader().version;
}

void CQuentaResultReader_Manipulator::EndReading() {
    Note("end");
}
