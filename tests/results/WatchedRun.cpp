#include "tests/results/WatchedRun.h"

#include <algorithm>
#include <filesystem>

#include "results/ResultChecks.h"

WatchedRun::WatchedRun() {
    info.projectName = "Cover";
    info.runNumber = 3;
    info.projectFolder = "D:\\Proj\\Run03\\";
    reader = {};
    reader.sharedEvents = &platform.events;
}

WatchedRun::~WatchedRun() {
    reader = {};
}

void WatchedRun::HasFile(const std::string& name) {
    platform.existing.insert("D:\\Proj\\Run03\\" + name);
}

std::int32_t WatchedRun::Check(std::int32_t itemId) {
    results::Run run{info, flagPrevShot, valueShotRunID};
    return results::CheckResults(run, itemId);
}

std::string SystemPath(std::string path) {
    const bool hasBackslashes = std::filesystem::path::preferred_separator == '\\';
    std::replace(path.begin(), path.end(), '\\', hasBackslashes ? '\\' : '/');
    return path;
}
