#include "tests/support/ResultReaderDouble.h"

#include "quenta/CQuentaResultReader_Manipulator.h"
#include "tests/support/FailingAllocations.h"

namespace support {

ResultReaderDouble& ResultReader() {
    static ResultReaderDouble reader;
    return reader;
}

namespace {

void Note(const std::string& event) {
    const UnwatchedAllocations unwatched;
    ResultReaderDouble& reader = ResultReader();
    reader.events.push_back(event);
    if (reader.sharedEvents != nullptr) {
        reader.sharedEvents->push_back("reader " + event);
    }
}

}  // namespace

}  // namespace support

CQuentaResultReader_Manipulator::CQuentaResultReader_Manipulator() : state_(nullptr) {}

CQuentaResultReader_Manipulator::~CQuentaResultReader_Manipulator() = default;

int CQuentaResultReader_Manipulator::BeginReading(const char* path, void* options) {
    const support::UnwatchedAllocations unwatched;
    support::Note(std::string(options == nullptr ? "begin " : "begin with options ") + path);
    return support::ResultReader().beginResult;
}

long long CQuentaResultReader_Manipulator::GetResultVersion() {
    support::Note("version");
    return support::ResultReader().version;
}

void CQuentaResultReader_Manipulator::EndReading() {
    support::Note("end");
}
