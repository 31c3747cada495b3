#include "system/Paths.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <fstream>

#include "system/HostPlatform.h"

namespace host {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}

fs::path PathOfAny(std::string utf8) {
    std::ranges::replace(utf8, '\\', '/');
    return PathOf(utf8).make_preferred();
}

bool MayBeElsewhere(const std::string& path) {
    const bool hasDrive =
        path.size() > 1 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0])) != 0;
    return hasDrive || path.rfind("\\\\", 0) == 0;
}

std::string AbsolutePath(const std::string& path, const fs::path& relativeTo) {
    const fs::path absolute = (relativeTo / PathOfAny(path)).lexically_normal();
    const bool endsInSeparator = !absolute.has_filename() && absolute.has_relative_path();
    return Utf8Of(endsInSeparator ? absolute.parent_path() : absolute);
}

void CheckFolder(const std::string& folder, const Place& place) {
    std::error_code error;
    if (!fs::is_directory(PathOf(folder), error)) {
        Fail(place, folder + ": " + (error ? ReasonOf(error) : "not a folder"),
             ExitCode::fileTrouble);
    }
}

std::string ReadBytes(std::istream& stream, std::size_t enough) {
    std::string bytes;
    char block[4096];
    while (bytes.size() < enough && (stream.read(block, sizeof block), stream.gcount() > 0)) {
        bytes.append(block, static_cast<std::size_t>(stream.gcount()));
    }
    return bytes;
}

std::string ReadFile(const fs::path& file, const Place& place) {
    std::error_code unknown;
    const fs::file_status status = fs::status(file, unknown);
    const bool isFolder = fs::is_directory(status);
    if (fs::exists(status) && !isFolder && !fs::is_regular_file(status)) {
        Fail(place, "cannot be read: a pipe or a device, and no file", ExitCode::fileTrouble);
    }
    std::ifstream stream(file, std::ios::binary);
    std::string bytes = ReadBytes(stream, largestFile + 1);
    const bool isTooLarge = bytes.size() > largestFile;
    if (!stream.eof() || isFolder || isTooLarge) {
        FailFor(isFolder ? EISDIR : isTooLarge ? EFBIG : errno, place, "cannot be read");
    }
    return bytes;
}

std::string ReadStandardInput(const Place& place) {
    std::string bytes(largestFile + 1, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), stdin));  // std::cin hides errors
    if (std::ferror(stdin) != 0 || bytes.size() > largestFile) {
        FailFor(bytes.size() > largestFile ? EFBIG : errno, place, "cannot be read");
    }
    return bytes;
}

std::string ForEngine(const std::string& utf8) {
    const std::optional<std::string> text = ToEngineText(utf8);
    if (!text) {
        Fail({}, "\"" + utf8 + "\" has characters that the system's code page does not have",
             ExitCode::fileTrouble);
    }
    return *text;
}

}  // namespace host
