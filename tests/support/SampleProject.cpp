#include "tests/support/SampleProject.h"

#include "tests/support/ResultReaderDouble.h"

namespace support {

CZorbFEAInformation PlainProject(int solverType) {
    CZorbFEAInformation record;
    record.projectName = "Cover";
    record.runNumber = 3;
    record.projectFolder = "D:\\Proj\\Run03\\";
    record.solverType = solverType;
    record.flags[CZorbFEAInformation::kBuildCatalogue] = 1;
    return record;
}

CZorbFEAInformation CompleteProject(int solverType) {
    CZorbFEAInformation record = PlainProject(solverType);
    for (const int position : {11, 12, 13, 14, 16}) {
        record.flags[position] = 1;
    }
    return record;
}

CZorbFEAInformation ProjectWithoutCatalogue() {
    CZorbFEAInformation record = CompleteProject();
    record.flags[CZorbFEAInformation::kBuildCatalogue] = 0;
    return record;
}

void AddAllResults(WatchedPlatform& files) {
    for (const char* ending : {".o2w", ".k5o", "_vox.k5o", ".rso", ".rsf", ".k5w", ".k5f", ".rsp",
                               ".rsg", ".rsr", ".k5p", ".k5c", ".rsc", "_medi.crp", ".k5s"}) {
        files.existing.insert(std::string("D:\\Proj\\Run03\\Cover03") + ending);
    }
    files.existing.insert("D:\\Proj\\Run02\\Cover02.k5o");
    files.readable["D:\\Proj\\Run03\\Cover03.cmx"] =
        "<SOLID_MCM>\nFlagPrevShot = 1\nValueShotRunID = 2\n</SOLID_MCM>\n";
    ResultReader().beginResult = 0;
    ResultReader().version = 1004;
}

OpenProject::OpenProject(CZorbFEAInformation record, ResultFiles results) {
    ResultReader() = ResultReaderDouble();
    if (results == ResultFiles::all) {
        AddAllResults(files);
    }
    manager.CreateEngine(&record);
    manager.CreateCMIDataBlock();
    manager.CreateCMIAccess();
}

}  // namespace support
