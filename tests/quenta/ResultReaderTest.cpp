// The bundled stand-in for the suite's result reader, in a program of its own: the unit tests of
// the engine replace the class.
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <locale>

#include "quenta/CQuentaResultReader_Manipulator.h"
#include "tests/support/TemporaryFolder.h"

namespace {

struct Outcome {
    bool begins;
    long long version;
    bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
    *out << (outcome.begins ? "begins" : "fails") << ", version " << outcome.version;
}

constexpr Outcome failure = {false, 0};

Outcome Read(CQuentaResultReader_Manipulator& reader, const std::string& path) {
    const bool begins = reader.BeginReading(path.c_str(), nullptr) == 0;
    const long long version = reader.GetResultVersion();
    reader.EndReading();
    return {begins, version};
}

Outcome ReadPath(const std::string& path) {
    CQuentaResultReader_Manipulator reader;
    return Read(reader, path);
}

Outcome ReadFileOf(const std::string& bytes) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.k5o", bytes);
    return ReadPath((folder.Path() / "Cover03.k5o").string());
}

}  // namespace

TEST(ResultReader, TakesTheNumberAtTheStartForTheVersion) {
    EXPECT_EQ(ReadFileOf("1004"), (Outcome{true, 1004}));
    EXPECT_EQ(ReadFileOf("1004\n"), (Outcome{true, 1004}));
    EXPECT_EQ(ReadFileOf("1003\r\n1004\r\n"), (Outcome{true, 1003}));
    EXPECT_EQ(ReadFileOf("0"), (Outcome{true, 0}));
}

TEST(ResultReader, TakesANumberBehindZeros) {
    const std::string zeros(100, '0');
    EXPECT_EQ(ReadFileOf(zeros), (Outcome{true, 0}));
    EXPECT_EQ(ReadFileOf(zeros + "1004"), (Outcome{true, 1004}));
    EXPECT_EQ(ReadFileOf(zeros + "9223372036854775807"), (Outcome{true, 9223372036854775807}));
    EXPECT_EQ(ReadFileOf(zeros + "9223372036854775808"), failure);
    EXPECT_EQ(ReadFileOf("10000000000000000000"), failure);
    EXPECT_EQ(ReadFileOf("1" + zeros), failure);
}

TEST(ResultReader, TakesTheNumberBeforeOtherText) {
    EXPECT_EQ(ReadFileOf("1004 fiber orientation"), (Outcome{true, 1004}));
    EXPECT_EQ(ReadFileOf("1004abc"), (Outcome{true, 1004}));
    EXPECT_EQ(ReadFileOf("1004.9"), (Outcome{true, 1004}));
    EXPECT_EQ(ReadFileOf("1004,5"), (Outcome{true, 1004}));
    EXPECT_EQ(ReadFileOf("1004-5"), (Outcome{true, 1004}));
    EXPECT_EQ(ReadFileOf(std::string("1004\0", 5) + "5"), (Outcome{true, 1004}));
}

TEST(ResultReader, ReadsTheNumberAsADecimalOne) {
    EXPECT_EQ(ReadFileOf("001004"), (Outcome{true, 1004}));
    EXPECT_EQ(ReadFileOf("0x3ec"), (Outcome{true, 0}));
    EXPECT_EQ(ReadFileOf("1e3"), (Outcome{true, 1}));
}

TEST(ResultReader, ReadsVersionsOf64Bits) {
    constexpr long long largest = std::numeric_limits<long long>::max();
    EXPECT_EQ(ReadFileOf("4294968300"), (Outcome{true, 4294968300LL}));
    EXPECT_EQ(ReadFileOf("9223372036854775807"), (Outcome{true, largest}));
}

TEST(ResultReader, FailsOnANumberBeyond64Bits) {
    EXPECT_EQ(ReadFileOf("9223372036854775808"), failure);
    EXPECT_EQ(ReadFileOf(std::string(400, '9')), failure);
}

TEST(ResultReader, FailsOnAFileThatDoesNotStartWithANumber) {
    EXPECT_EQ(ReadFileOf("version 1004"), failure);
    EXPECT_EQ(ReadFileOf("\xef\xbb\xbf"
                         "1004"),
              failure);
    EXPECT_EQ(ReadFileOf(std::string("\0001004", 5)), failure);
    EXPECT_EQ(ReadFileOf("/1004"), failure);
    EXPECT_EQ(ReadFileOf(":1004"), failure);
}

TEST(ResultReader, FailsOnALeadingSpaceOrSign) {
    for (const char* bytes : {" 1004", "\t1004", "\n1004", "+1004", "-1004", ".5"}) {
        EXPECT_EQ(ReadFileOf(bytes), failure) << bytes;
    }
}

TEST(ResultReader, FailsOnAnEmptyFile) {
    EXPECT_EQ(ReadFileOf(""), failure);
}

TEST(ResultReader, FailsOnAMissingFileAndMakesNone) {
    const support::TemporaryFolder folder;
    EXPECT_EQ(ReadPath((folder.Path() / "Cover03.k5o").string()), failure);
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    EXPECT_EQ(ReadPath(""), failure);
}

TEST(ResultReader, FailsOnAFolder) {
    const support::TemporaryFolder folder;
    EXPECT_EQ(ReadPath(folder.Path().string()), failure);
}

TEST(ResultReader, MayBeEndedWithoutAFile) {
    CQuentaResultReader_Manipulator reader;
    reader.EndReading();
    EXPECT_EQ(reader.GetResultVersion(), 0);
    reader.EndReading();
    EXPECT_EQ(reader.GetResultVersion(), 0);
}

TEST(ResultReader, HasVersion0BeforeAndAfterReading) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.k5o", "1004");
    CQuentaResultReader_Manipulator reader;
    EXPECT_EQ(reader.GetResultVersion(), 0);
    reader.BeginReading((folder.Path() / "Cover03.k5o").string().c_str(), nullptr);
    EXPECT_EQ(reader.GetResultVersion(), 1004);
    reader.EndReading();
    EXPECT_EQ(reader.GetResultVersion(), 0);
}

TEST(ResultReader, MayBeUsedForOneFileAfterTheOther) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.k5o", "1004");
    folder.MakeFile("Cover02.k5o", "1003");
    CQuentaResultReader_Manipulator reader;
    EXPECT_EQ(Read(reader, (folder.Path() / "Cover03.k5o").string()), (Outcome{true, 1004}));
    EXPECT_EQ(Read(reader, (folder.Path() / "Cover02.k5o").string()), (Outcome{true, 1003}));
}

TEST(ResultReader, ForgetsTheLastVersionWhenTheNextFileFails) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.k5o", "1004");
    folder.MakeFile("Cover02.k5o", "text");
    CQuentaResultReader_Manipulator reader;
    EXPECT_EQ(reader.BeginReading((folder.Path() / "Cover03.k5o").string().c_str(), nullptr), 0);
    EXPECT_NE(reader.BeginReading((folder.Path() / "Cover02.k5o").string().c_str(), nullptr), 0);
    EXPECT_EQ(reader.GetResultVersion(), 0);
}

TEST(ResultReader, ReadersDoNotShareTheirFiles) {
    const support::TemporaryFolder folder;
    folder.MakeFile("Cover03.k5o", "1004");
    CQuentaResultReader_Manipulator first;
    CQuentaResultReader_Manipulator second;
    first.BeginReading((folder.Path() / "Cover03.k5o").string().c_str(), nullptr);
    second.EndReading();
    EXPECT_EQ(first.GetResultVersion(), 1004);
    EXPECT_EQ(second.GetResultVersion(), 0);
}

TEST(ResultReader, TakesNoGroupingFromTheHostsLocale) {
    struct GermanGrouping : std::numpunct<char> {
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new GermanGrouping));
    EXPECT_EQ(ReadFileOf("1.004"), (Outcome{true, 1}));
    std::locale::global(before);
}
