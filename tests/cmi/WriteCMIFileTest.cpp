// The write of the control parameter file through the manager: from the engine's state to the file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2AccessCMIFile.h>
#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/ZorbI2Types.h>

#include "tests/support/CMIDataFields.h"
#include "tests/support/ControlFileText.h"
#include "tests/support/Errors.h"
#include "tests/support/SampleProject.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WatchedPlatform.h"

using support::LineOf;
using support::OpenProject;
using testing::ContainerEq;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string controlFile = "D:\\Out\\Cover03.cmi";

/// Opens the project under a solver and offers its items.
void Start(OpenProject& project, int solver = kSolverAnsys, int meshKind = kMeshOriginal,
           int annealingMode = 0) {
    project.manager.SetCMIFileFullPath("D:\\Out", "Cover", 3, "cmi");
    project.manager.SetEngineCurrentStatus(solver, meshKind, 0, annealingMode);
    project.manager.SetPopItems();
    project.manager.HasPopItem();
}

/// Writes the control file and gives its text.
std::string Write(OpenProject& project) {
    project.files.written.clear();
    EXPECT_TRUE(project.manager.WriteCMIFile(0));
    EXPECT_EQ(project.files.written.count(controlFile), 1U);
    return project.files.written[controlFile];
}

void Choose(OpenProject& project, int itemId, int checkState, int option) {
    EXPECT_TRUE(project.manager.SetItemStatus(itemId, checkState, option)) << itemId;
    project.manager.SetItemsValue();
}

}  // namespace

// ---- The steps of a write -----------------------------------------------------------------------

TEST(WriteCMIFile, OpensTheSetPathOnceForWritingTextAndClosesIt) {
    OpenProject project;
    Start(project);
    project.files.events.clear();
    EXPECT_TRUE(project.manager.WriteCMIFile(0));
    EXPECT_THAT(project.files.events, ElementsAre("open w " + controlFile, "close " + controlFile));
}

TEST(WriteCMIFile, IgnoresItsArgument) {
    OpenProject project;
    Start(project);
    const std::string text = Write(project);
    for (const int argument : {-1, 1, 4711}) {
        project.files.written.clear();
        EXPECT_TRUE(project.manager.WriteCMIFile(argument));
        EXPECT_EQ(project.files.written[controlFile], text);
    }
}

TEST(WriteCMIFile, WritesToThePathOfTheWriter) {
    OpenProject project;
    Start(project);
    project.manager.GetZorbAccessCMIFile()->filePath = "E:\\other.txt";
    EXPECT_TRUE(project.manager.WriteCMIFile(0));
    EXPECT_EQ(project.files.written.count("E:\\other.txt"), 1U);
    EXPECT_EQ(project.files.written.count(controlFile), 0U);
}

TEST(WriteCMIFile, ValuesSetInTheBlockByHandNeverReachTheFile) {
    OpenProject project;
    Start(project);
    const std::string text = Write(project);
    const auto fields = support::FieldsOf(*project.manager.GetZorbCMIData());

    const int unprinted = project.manager.GetZorbCMIData()->OutputFlags[kItemMicroMechanics];
    *project.manager.GetZorbCMIData() = support::BlockOfDistinctValues();
    project.manager.GetZorbCMIData()->OutputFlags[kItemMicroMechanics] = unprinted;

    EXPECT_EQ(Write(project), text);
    EXPECT_THAT(support::FieldsOf(*project.manager.GetZorbCMIData()), ContainerEq(fields));
}

TEST(WriteCMIFile, SecondWriteForgetsTheFirst) {
    OpenProject project;
    Start(project, kSolverLsDyna, kMesh3DMappingShell);
    project.manager.SetOutFolder("D:\\Out");
    project.manager.SetViewEdit(true);
    Choose(project, kItemFiberOrientation, -1, 6);
    Choose(project, kItemDensity, -1, 4);
    const std::string first = Write(project);
    EXPECT_EQ(LineOf(first, "Is3DMappingShell"), "Is3DMappingShell = 1 (0:off,1:on)\n");
    EXPECT_EQ(LineOf(first, "IsDistributeModel"), "IsDistributeModel = 1 (0:off,1:on)\n");

    project.manager.SetOutFolder("");
    project.manager.SetViewEdit(false);
    Start(project, kSolverAnsys, kMeshOriginal);
    project.manager.SetItemsValue();
    const std::string second = Write(project);
    EXPECT_EQ(LineOf(second, "OutFolder"), "OutFolder = \n");
    EXPECT_EQ(LineOf(second, "Is3DMappingShell"), "Is3DMappingShell = 0 (0:off,1:on)\n");
    EXPECT_EQ(LineOf(second, "IsOriginalMesh"), "IsOriginalMesh = 1 (0:off,1:on)\n");
    EXPECT_EQ(LineOf(second, "IsDistributeModel"), "IsDistributeModel = 0 (0:off,1:on)\n");
    EXPECT_EQ(LineOf(second, "IsViewEditModelMapping"),
              "IsViewEditModelMapping = 0 (0:off,1:on)\n");
    EXPECT_EQ(LineOf(second, "[LSDYNA]"), "");
    EXPECT_EQ(LineOf(second, "DensityReduction"), "DensityReduction = 0 (2~10)\n");
}

// ---- What the file takes from where -------------------------------------------------------------

TEST(WriteCMIFile, CopiesTheHostsRecordAndSettings) {
    CZorbFEAInformation record = support::CompleteProject();
    record.projectType = kProjectTypeMucell;
    OpenProject project(record);
    Start(project, kSolverMscNastran, kMeshMapped);
    project.manager.SetEngineCurrentStatus(kSolverMscNastran, kMeshMapped, 7, 0);
    project.manager.SetOutFolder("D:\\Out\\I2");
    project.manager.SetMappedMeshFilePath("D:\\Mesh\\fine.msh");
    const std::string text = Write(project);
    EXPECT_EQ(LineOf(text, "FileVersion"), "FileVersion = 9064\n");
    EXPECT_EQ(LineOf(text, "SolverType"), "SolverType = 0\n");
    EXPECT_EQ(LineOf(text, "ProjectType"), "ProjectType = 9\n");
    EXPECT_EQ(LineOf(text, "QuadraticElement"), "QuadraticElement = 1 (0:off,1:on)\n");
    EXPECT_EQ(LineOf(text, "OutFolder"), "OutFolder = D:\\Out\\I2\n");
    EXPECT_EQ(LineOf(text, "MapFile"), "MapFile = D:\\Mesh\\fine.msh\n");
    EXPECT_EQ(LineOf(text, "[MSCNASTRAN]"), "[MSCNASTRAN] \n");
    EXPECT_EQ(LineOf(text, "IDCompositeModel"), "IDCompositeModel = 2\n");
}

TEST(WriteCMIFile, TakesViewEditFromTheRecordUntilItIsSet) {
    CZorbFEAInformation record = support::CompleteProject();
    record.flags[CZorbFEAInformation::kViewEditAtStart] = 2;
    OpenProject project(record);
    Start(project);
    EXPECT_EQ(LineOf(Write(project), "IsViewEditModelMapping"),
              "IsViewEditModelMapping = 1 (0:off,1:on)\n");
    project.manager.SetViewEdit(false);
    EXPECT_EQ(LineOf(Write(project), "IsViewEditModelMapping"),
              "IsViewEditModelMapping = 0 (0:off,1:on)\n");
}

TEST(WriteCMIFile, DeformedMeshOfAnAnnealedProjectWritesTheAnnealingLineInstead) {
    CZorbFEAInformation record = support::CompleteProject();
    record.projectType = kProjectTypeAnnealing;
    OpenProject project(record);
    Start(project, kSolverAnsys, kMeshDeformed, kAnnealingDeformedMesh);
    const std::string text = Write(project);
    EXPECT_EQ(LineOf(text, "IsDeformedMesh"), "IsDeformedMesh = 0 (0:off,1:on)\n");
    EXPECT_EQ(LineOf(text, "IsAnnealingDeformedMesh"),
              "IsAnnealingDeformedMesh = 1 (0:off,1:on)\n");
}

TEST(WriteCMIFile, SolverOutsideTheRangeGivesEmptyBrackets) {
    for (const int solver : {-1, kSolverCount, 4711}) {
        OpenProject project;
        Start(project);
        project.manager.SetEngineCurrentStatus(solver, kMeshOriginal, 0, 0);
        const std::string text = Write(project);
        EXPECT_NE(text.find("\n[] \n"), std::string::npos) << solver;
        EXPECT_NE(text.find("\n[_EOF]\n"), std::string::npos) << solver;
    }
}

TEST(WriteCMIFile, PrintsTheOfferedItemsAndNoOthers) {
    CZorbFEAInformation record = support::CompleteProject(kShellProject);
    OpenProject project(record);
    Start(project, kSolverLsDyna, kMeshOriginal);  // offers fiber orientation and Digimat export
    EXPECT_EQ(support::ItemLinesOf(Write(project)),
              "IsDoMaterialReduction =         1   (0:off,1:on)\n"
              "DigimatOutput =                 0   (0:off,1:on)\n");
}

TEST(WriteCMIFile, PrintsTheOfferOfTheLastSetPopItems) {
    OpenProject project;
    Start(project, kSolverLsDyna, kMesh3DMappingShell);
    project.manager.SetEngineCurrentStatus(kSolverLsDyna, kMeshOriginal, 0,
                                           0);  // no SetPopItems after it
    EXPECT_EQ(support::ItemLinesOf(Write(project)),
              "IsInitialstrainOutput =         0   (0:off,1:on)\n"
              "IsPackTempOutput =              0   (0:off,1:on)\n"
              "IsCoolTempOutput =              0   (0:off,1:on)\n");
}

TEST(WriteCMIFile, TakesChoicesOnlyAfterTheyAreCommitted) {
    OpenProject project;
    Start(project);
    EXPECT_TRUE(project.manager.SetItemStatus(kItemFlowInducedStress, 1, -1));
    EXPECT_EQ(LineOf(Write(project), "IsFlowResidualstressOutput"),
              "IsFlowResidualstressOutput =    0   (0:off,1:on)\n");
    project.manager.SetItemsValue();
    EXPECT_EQ(LineOf(Write(project), "IsFlowResidualstressOutput"),
              "IsFlowResidualstressOutput =    1   (0:off,1:on)\n");
}

TEST(WriteCMIFile, NeverSwitchesOnAnItemWithoutResults) {
    OpenProject project(support::CompleteProject(), support::ResultFiles::none);
    Start(project);
    for (int itemId = 0; itemId < kItemCount; ++itemId) {
        project.manager.SetItemStatus(itemId, 1, 1);
    }
    project.manager.SetItemsValue();
    // Runner and moldbase model need no file; the Digimat export of a solid project needs none.
    EXPECT_EQ(support::ItemLinesOf(Write(project)),
              "IsDoMaterialReduction =         0   (0:off,1:on)\n"
              "IsRunnerOutput =                1   (0:off,1:on)\n"
              "IsMoldbaseOutput =              1   (0:off,1:on)\n"
              "IsFlowResidualstressOutput =    0   (0:off,1:on)\n"
              "IsThermalResidualstressOutput = 0   (0:off,1:on)\n"
              "IsInitialstrainOutput =         0   (0:off,1:on)\n"
              "IsFlowPressureOutput =          0   (0:off,1:on)\n"
              "IsMoldbasePressureOutput =      0   (0:off,1:on)\n"
              "IsPackTempOutput =              0   (0:off,1:on)\n"
              "IsCoolTempOutput =              0   (0:off,1:on)\n"
              "IsMoldbaseTempOutput =          0   (0:off,1:on)\n"
              "DigimatOutput =                 1   (0:off,1:on)\n"
              "IsPartInsertMaterialReduction = 0   (0:off,1:on)\n"
              "IsDensityOutput =               0   (0:off,1:on)\n"
              "IsWeldlineOutput =              0   (0:off,1:on)\n"
              "DigimatWeldlineOutput =\t\t0   (0:off,1:on)\n"
              "DigimatFiberOutput =\t\t0   (0:off,1:on)\n"
              "DigimatStressOutput =\t\t0   (0:off,1:on)\n"
              "DigimatTemperatureOutput =\t0   (0:off,1:on)\n");
}

TEST(WriteCMIFile, OutFolderWithConversionsAndANulByteStaysAsItIsUpToTheNul) {
    OpenProject project;
    Start(project);
    project.manager.SetOutFolder(std::string("D:\\%s%d\0hidden", 14));
    EXPECT_EQ(LineOf(Write(project), "OutFolder"), "OutFolder = D:\\%s%d\n");
}

// ---- Refusals -----------------------------------------------------------------------------------

TEST(WriteCMIFile, AnswersTrueAndWritesNothingWhenTheFileCannotBeOpened) {
    OpenProject project;
    Start(project);
    project.files.unwritable.insert(controlFile);
    project.files.events.clear();
    EXPECT_TRUE(project.manager.WriteCMIFile(0));
    EXPECT_THAT(project.files.events, ElementsAre("open w " + controlFile));
    EXPECT_THAT(project.files.written, IsEmpty());
}

TEST(WriteCMIFile, TriesAgainAfterAFileThatCouldNotBeOpened) {
    OpenProject project;
    Start(project);
    project.files.unwritable.insert(controlFile);
    EXPECT_TRUE(project.manager.WriteCMIFile(0));
    project.files.unwritable.clear();
    EXPECT_FALSE(Write(project).empty());
}

TEST(WriteCMIFile, AnswersTrueForAFolderThatDoesNotExistOnTheRealFileSystem) {
    CZorbFEAInformation record = support::CompleteProject();
    CZorbI2EngineManager manager;
    {
        const support::WatchedPlatform files;
        manager.CreateEngine(&record);
    }
    manager.CreateCMIDataBlock();
    manager.CreateCMIAccess();
    const support::TemporaryFolder folder;
    manager.SetCMIFileFullPath(folder.EnginePath("none"), "Cover", 3, "cmi");
    manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    EXPECT_TRUE(manager.WriteCMIFile(0));
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

namespace {

void ExpectSubscriptErrorBeforeAnyFileIsOpened(OpenProject& project) {
    project.files.events.clear();
    EXPECT_EQ(support::OutOfRangeText([&] { project.manager.WriteCMIFile(0); }),
              support::kInvalidSubscript);
    EXPECT_THAT(project.files.events, IsEmpty());
    EXPECT_THAT(project.files.written, IsEmpty());
}

}  // namespace

TEST(WriteCMIFile, OpensNoFileWhenWorkingAnglesAreMissing) {
    for (std::size_t count = 0; count < 3; ++count) {
        OpenProject project;
        Start(project);
        project.Engine().weldlineAngleSet->WeldlineAngles.resize(count);
        ExpectSubscriptErrorBeforeAnyFileIsOpened(project);
    }
}

TEST(WriteCMIFile, OpensNoFileWhenWorkingRatesAreMissing) {
    for (std::size_t count = 0; count < 3; ++count) {
        OpenProject project;
        Start(project);
        project.Engine().weldlineAngleSet->ReductionRates.resize(count);
        ExpectSubscriptErrorBeforeAnyFileIsOpened(project);
    }
}

TEST(WriteCMIFile, WritesAgainOnceTheWorkingDataIsWhole) {
    OpenProject project;
    Start(project);
    const std::string text = Write(project);
    project.files.written.clear();
    project.Engine().weldlineAngleSet->WeldlineAngles.pop_back();
    ExpectSubscriptErrorBeforeAnyFileIsOpened(project);
    project.manager.SetWeldlineDataValue();
    EXPECT_EQ(Write(project), text);
}

TEST(WriteCMIFile, OfABareEngineAnswersTrueAndTouchesNoFile) {
    OpenProject project(support::ProjectWithoutCatalogue(), support::ResultFiles::none);
    project.manager.SetCMIFileFullPath("D:\\Out", "Cover", 3, "cmi");
    EXPECT_TRUE(project.manager.WriteCMIFile(0));
    EXPECT_THAT(project.files.events, IsEmpty());
}
