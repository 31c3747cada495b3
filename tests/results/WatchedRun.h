// One run of a made-up project for the tests of this folder: the record that the host hands over,
// a watched file system without any file, and the values that a shot file sets.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <zorbi2/CZorbFEAInformation.h>

#include "tests/support/ResultReaderDouble.h"
#include "tests/support/WatchedPlatform.h"

/// Run 3 of the project "Cover" in D:\Proj\Run03\. A solid project that has nothing.
class WatchedRun {
public:
    WatchedRun();
    ~WatchedRun();
    WatchedRun(const WatchedRun&) = delete;
    WatchedRun& operator=(const WatchedRun&) = delete;

    /// Puts a file into the run's folder.
    void HasFile(const std::string& name);
    /// The result code of an item.
    std::int32_t Check(std::int32_t itemId);
    /// All that happened, in order; the reader's events too, as "reader EVENT".
    const std::vector<std::string>& Events() const { return platform.events; }

    CZorbFEAInformation info;
    std::int32_t flagPrevShot = 0;
    std::int32_t valueShotRunID = 0;
    support::WatchedPlatform platform;
    support::ResultReaderDouble& reader = support::ResultReader();
};

/// A path as the result reader is given it: in the form of the system's file functions.
std::string SystemPath(std::string path);
