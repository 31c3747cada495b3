// The command "check" on files of the real file system.
#include "host/CheckCommand.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include "tests/host/SampleControlFile.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using Json = nlohmann::json;
using samples::Joined;
using samples::SampleLines;

struct Outcome {
    int exitCode;
    std::string out;
    std::string err;
};

class CheckCommand : public testing::Test {
protected:
    CheckCommand() {
        folder_.MakeFile("fine.cmi", Joined(SampleLines()));
        samples::Lines lines = SampleLines();
        lines[5] = "SolverType = x";
        lines[29] = "SegmentX = 0 (1~100)";
        folder_.MakeFile("faulty.cmi", Joined(lines));
    }

    std::string Path(const std::string& name) const { return (folder_.Path() / name).string(); }

    host::CheckRequest Request(const std::vector<std::string>& names) const {
        host::CheckRequest request;
        for (const std::string& name : names) {
            request.files.push_back(folder_.Path() / name);
        }
        return request;
    }

    static Outcome Run(const host::CheckRequest& request) {
        std::ostringstream out;
        std::ostringstream err;
        const int exitCode = host::RunCheck(request, out, err);
        return {exitCode, out.str(), err.str()};
    }

    support::TemporaryFolder folder_;
};

TEST_F(CheckCommand, SaysThatAFileHasNoFaults) {
    const Outcome outcome = Run(Request({"fine.cmi"}));
    EXPECT_EQ(0, outcome.exitCode);
    EXPECT_EQ(Path("fine.cmi") + ": no faults\n", outcome.out);
    EXPECT_EQ("", outcome.err);
}

TEST_F(CheckCommand, NamesFileAndLineOfEachFaultOnStandardError) {
    const Outcome outcome = Run(Request({"faulty.cmi"}));
    EXPECT_EQ(1, outcome.exitCode);
    EXPECT_EQ("", outcome.out);
    EXPECT_EQ(Path("faulty.cmi") +
                  ":6: \"SolverType\" is \"x\"; a plain whole number (32 bits) belongs here\n" +
                  Path("faulty.cmi") + ":30: \"SegmentX\" is \"0\"; allowed is 1 to 100\n",
              outcome.err);
}

TEST_F(CheckCommand, ChecksAllFilesAndSumsUp) {
    const Outcome outcome = Run(Request({"missing.cmi", "faulty.cmi", "fine.cmi"}));
    EXPECT_EQ(3, outcome.exitCode);
    EXPECT_EQ(Path("fine.cmi") + ": no faults\n3 files: 1 with faults, 1 not readable\n",
              outcome.out);
}

TEST_F(CheckCommand, NamesTheSystemsReasonForAFileThatCannotBeRead) {
    const Outcome outcome = Run(Request({"missing.cmi"}));
    EXPECT_EQ(3, outcome.exitCode);
    EXPECT_EQ(
        Path("missing.cmi") + ": cannot be read: " + std::generic_category().message(ENOENT) + "\n",
        outcome.err);
}

TEST_F(CheckCommand, AFolderIsNoFileThatCanBeRead) {
    folder_.MakeFolder("folder.cmi");
    const Outcome outcome = Run(Request({"folder.cmi"}));
    EXPECT_EQ(3, outcome.exitCode);
    EXPECT_EQ(0U, outcome.err.find(Path("folder.cmi") + ": cannot be read: "));
}

TEST_F(CheckCommand, AnEmptyFileIsAFaultAndNotTrouble) {
    folder_.MakeFile("empty.cmi", "");
    EXPECT_EQ(1, Run(Request({"empty.cmi"})).exitCode);
}

TEST_F(CheckCommand, AFileOfTheLargestSizeIsStillLookedAt) {
    std::string text = Joined(SampleLines());
    text.resize(262'144, '\n');
    folder_.MakeFile("largest.cmi", text);
    folder_.MakeFile("larger.cmi", text + "\n");
    EXPECT_NE(std::string::npos,
              Run(Request({"largest.cmi"})).err.find(":65: an empty line does not belong here\n"));
    EXPECT_EQ(Path("larger.cmi") + ":1: not a control parameter file: it is too large\n",
              Run(Request({"larger.cmi"})).err);
}

TEST_F(CheckCommand, ShowTellsWhatAFineFileAsksFor) {
    host::CheckRequest request = Request({"fine.cmi", "faulty.cmi"});
    request.show = true;
    const Outcome outcome = Run(request);
    EXPECT_EQ(0U, outcome.out.find(Path("fine.cmi") +
                                   ": no faults\n  Solver:                 MSC-Nastran\n"));
    EXPECT_EQ(outcome.out.find("Solver:"), outcome.out.rfind("Solver:"));
}

TEST_F(CheckCommand, QuietLeavesOnlyTheFaults) {
    host::CheckRequest request = Request({"fine.cmi", "faulty.cmi"});
    request.quiet = true;
    const Outcome outcome = Run(request);
    EXPECT_EQ(1, outcome.exitCode);
    EXPECT_EQ("", outcome.out);
    EXPECT_NE("", outcome.err);
}

TEST_F(CheckCommand, JsonTellsAll) {
    host::CheckRequest request = Request({"fine.cmi", "faulty.cmi", "missing.cmi"});
    request.json = true;
    const Outcome outcome = Run(request);
    EXPECT_EQ(3, outcome.exitCode);
    EXPECT_EQ("", outcome.err);
    const Json document = Json::parse(outcome.out);
    EXPECT_EQ(1, document["version"]);
    EXPECT_EQ("check", document["command"]);
    ASSERT_EQ(3U, document["files"].size());
    EXPECT_EQ(Path("fine.cmi"), document["files"][0]["file"]);
    EXPECT_EQ(true, document["files"][0]["ok"]);
    EXPECT_EQ(Json::array(), document["files"][0]["faults"]);
    EXPECT_EQ(false, document["files"][1]["ok"]);
    EXPECT_EQ((Json{{"line", 30}, {"message", R"("SegmentX" is "0"; allowed is 1 to 100)"}}),
              document["files"][1]["faults"][1]);
    EXPECT_EQ(nullptr, document["files"][1]["asks"]);
    EXPECT_EQ(std::generic_category().message(ENOENT), document["files"][2]["error"]);
    EXPECT_EQ(nullptr, document["files"][2]["asks"]);
}

TEST_F(CheckCommand, JsonGivesTheValuesThatAFineFileAsksFor) {
    host::CheckRequest request = Request({"fine.cmi"});
    request.json = true;
    const Json asks = Json::parse(Run(request).out)["files"][0]["asks"];
    EXPECT_EQ("MSC-Nastran", asks["solver"]);
    EXPECT_EQ("deformed", asks["mesh"]);
    EXPECT_EQ(9064, asks["values"]["FileVersion"]);
    EXPECT_EQ("D:\\Handover\\Cover", asks["values"]["OutFolder"]);
    EXPECT_EQ("MSCNASTRAN", asks["values"]["SolverName"]);
    EXPECT_EQ(1, asks["values"]["DigimatOutput"]);
    EXPECT_FALSE(asks["values"].contains("IsMoldbaseOutput"));
    EXPECT_EQ(80, asks["values"]["[MAP DOMAIN] SegmentX"]);
    EXPECT_EQ(8, asks["values"]["[PARTINSERT MATERIAL REDUCTION] FiberThetaXSegment"]);
    EXPECT_EQ(90.5, asks["values"]["[WELDLINE ANGLE] WeldlineAngle4"]);
}

TEST_F(CheckCommand, JsonReplacesBytesThatAreNotUtf8) {
    samples::Lines lines = SampleLines();
    lines[3] = "OutFolder = D:\\B\xFCro";
    folder_.MakeFile("codepage.cmi", Joined(lines));
    host::CheckRequest request = Request({"codepage.cmi"});
    request.json = true;
    const Outcome outcome = Run(request);
    EXPECT_EQ(0, outcome.exitCode);
    EXPECT_EQ("D:\\B\xEF\xBF\xBDro",
              Json::parse(outcome.out)["files"][0]["asks"]["values"]["OutFolder"]);
}

TEST_F(CheckCommand, NoFilesAreAnEmptyList) {
    host::CheckRequest request;
    request.json = true;
    EXPECT_EQ(Json::array(), Json::parse(Run(request).out)["files"]);
}

}  // namespace
