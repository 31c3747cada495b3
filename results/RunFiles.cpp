#include "results/RunFiles.h"

#include <stdexcept>

#include "platform/Files.h"
#include "platform/Text.h"

namespace results {

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

bool ResultFiles::LookFor(const ResultExtension& extension) {
    constexpr std::int32_t voxelResults = 1;
    const std::string_view suffix =
        info_.voxelFlag == voxelResults ? extension.voxelSuffix : extension.suffix;
    const bool exists = platform::PathExists(PathOf(suffix, extension.text));
    // Looked for although the answer does not count: deliberate.
    platform::PathExists(PathOf({}, extension.upper));
    return exists;
}

const std::string& ResultFiles::PathOf(std::string_view suffix,
                                       const ResultExtension::Characters& extension) {
    if (baseSize_ == 0) {
        EndInBackslash(info_.projectFolder);  // the change stays in the record
        path_ = ResultBasePath(info_);
        baseSize_ = path_.size();
    }
    path_.resize(baseSize_);
    if (!suffix.empty()) {
        path_ += suffix;
    }
    return path_.append(extension.data(), extension.size());
}

bool PreviousShotFileExists(const CZorbFEAInformation& info, std::int32_t previousRun,
                            const std::string& extension) {
    const std::string tag = RunTag(previousRun);
    const std::string projectRoot = info.projectFolder.substr(0, info.projectFolder.rfind("Run"));
    return platform::PathExists(projectRoot + "Run" + tag + "\\" + info.projectName + tag +
                                extension);
}

}  // namespace results
