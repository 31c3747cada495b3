// Files as the engine uses them: does a path exist, read lines, write a text.
#pragma once

#include <cstdio>
#include <string>

namespace platform {

/// Whether a file or a folder exists at the path; any failure to find out counts as "no".
bool PathExists(const std::string& path);

/// Opens a text file for reading; null when it cannot be opened. The caller owns the stream.
std::FILE* OpenForReading(const std::string& path);

/// A text file created anew, closed at the end of its life. A file that cannot be created takes
/// what is written and drops it.
class TextFile {
public:
    explicit TextFile(const std::string& path);
    ~TextFile();
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    void Write(const std::string& text);

private:
    std::FILE* file_;
};

}  // namespace platform
