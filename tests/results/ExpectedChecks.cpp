#include "tests/results/ExpectedChecks.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <stdexcept>

#include "tests/results/WatchedRun.h"

namespace expected {

namespace {

/// Facts that must hold ("+") or must not ("-"), then what the check does, and its result code.
///
/// Facts: solid, shell (project kinds); fiber, runners, moldbase, insert, angle (flags 11, 12, 13,
/// 14, 16); voxel (an Ostra mesh); icm (an injection-compression project); version (the reader
/// opens the file and its version suffices); prevshot (the shot file's flag is 1); prevk5o (the
/// previous run has its file); an extension (the run has that result file).
///
/// Steps: "test .ext" looks for a result file, "version" asks the result reader, "shot file" reads
/// the shot file, "test previous" looks for the previous run's file, "trace TEXT", "create FILE"
/// opens a debug file, "write TEXT" writes to it, "close" closes it.
struct Rule {
    std::vector<std::int32_t> items;
    std::vector<std::string> facts;
    std::vector<std::string> steps;
    std::int32_t code;
};

constexpr const char* solidFiber = "trace @@@ I2Engine Fiber Orientation Results SOLID";
constexpr const char* noFiberNorFile =
    "trace @@@ I2Engine HasFiber=false and .o2w/.k5o file not exist";
constexpr const char* noFiber = "trace @@@ I2Engine  HasFiber=false";
constexpr const char* noFiberFile = "trace @@@ I2Engine .o2w/.k5 file not exist";
constexpr const char* thermalPlain =
    "trace @@@ ZorbI2Engine GetThermalStressResults OstraMesh = false";
constexpr const char* thermalVoxel =
    "trace @@@ ZorbI2Engine GetThermalStressResults  OstraMesh = true";
constexpr const char* icmNoK5p =
    "trace @@@ I2Engine ICM project \"Packing Temperature Results\" no .k5p file";
constexpr const char* icmNoK5f =
    "trace @@@ I2Engine ICM project \"Packing Temperature Results\" no .k5f file";
constexpr const char* prevShot0 = "trace @@@ I2Engine .cmx file FlagPrevShot=0";
constexpr const char* prevShot1 = "trace @@@ I2Engine .cmx file FlagPrevShot=1";
constexpr const char* noPreviousK5o = "trace @@@ I2Engine does not have .k5o file";
constexpr const char* thermalFile = "create ThermalTest.txt";
constexpr const char* thermalText = "write FileExt = .k5w\nChkResult = 0";
constexpr const char* strainFile = "create ShellIniStrain.txt";

// clang-format off
const std::vector<Rule>& Rules() {
    static const std::vector<Rule> rules = {
    // Fiber orientation
    {{0, 15}, {"+solid", "+fiber", "+.o2w"},
        {solidFiber, "test .o2w", "test .k5o", "version"}, 1},
    {{0, 15}, {"+solid", "+fiber", "-.o2w", "+.k5o", "+version"},
        {solidFiber, "test .o2w", "test .k5o", "version"}, 1},
    {{0, 15}, {"+solid", "+fiber", "-.o2w", "+.k5o", "-version"},
        {solidFiber, "test .o2w", "test .k5o", "version", noFiberFile}, -2},
    {{0, 15}, {"+solid", "+fiber", "-.o2w", "-.k5o"},
        {solidFiber, "test .o2w", "test .k5o", "version", noFiberFile}, -2},
    {{0, 15}, {"+solid", "-fiber", "+.o2w"},
        {solidFiber, "test .o2w", "test .k5o", "version", noFiber}, -1},
    {{0, 15}, {"+solid", "-fiber", "-.o2w", "+.k5o", "+version"},
        {solidFiber, "test .o2w", "test .k5o", "version", noFiber}, -1},
    {{0, 15}, {"+solid", "-fiber", "-.o2w", "+.k5o", "-version"},
        {solidFiber, "test .o2w", "test .k5o", "version", noFiberNorFile}, 0},
    {{0, 15}, {"+solid", "-fiber", "-.o2w", "-.k5o"},
        {solidFiber, "test .o2w", "test .k5o", "version", noFiberNorFile}, 0},
    {{0, 11, 15}, {"+shell", "+fiber", "+.rso"}, {"test .rso"},  1},
    {{0, 11, 15}, {"+shell", "+fiber", "-.rso"}, {"test .rso"}, -1},
    {{0, 11, 15}, {"+shell", "-fiber"},          {"test .rso"}, -1},
    {{0, 15}, {"-solid", "-shell"}, {}, 1},
    {{11},    {"-shell"},           {}, 1},
    // Runners, moldbase
    {{1}, {"+runners"},  {},   1},
    {{1}, {"-runners"},  {},  -3},
    {{2}, {"+moldbase"}, {},   1},
    {{2}, {"-moldbase"}, {}, -15},
    // Flow-induced stress
    {{3}, {"+.rsf"}, {"test .rsf"},  1},
    {{3}, {"-.rsf"}, {"test .rsf"}, -7},
    // Thermal stress
    {{4}, {"-voxel", "+.k5w"}, {thermalPlain, "test .k5w"}, 1},
    {{4}, {"+voxel", "+.k5w"}, {thermalVoxel, "test .k5w"}, 1},
    {{4}, {"-voxel", "-.k5w"},
        {thermalPlain, "test .k5w", thermalFile, "test .k5w", thermalText, "close"}, -6},
    {{4}, {"+voxel", "-.k5w"},
        {thermalVoxel, "test .k5w", thermalFile, "test .k5w", thermalText, "close"}, -6},
    // Initial strain
    {{5}, {"+solid", "+.k5f"}, {"test .k5f"},  1},
    {{5}, {"+solid", "-.k5f"}, {"test .k5f"}, -8},
    {{5}, {"+shell", "-.rsp", "-.rsg", "-.rsr"}, {"test .rsp", "test .rsg", "test .rsr", strainFile,
        "write RSP = 0RSG = 0RSR = 0File = 0", "close"}, -8},
    {{5}, {"+shell", "-.rsp", "-.rsg", "+.rsr"}, {"test .rsp", "test .rsg", "test .rsr", strainFile,
        "write RSP = 0RSG = 0RSR = 1File = 1", "close"}, 1},
    {{5}, {"+shell", "-.rsp", "+.rsg", "-.rsr"}, {"test .rsp", "test .rsg", "test .rsr", strainFile,
        "write RSP = 0RSG = 1RSR = 0File = 1", "close"}, 1},
    {{5}, {"+shell", "-.rsp", "+.rsg", "+.rsr"}, {"test .rsp", "test .rsg", "test .rsr", strainFile,
        "write RSP = 0RSG = 1RSR = 1File = 1", "close"}, 1},
    {{5}, {"+shell", "+.rsp", "-.rsg", "-.rsr"}, {"test .rsp", "test .rsg", "test .rsr", strainFile,
        "write RSP = 1RSG = 0RSR = 0File = 1", "close"}, 1},
    {{5}, {"+shell", "+.rsp", "-.rsg", "+.rsr"}, {"test .rsp", "test .rsg", "test .rsr", strainFile,
        "write RSP = 1RSG = 0RSR = 1File = 1", "close"}, 1},
    {{5}, {"+shell", "+.rsp", "+.rsg", "-.rsr"}, {"test .rsp", "test .rsg", "test .rsr", strainFile,
        "write RSP = 1RSG = 1RSR = 0File = 1", "close"}, 1},
    {{5}, {"+shell", "+.rsp", "+.rsg", "+.rsr"}, {"test .rsp", "test .rsg", "test .rsr", strainFile,
        "write RSP = 1RSG = 1RSR = 1File = 1", "close"}, 1},
    {{5}, {"-solid", "-shell"}, {}, 1},
    // Part insert flow pressure, moldbase pressure, moldbase temperature
    {{6},  {"+insert", "+.k5f"},   {"test .k5f"},   1},
    {{6},  {"+insert", "-.k5f"},   {"test .k5f"}, -14},
    {{6},  {"-insert", "+.k5f"},   {"test .k5f"}, -14},
    {{6},  {"-insert", "-.k5f"},   {"test .k5f"}, -13},
    {{7},  {"+moldbase", "+.k5f"}, {"test .k5f"},   1},
    {{7},  {"+moldbase", "-.k5f"}, {"test .k5f"}, -16},
    {{7},  {"-moldbase", "+.k5f"}, {"test .k5f"}, -15},
    {{7},  {"-moldbase", "-.k5f"}, {"test .k5f"}, -16},
    {{10}, {"+moldbase", "+.k5c"}, {"test .k5c"},   1},
    {{10}, {"+moldbase", "-.k5c"}, {"test .k5c"}, -18},
    {{10}, {"-moldbase", "+.k5c"}, {"test .k5c"}, -15},
    {{10}, {"-moldbase", "-.k5c"}, {"test .k5c"}, -17},
    // Packing temperature
    {{8}, {"+solid", "+.k5p"},         {"test .k5p"},  1},
    {{8}, {"+solid", "-icm", "-.k5p"}, {"test .k5p"}, -9},
    {{8}, {"+solid", "+icm", "-.k5p", "+.k5f"}, {"test .k5p", icmNoK5p, "test .k5f"}, 1},
    {{8}, {"+solid", "+icm", "-.k5p", "-.k5f"},
        {"test .k5p", icmNoK5p, "test .k5f", icmNoK5f}, -9},
    {{8}, {"+shell", "+.rsp"}, {"test .rsp", "test .rsg", "test .rsr"}, 1},
    {{8}, {"+shell", "-.rsp", "+.rsg"}, {"test .rsp", "test .rsg", "test .rsr"}, 1},
    {{8}, {"+shell", "-.rsp", "-.rsg", "+.rsr"}, {"test .rsp", "test .rsg", "test .rsr"}, 1},
    {{8}, {"+shell", "-.rsp", "-.rsg", "-.rsr"}, {"test .rsp", "test .rsg", "test .rsr"}, -9},
    {{8}, {"-solid", "-shell"}, {}, 1},
    // End-of-cooling temperature
    {{9}, {"+solid", "+.k5c"}, {"test .k5c"},   1},
    {{9}, {"+solid", "-.k5c"}, {"test .k5c"}, -18},
    {{9}, {"-solid", "+.rsc"}, {"test .rsc"},   1},
    {{9}, {"-solid", "-.rsc"}, {"test .rsc"}, -18},
    // Part insert from a previous shot
    {{12}, {"-prevshot"},             {"shot file", prevShot0}, -19},
    {{12}, {"+prevshot", "+prevk5o"}, {"shot file", prevShot1, "test previous"}, 1},
    {{12}, {"+prevshot", "-prevk5o"}, {"shot file", prevShot1, "test previous", noPreviousK5o}, -19},
    // Density, weld lines
    {{13}, {"+.k5f"}, {"test .k5f"},  1},
    {{13}, {"-.k5f"}, {"test .k5f"}, -8},
    {{14, 16}, {"-.k5f"},           {"test .k5f"},  -8},
    {{14, 16}, {"+.k5f", "+angle"}, {"test .k5f"},   1},
    {{14, 16}, {"+.k5f", "-angle"}, {"test .k5f"}, -24},
    // Digimat fiber
    {{18}, {"-shell", "+.crp"},          {"test .crp", "test .k5o"},   1},
    {{18}, {"-shell", "-.crp", "+.k5o"}, {"test .crp", "test .k5o"},   1},
    {{18}, {"-shell", "-.crp", "-.k5o"}, {"test .crp", "test .k5o"}, -10},
    {{18}, {"+shell", "+.crp"},          {"test .crp", "test .k5o", "test .rso"}, 1},
    {{18}, {"+shell", "-.crp", "+.k5o"}, {"test .crp", "test .k5o", "test .rso"}, 1},
    {{18}, {"+shell", "-.crp", "-.k5o", "+.rso"}, {"test .crp", "test .k5o", "test .rso"}, -23},
    {{18}, {"+shell", "-.crp", "-.k5o", "-.rso"}, {"test .crp", "test .k5o", "test .rso"}, -10},
    // Digimat stress, Digimat temperature
    {{19}, {"+.rsf"},          {"test .rsf"},                1},
    {{19}, {"-.rsf", "+.k5w"}, {"test .rsf", "test .k5w"},   1},
    {{19}, {"-.rsf", "-.k5w"}, {"test .rsf", "test .k5w"}, -25},
    {{20}, {"+.k5p"},          {"test .k5p"},                1},
    {{20}, {"-.k5p", "+.k5c"}, {"test .k5p", "test .k5c"},   1},
    {{20}, {"-.k5p", "-.k5c"}, {"test .k5p", "test .k5c"}, -26},
    // Annealing stress
    {{21}, {"+.k5s"}, {"test .k5s"},   1},
    {{21}, {"-.k5s"}, {"test .k5s"}, -27},
    };
    return rules;
}
// clang-format on

constexpr std::int32_t codeWithoutCheck = -11;

constexpr const char* namePrefix = "D:\\Proj\\Run03\\Cover03";

bool IsInjectionCompression(std::int32_t projectType) {
    const std::set<std::int32_t> types = {4, 6, 7, 8, 9, 10, 11};
    return types.count(projectType) != 0;
}

// clang-format off
bool Holds(const std::string& fact, const Situation& situation) {
    using Test = bool (*)(const Situation&);
    static const std::map<std::string, Test> tests = {
        {"solid",    [](const Situation& s) { return s.info.solverType == 0; }},
        {"shell",    [](const Situation& s) { return s.info.solverType == 1; }},
        {"fiber",    [](const Situation& s) { return s.info.flags[11] != 0; }},
        {"runners",  [](const Situation& s) { return s.info.flags[12] != 0; }},
        {"moldbase", [](const Situation& s) { return s.info.flags[13] != 0; }},
        {"insert",   [](const Situation& s) { return s.info.flags[14] != 0; }},
        {"angle",    [](const Situation& s) { return s.info.flags[16] != 0; }},
        {"voxel",    [](const Situation& s) { return s.info.voxelFlag == 1; }},
        {"icm",      [](const Situation& s) { return IsInjectionCompression(s.info.projectType); }},
        {"version",  [](const Situation& s) { return s.beginResult == 0 && s.version >= 1004; }},
        {"prevshot", [](const Situation& s) { return s.flagPrevShotAfter == 1; }},
        {"prevk5o",  [](const Situation& s) { return s.previousRunHasK5o; }},
    };
    return fact[0] == '.' ? situation.files.count(fact) != 0 : tests.at(fact)(situation);
}
// clang-format on

bool Applies(const Rule& rule, const Situation& situation) {
    return std::all_of(rule.facts.begin(), rule.facts.end(), [&](const std::string& fact) {
        return Holds(fact.substr(1), situation) == (fact[0] == '+');
    });
}

const std::vector<const Rule*>& RulesAbout(std::int32_t itemId) {
    static std::map<std::int32_t, std::vector<const Rule*>> byItem;
    if (byItem.empty()) {
        for (const Rule& rule : Rules()) {
            for (const std::int32_t item : rule.items) {
                byItem[item].push_back(&rule);
            }
        }
    }
    return byItem[itemId];
}

/// The one rule that applies; null for an item that has no rules.
const Rule* RuleFor(std::int32_t itemId, const Situation& situation) {
    const std::vector<const Rule*>& rules = RulesAbout(itemId);
    const auto applies = [&](const Rule* rule) { return Applies(*rule, situation); };
    const auto found = std::find_if(rules.begin(), rules.end(), applies);
    if (!rules.empty() && std::count_if(found, rules.end(), applies) != 1) {
        throw std::logic_error("not one rule applies: " + Described(situation));
    }
    return rules.empty() ? nullptr : *found;
}

std::string InUpperCase(std::string extension) {
    for (char& letter : extension) {
        if (letter >= 'a' && letter <= 'z')
            letter = static_cast<char>(letter - 'a' + 'A');
    }
    return extension;
}

std::string ResultPath(const std::string& extension, const Situation& situation) {
    if (extension == ".crp")
        return std::string(namePrefix) + "_medi.crp";
    if (extension == ".k5o" && situation.info.voxelFlag == 1)
        return std::string(namePrefix) + "_vox.k5o";
    return namePrefix + extension;
}

std::string PreviousPath(const Situation& situation) {
    const std::string& tag = situation.previousRunTag;
    return "D:\\Proj\\Run" + tag + "\\Cover" + tag + ".k5o";
}

/// Turns the steps of a rule into the events that a watched platform notes, and keeps what they
/// change.
class Performance {
public:
    explicit Performance(const Situation& situation)
        : situation_(situation), folder_(situation.info.projectFolder) {}

    void Do(const std::string& step) {
        if (step.rfind("test .", 0) == 0) {
            TestResultFile(step.substr(5));
        } else if (step == "version") {
            AskReader();
        } else if (step == "shot file") {
            ReadShotFile();
        } else if (step == "test previous") {
            Note("exists " + PreviousPath(situation_));
        } else if (step.rfind("create ", 0) == 0) {
            file_ = step.substr(7);
            Note("open w " + file_);
        } else if (step.rfind("write ", 0) == 0) {
            text_ = step.substr(6);
        } else if (step == "close") {
            if (FileIsOpen())
                Note("close " + file_);
        } else {
            Note(step);  // a trace line
        }
    }

    std::vector<std::string> Finish(std::int32_t code) {
        if (FileIsOpen())
            Note("left in " + file_ + ": " + text_);
        Note("folder " + folder_);
        Note("flagPrevShot " + std::to_string(flagPrevShot_));
        Note("valueShotRunID " + std::to_string(valueShotRunID_));
        Note("code " + std::to_string(code));
        return events_;
    }

private:
    void Note(const std::string& event) { events_.push_back(event); }

    bool FileIsOpen() const {
        return !file_.empty() && situation_.unwritableFiles.count(file_) == 0;
    }

    void NormalizeFolder() { folder_ = "D:\\Proj\\Run03\\"; }

    void TestResultFile(const std::string& extension) {
        NormalizeFolder();
        Note("exists " + ResultPath(extension, situation_));
        Note("exists " + (namePrefix + InUpperCase(extension)));
    }

    void AskReader() {
        NormalizeFolder();
        Note("reader begin " + SystemPath(std::string(namePrefix) + ".k5o"));
        Note("reader version");
        Note("reader end");
    }

    void ReadShotFile() {
        Note("trace @@@ Engine read cmx file");
        Note("trace " + ShotFilePath(situation_));
        Note("open r " + ShotFilePath(situation_));
        flagPrevShot_ = situation_.flagPrevShotAfter;
        valueShotRunID_ = situation_.valueShotRunIDAfter;
    }

    const Situation& situation_;
    std::vector<std::string> events_;
    std::string folder_;
    std::string file_;
    std::string text_;
    std::int32_t flagPrevShot_ = situation_.flagPrevShot;
    std::int32_t valueShotRunID_ = situation_.valueShotRunID;
};

}  // namespace

Situation::Situation() {
    info.projectName = "Cover";
    info.runNumber = 3;
    info.projectFolder = "D:\\Proj\\Run03\\";
}

std::set<std::string> ExistingPaths(const Situation& situation) {
    std::set<std::string> paths;
    for (const std::string& file : situation.files) {
        paths.insert(file == InUpperCase(file) ? namePrefix + file : ResultPath(file, situation));
    }
    if (situation.previousRunHasK5o)
        paths.insert(PreviousPath(situation));
    return paths;
}

std::string ShotFilePath(const Situation& situation) {
    return situation.info.projectFolder + "Cover03.cmx";
}

std::set<std::string> ExtensionsLookedFor(std::int32_t itemId, std::int32_t solverType) {
    const std::string kind = solverType == 0 ? "solid" : solverType == 1 ? "shell" : "other";
    std::set<std::string> extensions;
    for (const Rule* rule : RulesAbout(itemId)) {
        const bool isOfTheKind =
            std::none_of(rule->facts.begin(), rule->facts.end(), [&](const std::string& fact) {
                return fact == "-" + kind || (fact == "+solid" && kind != "solid") ||
                       (fact == "+shell" && kind != "shell");
            });
        for (const std::string& step : rule->steps) {
            if (isOfTheKind && step.rfind("test .", 0) == 0) {
                extensions.insert(step.substr(5));
            }
        }
    }
    return extensions;
}

std::vector<std::string> Transcript(std::int32_t itemId, const Situation& situation) {
    const Rule* rule = RuleFor(itemId, situation);
    Performance performance(situation);
    if (rule == nullptr)
        return performance.Finish(codeWithoutCheck);
    for (const std::string& step : rule->steps) {
        performance.Do(step);
    }
    return performance.Finish(rule->code);
}

std::string Described(const Situation& situation) {
    const CZorbFEAInformation& info = situation.info;
    std::ostringstream text;
    text << "solver type " << info.solverType << ", project type " << info.projectType
         << ", voxel flag " << info.voxelFlag << ", flags";
    for (const int position : {11, 12, 13, 14, 16}) {
        text << ' ' << position << '=' << int{info.flags[position]};
    }
    text << ", files";
    for (const std::string& file : situation.files) {
        text << ' ' << file;
    }
    text << ", reader gives " << situation.beginResult << " and version " << situation.version
         << ", shot file " << (situation.hasShotFile ? situation.shotFile : "missing")
         << ", previous .k5o " << (situation.previousRunHasK5o ? "exists" : "is missing");
    return text.str();
}

}  // namespace expected
