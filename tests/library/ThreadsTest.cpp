// Engines on threads of their own. The thread sanitizer's build runs this alone.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "tests/library/HostSystem.h"
#include "tests/library/ScratchFolder.h"
#include "tests/library/installed_host/WholePass.h"

namespace {

using library_tests::BytesOf;
using library_tests::ScratchFolder;

constexpr int threadCount = 8;
constexpr int passes = 10;  // each leaves a shot file open

std::string OutFolder(int thread) {
    return "out" + std::to_string(thread);
}

/// The file that stands beside the example, with the line ends of this system.
std::string ExpectedControlFile() {
    std::string expected;
    for (const char byte : BytesOf(ZORBI2_EXAMPLE "/expected/Cover02.cmi")) {
        expected += byte == '\n' ? host_system::lineEnd : std::string(1, byte);
    }
    return expected;
}

TEST(Threads, AnEngineOnEachWritesTheSameFile) {
    const ScratchFolder folder;
    std::filesystem::copy(ZORBI2_EXAMPLE, "cover", std::filesystem::copy_options::recursive);
    std::vector<int> written(threadCount);
    {
        std::vector<std::thread> threads;
        for (int thread = 0; thread < threadCount; ++thread) {
            std::filesystem::create_directory(OutFolder(thread));
            threads.emplace_back([thread, &count = written[thread]] {
                for (int pass = 0; pass < passes; ++pass) {
                    count += whole_pass::WriteControlFile(whole_pass::Project("cover\\Run02"),
                                                          OutFolder(thread))
                                 ? 1
                                 : 0;
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
    const std::string expected = ExpectedControlFile();
    for (int thread = 0; thread < threadCount; ++thread) {
        EXPECT_EQ(written[thread], passes) << thread;
        EXPECT_EQ(BytesOf(OutFolder(thread) + "/Cover02.cmi"), expected) << thread;
    }
}

}  // namespace
