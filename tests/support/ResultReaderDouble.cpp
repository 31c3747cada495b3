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

support::ResultReaderDouble& DoubleOf(void* state) {
    return *static_cast<support::ResultReaderDouble*>(state);
}

void Note(support::ResultReaderDouble& reader, const std::string& event) {
    const support::UnwatchedAllocations unwatched;
    reader.events.push_back(event);
    if (reader.sharedEvents != nullptr) {
        reader.sharedEvents->push_back("reader " + event);
    }
}

}  // namespace

CQuentaResultReader_Manipulator::CQuentaResultReader_Manipulator()
    : state_(&support::ResultReader()) {}

CQuentaResultReader_Manipulator::~CQuentaResultReader_Manipulator() = default;

int CQuentaResultReader_Manipulator::BeginReading(const char* path, void* options) {
    const support::UnwatchedAllocations unwatched;
    const std::string call = options == nullptr ? "begin " : "begin with options ";
    Note(DoubleOf(state_), call + path);
    return DoubleOf(state_).beginResult;
}

long long CQuentaResultReader_Manipulator::GetResultVersion() {
    Note(DoubleOf(state_), "version");
    return DoubleOf(state_).version;
}

void CQuentaResultReader_Manipulator::EndReading() {
    Note(DoubleOf(state_), "end");
}
