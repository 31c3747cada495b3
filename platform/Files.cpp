#include "platform/Files.h"

#include "platform/PlatformCalls.h"

namespace platform {

bool PathExists(const std::string& path) {
    return CurrentCalls().pathExists(path.c_str());
}

std::FILE* OpenForReading(const std::string& path) {
    return CurrentCalls().openFile(path.c_str(), "r");
}

TextFile::TextFile(const std::string& path) : file_(CurrentCalls().openFile(path.c_str(), "w")) {}

TextFile::~TextFile() {
    if (file_ != nullptr) {
        CurrentCalls().closeFile(file_);
    }
}

void TextFile::Write(const std::string& text) {
    if (file_ != nullptr) {
        CurrentCalls().writeText(text.c_str(), file_);
    }
}

}  // namespace platform
