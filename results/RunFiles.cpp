#include "results/RunFiles.h"

#include <stdexcept>

#include "platform/Files.h"
#include "platform/Text.h"

namespace results {

namespace {

constexpr std::int32_t voxelResults = 1;

/// The part of a result file's name between run tag and extension.
std::string_view NameSuffix(const CZorbFEAInformation& info, std::string_view upperExtension) {
    if (upperExtension == ".CRP") {
        return "_medi";
    }
    if (upperExtension == ".K5O" && info.voxelFlag == voxelResults) {
        return "_vox";
    }
    return {};
}

}  // namespace

std::string RunTag(std::int32_t runNumber) {
    std::string tag;
    if (runNumber < 10) {  // a negative run too, which becomes "0-1": deliberate
        tag += '0';
    }
    return tag += std::to_string(runNumber);
}

void EndInBackslash(std::string& folder) {
    if (folder.empty() || folder.back() != '\\') {
        folder += '\\';
    }
}

std::string ControlFilePath(const std::string& folder, const std::string& name, std::int32_t run,
                            const std::string& extension) {
    if (folder.empty()) {
        throw std::out_of_range("invalid string position");
    }
    std::string path = folder;
    EndInBackslash(path);
    return path + name + RunTag(run) + "." + extension;
}

std::string ResultBasePath(const CZorbFEAInformation& info) {
    constexpr std::size_t longestEnding = 24;  // run tag, suffix and extension: one allocation
    std::string path;
    path.reserve(info.projectFolder.size() + info.projectName.size() + longestEnding);
    return path.append(info.projectFolder).append(info.projectName).append(RunTag(info.runNumber));
}

bool ResultFiles::LookFor(std::string_view extension) {
    const std::string upperExtension = platform::UpperCased(extension);
    const bool exists = platform::PathExists(PathOf(NameSuffix(info_, upperExtension), extension));
    // Looked for although the answer does not count: deliberate.
    platform::PathExists(PathOf("", upperExtension));
    return exists;
}

const std::string& ResultFiles::PathOf(std::string_view suffix, std::string_view extension) {
    if (baseSize_ == 0) {
        EndInBackslash(info_.projectFolder);  // the change stays in the record
        path_ = ResultBasePath(info_);
        baseSize_ = path_.size();
    }
    path_.resize(baseSize_);
    return path_.append(suffix).append(extension);
}

bool PreviousShotFileExists(const CZorbFEAInformation& info, std::int32_t previousRun,
                            const std::string& extension) {
    const std::string tag = RunTag(previousRun);
    const std::string projectRoot = info.projectFolder.substr(0, info.projectFolder.rfind("Run"));
    return platform::PathExists(projectRoot + "Run" + tag + "\\" + info.projectName + tag +
                                extension);
}

}  // namespace results
