// What crosses the boundary between host and library: errors, and memory that one side takes and
// the other gives back.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include <zorbi2/ZorbI2Types.h>

#include "tests/library/HostSystem.h"
#include "tests/library/LibraryProject.h"
#include "tests/library/ScratchFolder.h"
#include "tests/support/Errors.h"

namespace {

using library_tests::ScratchFolder;
using library_tests::SolidProject;
using support::OutOfRangeText;

constexpr int manyTimes = 1000;

class Boundary : public testing::Test {
protected:
    void SetUp() override {
        CZorbFEAInformation project = SolidProject("Run01");
        manager.CreateEngine(&project);
        manager.CreateCMIDataBlock();
        manager.CreateCMIAccess();
        manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
        manager.SetPopItems();
        manager.HasPopItem();
    }

    ScratchFolder folder;
    CZorbI2EngineManager manager;
};

TEST_F(Boundary, OutOfRangeErrorsReachTheHostWithTheirTexts) {
    const std::string subscript = "invalid vector<T> subscript";
    const std::string position = "invalid string position";
    for (int i = 0; i < manyTimes; ++i) {
        ASSERT_EQ(OutOfRangeText([&] { manager.SetItemStatus(kItemCount, 1, 0); }), subscript);
        ASSERT_EQ(OutOfRangeText([&] { manager.SetCMIFileFullPath("", "Cover", 1, "cmi"); }),
                  position);
        ASSERT_EQ(
            OutOfRangeText([&] { manager.SetWeldlineDataStatus(kSolverAnsys, {1.0}, {1.0}); }),
            subscript);
        CZorbI2Item item;
        CZorbI2ItemStatus status;
        ASSERT_EQ(OutOfRangeText([&] { manager.GetPartPopItemByID(kItemCount, &item, &status); }),
                  subscript);
    }
}

TEST_F(Boundary, AfterAnErrorTheManagerGoesOn) {
    OutOfRangeText([&] { manager.SetItemStatus(-1, 1, 0); });
    OutOfRangeText([&] { manager.SetCMIFileFullPath("", "Cover", 1, "cmi"); });

    manager.SetCMIFileFullPath(".", "Cover", 1, "cmi");
    EXPECT_TRUE(manager.WriteCMIFile(0));
    EXPECT_EQ(library_tests::BytesOf("Cover01.cmi").substr(0, 7), "I2-Outp");
}

TEST_F(Boundary, ErrorsCanBeCaughtAsWhatTheyDeriveFrom) {
    EXPECT_THROW(manager.SetItemStatus(kItemCount, 1, 0), std::logic_error);
    EXPECT_THROW(manager.SetItemStatus(kItemCount, 1, 0), std::exception);
}

TEST_F(Boundary, ErrorsUnwindTheHostsOwnFrames) {
    bool unwound = false;
    struct Witness {
        explicit Witness(bool& toSet) : seen(toSet) {}
        ~Witness() { seen = true; }
        bool& seen;
    };
    EXPECT_EQ(OutOfRangeText([&] {
                  const Witness witness(unwound);
                  manager.SetItemStatus(kItemCount, 1, 0);
              }),
              support::kInvalidSubscript);
    EXPECT_TRUE(unwound);
}

TEST_F(Boundary, TextsOfAnyLengthArrive) {
    for (const std::size_t length : {0, 1, 15, 16, 255, 256, 100000}) {
        const std::string folderText(length, 'x');
        manager.SetOutFolder(folderText);
        manager.SetCMIFileFullPath(".", "Cover", 1, "cmi");
        manager.WriteCMIFile(0);
        const std::string text = library_tests::BytesOf("Cover01.cmi");
        EXPECT_NE(text.find("OutFolder = " + folderText + host_system::lineEnd + "MapFile"),
                  std::string::npos)
            << length;
    }
}

TEST_F(Boundary, AMapOfTheHostIsEmptiedAndRefilled) {
    std::map<int, std::string> options;
    for (int i = 0; i < manyTimes; ++i) {
        options[100 + i] = "a label of the host's own, too long for the place inside a string";
    }
    EXPECT_TRUE(manager.GetItemAllOptions(kItemRunner, options));
    EXPECT_EQ(options, (std::map<int, std::string>{{kOptionResultsMissing, "No runners"}}));
}

TEST_F(Boundary, ListsOfTheHostGrowAndShrinkInTheLibrary) {
    for (const std::size_t length : {0, 1, 3, 1000}) {
        CZorbI2WeldlineDataStatus record;
        record.WeldlineAngles.assign(length, -1.0);
        record.ReductionRates.assign(length, -1.0);
        ASSERT_TRUE(manager.GetWeldlinePopData(kSolverMarc, &record));
        EXPECT_EQ(record.WeldlineAngles, (std::vector<double>{30.0, 60.0, 90.0}));
        EXPECT_EQ(record.ReductionRates, (std::vector<double>{0.8, 0.9, 0.95}));
        EXPECT_EQ(record.solverIndex, kSolverMarc);
    }
}

TEST_F(Boundary, ItemsOfTheHostAreOverwrittenWhole) {
    CZorbI2Item item;
    CZorbI2ItemStatus status;
    for (int i = 0; i < manyTimes; ++i) {
        item.title.assign(1000, 't');
        item.options[7] = std::string(1000, 'o');
        ASSERT_TRUE(manager.GetPartPopItem(0, &item, &status));
    }
    EXPECT_EQ(item.itemId, kItemMicroMechanics);
    EXPECT_EQ(item.title, "Mirco mechanics model");
    EXPECT_EQ(
        item.options,
        (std::map<int, std::string>{{kOptionResultsMissing, "No fiber results nor file *.o2w"}}));
    EXPECT_EQ(status.optionValue, kOptionResultsMissing);
}

}  // namespace
