// The result reader of the unit tests: answers what a test sets and notes what it is asked.
#pragma once

#include <string>
#include <vector>

namespace support {

struct ResultReaderDouble {
    int beginResult = 1;              ///< what BeginReading returns
    long long version = 0;            ///< what GetResultVersion returns
    std::vector<std::string> events;  ///< "begin PATH", "version", "end", in order
    /// When set, takes each event too, as "reader EVENT": the order among other events shows there.
    std::vector<std::string>* sharedEvents = nullptr;
};

/// The one that the engine meets. Set it at the start of a test that depends on it.
ResultReaderDouble& ResultReader();

}  // namespace support
