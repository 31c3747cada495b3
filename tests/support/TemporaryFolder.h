// A folder of the real file system for the length of a test.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>

namespace support {

/// Created empty under the system's folder for temporary files, removed with all that is in it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        do {
            path_ = std::filesystem::temp_directory_path() /
                    ("zorbi2-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

    /// The path of an entry as the engine composes paths: with backslashes on every system.
    std::string EnginePath(const std::string& name) const {
        std::string path = (path_ / name).string();
        std::replace(path.begin(), path.end(), '/', '\\');
        return path;
    }

    void MakeFolder(const std::string& name) const {
        std::filesystem::create_directory(path_ / name);
    }

    void MakeFile(const std::string& name, const std::string& bytes) const {
        std::ofstream file(path_ / name, std::ios::binary);
        file << bytes;
        if (!file.flush()) {
            throw std::runtime_error("the test cannot write " + name);
        }
    }

    std::string BytesOf(const std::string& name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        if (!file) {
            throw std::runtime_error("there is no file " + name);
        }
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

private:
    std::filesystem::path path_;
};

}  // namespace support
