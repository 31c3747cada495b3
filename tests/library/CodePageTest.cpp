// Names with characters of the system code page, from the record to the files and the trace.
#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <string>

#include <zorbi2/ZorbI2Types.h>

#include "tests/library/HostSystem.h"
#include "tests/library/LibraryProject.h"
#include "tests/library/ScratchFolder.h"

namespace {

namespace fs = std::filesystem;
using host_system::NarrowName;
using library_tests::AddFile;
using library_tests::ScratchFolder;

const std::u8string project = u8"Geh\u00e4use";

CZorbFEAInformation RunIn(const std::u8string& folder) {
    CZorbFEAInformation info = library_tests::BareProject(NarrowName(folder));
    info.projectName = NarrowName(project);
    info.flags[CZorbFEAInformation::kHasFiber] = 1;
    return info;
}

TEST(CodePage, ResultsAreFound) {
    const ScratchFolder folder;
    AddFile(fs::path(project) / "Run01" / (project + u8"01.rsf"));
    const CZorbFEAInformation info = RunIn(project + u8"\\Run01");
    EXPECT_EQ(library_tests::ResultOf(info, kItemFlowInducedStress), kResultAvailable);
    EXPECT_EQ(library_tests::ResultOf(info, kItemEndOfCoolingTemperature), kResultNoK5c);
}

TEST(CodePage, TheResultVersionIsRead) {
    const ScratchFolder folder;
    AddFile(fs::path(project) / "Run01" / (project + u8"01.k5o"), "1004");
    EXPECT_EQ(library_tests::ResultOf(RunIn(project + u8"\\Run01"), kItemFiberOrientation),
              kResultAvailable);
}

TEST(CodePage, TheShotFileIsReadAndItsPathTraced) {
    const ScratchFolder folder;
    AddFile(fs::path(project) / "Run01" / (project + u8"01.cmx"),
            "<SOLID_MCM>\nFlagPrevShot=1\nValueShotRunID=2\n</SOLID_MCM>\n");
    AddFile(fs::path(project) / "Run02" / (project + u8"02.k5o"));
    const host_system::DebuggerOutput debugger;

    EXPECT_EQ(library_tests::ResultOf(RunIn(project + u8"\\Run01\\"), kItemInsertFiberMaterial),
              kResultAvailable);

    EXPECT_EQ(debugger.lines,
              (std::vector<std::wstring>{
                  L"@@@ Engine read cmx file",
                  host_system::TracedName(project + u8"\\Run01\\" + project + u8"01.cmx"),
                  L"@@@ I2Engine .cmx file FlagPrevShot=1",
              }));
}

TEST(CodePage, APathIsTracedInTheLocaleOfTheHost) {
    const ScratchFolder folder;
    ASSERT_NE(std::setlocale(LC_CTYPE, host_system::localeOfNames), nullptr);
    const host_system::DebuggerOutput debugger;

    library_tests::ResultOf(RunIn(project + u8"\\Run01\\"), kItemInsertFiberMaterial);
    std::setlocale(LC_CTYPE, "C");

    ASSERT_EQ(debugger.lines.size(), 3U);
    EXPECT_EQ(debugger.lines[1], L"Geh\u00e4use\\Run01\\Geh\u00e4use01.cmx");
}

TEST(CodePage, TheControlFileIsWrittenAndHoldsTheBytes) {
    const ScratchFolder folder;
    fs::create_directory(project);
    CZorbFEAInformation info = library_tests::SolidProject("Run01");
    CZorbI2EngineManager manager;
    manager.CreateEngine(&info);
    manager.CreateCMIDataBlock();
    manager.CreateCMIAccess();
    manager.SetOutFolder(NarrowName(u8"D:\\" + project + u8"\\I2"));
    manager.SetCMIFileFullPath(NarrowName(project), NarrowName(project), 1, "cmi");
    manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);

    manager.WriteCMIFile(0);

    const std::string text = library_tests::BytesOf(fs::path(project) / (project + u8"01.cmi"));
    const std::string line = "OutFolder = D:\\" + NarrowName(project) + "\\I2";
    EXPECT_NE(text.find(line + host_system::lineEnd), std::string::npos) << text;
}

}  // namespace
