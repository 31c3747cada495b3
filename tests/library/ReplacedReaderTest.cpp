// The result reader is a library of its own: another one in its place is used without a rebuild.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <ostream>

#include "tests/library/ScratchFolder.h"

namespace {

namespace fs = std::filesystem;

struct Replacement {
    const char* name;
    const char* reader;   // the library that takes the place
    const char* k5oText;  // what the bundled reader would go by
    const char* answer;   // result code of the fiber orientation
};

// Where another reader answers, the file says the opposite.
const Replacement replacements[] = {
    {"BundledReaderOldVersion", ZORBI2_BUNDLED_READER, "1003", "-2"},
    {"BundledReaderVersion1004", ZORBI2_BUNDLED_READER, "1004", "1"},
    {"Version1003", ZORBI2_READER_1003, "1004", "-2"},
    {"Version1004", ZORBI2_READER_1004, "1003", "1"},
    {"FailureToOpen", ZORBI2_READER_FAILING, "1004", "-2"},
};

void PrintTo(const Replacement& row, std::ostream* out) {
    *out << "\"" << row.k5oText << "\" gives " << row.answer;
}

class ReplacedReader : public testing::TestWithParam<Replacement> {};

TEST_P(ReplacedReader, DecidesOnFiberOrientation) {
    const library_tests::ScratchFolder folder;
    library_tests::AddFile("Cover01.k5o", GetParam().k5oText);
    for (const char* file : {ZORBI2_FIBER_HOST, ZORBI2_ENGINE_LIBRARY}) {
        fs::copy_file(file, fs::path(file).filename());
    }
    fs::copy_file(GetParam().reader, fs::path(ZORBI2_BUNDLED_READER).filename());

    fs::path host = fs::path(".") / fs::path(ZORBI2_FIBER_HOST).filename();
    ASSERT_EQ(std::system((host.make_preferred().string() + " > answer.txt").c_str()), 0);

    EXPECT_EQ(library_tests::BytesOf("answer.txt"), GetParam().answer);
}

INSTANTIATE_TEST_SUITE_P(Readers, ReplacedReader, testing::ValuesIn(replacements),
                         [](const auto& row) { return row.param.name; });

}  // namespace
