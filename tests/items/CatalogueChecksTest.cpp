// What the building of the catalogue does in the world of files, call by call.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <zorbi2/ZorbI2Types.h>

#include "tests/support/ResultReaderDouble.h"
#include "tests/support/SampleProject.h"

using support::OpenProject;
using support::ResultFiles;
using testing::Contains;
using testing::ElementsAre;

namespace {

const std::string base = "D:\\Proj\\Run03\\Cover03";

/// "exists" for both spellings, the second of which is upper case and never decides.
void AddTest(std::vector<std::string>& events, const std::string& ending,
             const std::string& upperExtension) {
    events.push_back("exists " + base + ending);
    events.push_back("exists " + base + upperExtension);
}

void AddFiberOrientationCheck(std::vector<std::string>& events) {
    events.push_back("trace @@@ I2Engine Fiber Orientation Results SOLID");
    AddTest(events, ".o2w", ".O2W");
    AddTest(events, ".k5o", ".K5O");
    events.push_back("trace @@@ I2Engine HasFiber=false and .o2w/.k5o file not exist");
}

void AddShotFileCheck(std::vector<std::string>& events) {
    events.push_back("trace @@@ Engine read cmx file");
    events.push_back("trace " + base + ".cmx");
    events.push_back("open r " + base + ".cmx");
    events.push_back("trace @@@ I2Engine .cmx file FlagPrevShot=0");
}

}  // namespace

TEST(CatalogueChecks, OfASolidProjectWithoutFilesInOrder) {
    std::vector<std::string> expected;
    AddFiberOrientationCheck(expected);  // micromechanics
    AddFiberOrientationCheck(expected);  // fiber orientation
    AddShotFileCheck(expected);          // insert fiber material
    AddTest(expected, ".k5f", ".K5F");   // density
    expected.push_back(
        "trace @@@ ZorbI2Engine GetThermalStressResults OstraMesh = false");  // thermal stress
    AddTest(expected, ".k5w", ".K5W");
    expected.push_back("open w ThermalTest.txt");
    AddTest(expected, ".k5w", ".K5W");
    expected.push_back("close ThermalTest.txt");
    AddTest(expected, ".rsf", ".RSF");       // flow-induced stress
    AddTest(expected, ".k5f", ".K5F");       // initial strain
    AddTest(expected, ".k5p", ".K5P");       // packing temperature
    AddTest(expected, ".k5f", ".K5F");       // Digimat weld lines
    AddTest(expected, "_medi.crp", ".CRP");  // Digimat fiber
    AddTest(expected, ".k5o", ".K5O");
    AddTest(expected, ".rsf", ".RSF");  // Digimat stress
    AddTest(expected, ".k5w", ".K5W");
    AddTest(expected, ".k5p", ".K5P");  // Digimat temperature
    AddTest(expected, ".k5c", ".K5C");
    AddTest(expected, ".k5c", ".K5C");  // end-of-cooling temperature
    AddTest(expected, ".k5f", ".K5F");  // weld lines
    AddTest(expected, ".k5s", ".K5S");  // annealing stress
    AddTest(expected, ".k5f", ".K5F");  // insert flow pressure
    AddTest(expected, ".k5f", ".K5F");  // moldbase pressure
    AddTest(expected, ".k5c", ".K5C");  // moldbase temperature

    OpenProject project(support::PlainProject(), ResultFiles::none);
    EXPECT_EQ(project.files.events, expected);
}

TEST(CatalogueChecks, AskTheResultReaderOncePerFiberOrientationCheck) {
    OpenProject project(support::PlainProject(), ResultFiles::none);
    EXPECT_EQ(support::ResultReader().events.size(), 6U);
}

TEST(CatalogueChecks, OfItemsThatFollowTheNormalizedFolderReadTheShotFileThere) {
    CZorbFEAInformation record = support::PlainProject();
    record.projectFolder = "D:\\Proj\\Run03";
    OpenProject project(record, ResultFiles::none);
    EXPECT_THAT(project.files.EventsOf("open"),
                ElementsAre("r " + base + ".cmx", "w ThermalTest.txt"));
}

TEST(CatalogueChecks, OfAnUnknownKindOfProjectReadTheShotFileBeforeTheFolderIsNormalized) {
    CZorbFEAInformation record = support::PlainProject(2);
    record.projectFolder = "D:\\Proj\\Run03";
    OpenProject project(record, ResultFiles::none);
    EXPECT_THAT(project.files.EventsOf("open"), Contains("r D:\\Proj\\Run03Cover03.cmx"));
}

TEST(CatalogueChecks, AreNotMadeAgainWhenFilesAppearLater) {
    OpenProject project(support::CompleteProject(), ResultFiles::none);
    support::AddAllResults(project.files);
    EXPECT_EQ(project.manager.GetProjectResults(kItemFlowInducedStress), kResultAvailable);
    CZorbI2Item item;
    ASSERT_TRUE(project.manager.GetItem(kCategoryPart, kItemFlowInducedStress, &item));
    EXPECT_FALSE(item.isAvailable);
    EXPECT_EQ(item.optionValue, kOptionResultsMissing);
}
