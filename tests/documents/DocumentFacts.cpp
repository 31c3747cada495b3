// Prints what tables in the documents are compared with.
//   zorbi2_document_facts lines     the control file's lines: text, when it is there, the item's id
//   zorbi2_document_facts solvers   the solvers' numbers and keywords
//   zorbi2_document_facts codes     the names and values of result codes
//   zorbi2_document_facts results   reads one project from each line, folder solverType projectType
//                                   voxelFlag item flag...; answers with the item's result code and
//                                   its reason, empty when the item is available
#include <iostream>
#include <sstream>
#include <string>

#include <zorbi2/ZorbI2Engine.h>

namespace {

const char* PresenceOf(const ControlFileLine& line) {
    switch (line.presence) {
        case ControlFilePresence::whenAnnealed:
            return "annealed";
        case ControlFilePresence::whenOffered:
            return "offered";
        default:
            return "always";
    }
}

void PrintLines() {
    for (const ControlFileLine& line : kControlFileLines) {
        std::cout << line.text << '|' << PresenceOf(line) << '|' << line.itemId << '\n';
    }
}

void PrintSolvers() {
    for (const SolverKeyword& row : kSolverKeywords) {
        std::cout << row.solver << '|' << row.keyword << '\n';
    }
}

struct NamedCode {
    const char* name;
    ResultCode code;
};

// clang-format off
#define NAMED(code) {#code, code}
constexpr NamedCode namedCodes[] = {
    NAMED(kResultAvailable),            NAMED(kResultNoFiberResultsNorO2w),
    NAMED(kResultNoFiberResults),       NAMED(kResultNoO2w),
    NAMED(kResultNoRunners),            NAMED(kResultNoK5w),
    NAMED(kResultNoRsf),                NAMED(kResultNoK5f),
    NAMED(kResultNoK5p),                NAMED(kResultNoMediCrp),
    NAMED(kResultNoCheck),              NAMED(kResultNoInsertNorK5f),
    NAMED(kResultNoInsert),             NAMED(kResultNoMoldbase),
    NAMED(kResultNoMoldbaseNorK5f),     NAMED(kResultNoMoldbaseNorK5c),
    NAMED(kResultNoK5c),                NAMED(kResultNoInsertFiberResults),
    NAMED(kResultNoDigimatInformation), NAMED(kResultNoMeetingAngle),
    NAMED(kResultNeitherRsfNorK5w),     NAMED(kResultNeitherK5pNorK5c),
    NAMED(kResultNoK5s),
};
#undef NAMED
// clang-format on

void PrintCodes() {
    for (const NamedCode& row : namedCodes) {
        std::cout << row.name << '|' << row.code << '\n';
    }
}

void AnswerFor(const std::string& project) {
    std::istringstream words(project);
    CZorbFEAInformation info;
    info.projectName = "Cover";
    info.runNumber = 2;
    info.flags[CZorbFEAInformation::kBuildCatalogue] = 1;
    int item = 0;
    words >> info.projectFolder >> info.solverType >> info.projectType >> info.voxelFlag >> item;
    for (std::size_t flag = 0; words >> flag;) {
        info.flags[flag] = 1;
    }
    CZorbI2EngineManager manager;
    manager.CreateEngine(&info);
    std::map<int, std::string> options;
    manager.GetItemAllOptions(item, options);
    const auto missing = options.find(kOptionResultsMissing);
    std::cout << manager.GetProjectResults(item) << '|'
              << (missing != options.end() ? missing->second : "") << std::endl;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string wanted = count > 1 ? arguments[1] : "";
    if (wanted == "lines") {
        PrintLines();
    } else if (wanted == "solvers") {
        PrintSolvers();
    } else if (wanted == "codes") {
        PrintCodes();
    } else if (wanted == "results") {
        for (std::string project; std::getline(std::cin, project);) {
            AnswerFor(project);
        }
    } else {
        std::cerr << "zorbi2_document_facts: lines, solvers, codes or results\n";
        return 2;
    }
    return 0;
}
