// Whole passes: what the manager writes is, byte for byte, the committed file of the pass's name.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/golden/Passes.h"
#include "tests/golden/RunPass.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

using golden::Pass;

namespace {

const fs::path goldenFolder = fs::path(ZORBI2_TEST_DATA) / "golden";

std::string GoldenBytes(const Pass& pass) {
    std::ifstream file(goldenFolder / (pass.name + ".cmi"), std::ios::binary);
    if (!file) {
        throw std::runtime_error("no committed file for " + pass.name);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A text with "\n" line ends as a text file of the system holds it.
std::string WithNativeLineEnds(const std::string& text) {
#ifdef _WIN32
    const std::string lineEnd = "\r\n";
#else
    const std::string lineEnd = "\n";
#endif
    std::string native;
    for (const char letter : text) {
        native += letter == '\n' ? lineEnd : std::string(1, letter);
    }
    return native;
}

std::vector<Pass> PassesNamed(const std::set<std::string>& names) {
    std::vector<Pass> found;
    for (const Pass& pass : golden::Passes()) {
        if (names.count(pass.name) != 0) {
            found.push_back(pass);
        }
    }
    return found;
}

class GoldenPasses : public testing::TestWithParam<Pass> {};

/// The debug files that checks write fall into the temporary folder.
class GoldenPassesOnDisk : public testing::TestWithParam<Pass> {
protected:
    GoldenPassesOnDisk() { fs::current_path(folder.Path()); }
    ~GoldenPassesOnDisk() override { fs::current_path(earlierPath); }

    const fs::path earlierPath = fs::current_path();
    const support::TemporaryFolder folder;
};

std::string NameOf(const testing::TestParamInfo<Pass>& row) {
    return row.param.name;
}

}  // namespace

TEST_P(GoldenPasses, GivesTheCommittedFile) {
    EXPECT_EQ(golden::RunPass(GetParam()), GoldenBytes(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Pass, GoldenPasses, testing::ValuesIn(golden::Passes()), NameOf);

TEST_P(GoldenPassesOnDisk, GivesTheCommittedFileWithTheSystemsLineEnds) {
    EXPECT_EQ(golden::RunPassOnDisk(GetParam(), folder),
              WithNativeLineEnds(GoldenBytes(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(
    Pass, GoldenPassesOnDisk,
    testing::ValuesIn(PassesNamed({"AnsysOriginal", "AnsysAnnealed", "LsDyna3DMappingToShell",
                                   "ShellAbaqusMapped", "VoxelAnsysMapped", "NoResults",
                                   "UnfilledPart", "RunTwelve", "PercentSignsAndUmlauts",
                                   "WeldlinesOfAnsys", "ExampleOfTheFormat"})),
    NameOf);

TEST(GoldenFiles, EachBelongsToOnePass) {
    std::multiset<std::string> passNames;
    for (const Pass& pass : golden::Passes()) {
        passNames.insert(pass.name + ".cmi");
    }
    std::multiset<std::string> fileNames;
    for (const fs::directory_entry& entry : fs::directory_iterator(goldenFolder)) {
        if (entry.path().extension() == ".cmi") {
            fileNames.insert(entry.path().filename().string());
        }
    }
    EXPECT_EQ(fileNames, passNames);
    EXPECT_GE(passNames.size(), 30U);
}
