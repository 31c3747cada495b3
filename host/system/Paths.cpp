#include "system/Paths.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <fstream>
#include <iostream>
#include <random>

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

std::string Utf8Of(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

bool MayBeElsewhere(const std::string& path) {
    const bool hasDrive =
        path.size() > 1 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0])) != 0;
    return hasDrive || path.rfind("\\\\", 0) == 0;
}

std::string AbsolutePath(const std::string& path, const fs::path& relativeTo) {
    if (MayBeElsewhere(path)) {
        return path;
    }
    const fs::path absolute = (relativeTo / PathOfAny(path)).lexically_normal();
    const bool endsInSeparator = !absolute.has_filename() && absolute.has_relative_path();
    return Utf8Of(endsInSeparator ? absolute.parent_path() : absolute);
}

void CheckFolder(const std::string& folder, const Place& place) {
    std::error_code error;
    if (!fs::is_directory(PathOf(folder), error)) {
        Fail(place, folder + ": " + (error ? error.message() : "not a folder"),
             ExitCode::fileTrouble);
    }
}

namespace {

std::string ReadStream(std::istream& stream, const Place& place) {
    constexpr std::size_t largest = 1 << 18;  // a file may have no end
    std::string bytes;
    char block[4096];
    while (bytes.size() <= largest && (stream.read(block, sizeof block), stream.gcount() > 0)) {
        bytes.append(block, static_cast<std::size_t>(stream.gcount()));
    }
    if (!stream.eof()) {
        FailFor(bytes.size() > largest ? EFBIG : errno, place, "cannot be read");
    }
    return bytes;
}

}  // namespace

std::string ReadFile(const fs::path& file, const Place& place) {
    std::error_code unknown;
    if (fs::is_directory(file, unknown)) {
        FailFor(EISDIR, place, "cannot be read");
    }
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    return ReadStream(stream, place);
}

std::string ReadStandardInput(const Place& place) {
    return ReadStream(std::cin, place);
}

ScratchFolder::ScratchFolder() {
    std::error_code error;
    start_ = fs::current_path(error);
    const fs::path parent = start_ / fs::temp_directory_path(error);
    std::random_device random;
    do {
        path_ = parent / ("zorbi2-" + std::to_string(random()));
    } while (!error && !fs::create_directory(path_, error));
    if (!error) {
        fs::current_path(path_, error);
    }
    if (error) {
        Fail({}, "no temporary folder can be made: " + error.message(), ExitCode::fileTrouble);
    }
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::current_path(start_, ignored);
    fs::remove_all(path_, ignored);
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
