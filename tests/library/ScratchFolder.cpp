#include "tests/library/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace library_tests {

namespace {

std::string FolderOfRunningTest() {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(test.test_suite_name()) + "." + test.name();
    std::replace(name.begin(), name.end(), '/', '-');
    return "scratch/" + name;
}

}  // namespace

ScratchFolder::ScratchFolder() {
    const std::filesystem::path folder = FolderOfRunningTest();
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);
}

ScratchFolder::~ScratchFolder() {
    std::filesystem::current_path("../..");
}

void AddFile(const std::filesystem::path& path, const std::string& bytes) {
    if (path.has_parent_path()) {
        std::filesystem::create_directories(path.parent_path());
    }
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    if (!file.flush()) {
        throw std::runtime_error("the test cannot create " + path.string());
    }
}

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("there is no file " + path.string());
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace library_tests
