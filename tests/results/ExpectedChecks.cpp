#include "tests/results/ExpectedChecks.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <stdexcept>

#include <zorbi2/ZorbI2Types.h>

#include "tests/results/WatchedRun.h"

namespace expected {

namespace {

// ---- The table ----------------------------------------------------------------------------------

/// What is true of a situation, besides the result files that the run has.
enum class Fact {
    solid,  ///< kinds of project; there are projects of neither kind
    shell,
    ostraMesh,
    icm,     ///< an injection-compression project
    fibers,  ///< flags of the record
    runners,
    moldbase,
    insert,
    meetingAngle,
    newEnough,         ///< the result reader opens the file and finds a version that suffices
    previousShot,      ///< the shot file's flag is 1
    previousShotsK5o,  ///< the run that the shot file names has its file
};
using enum Fact;

/// A result file of the run.
struct File {
    const char* extension;
};
using Files = std::vector<File>;

constexpr File crp{".crp"};
constexpr File k5c{".k5c"};
constexpr File k5f{".k5f"};
constexpr File k5o{".k5o"};
constexpr File k5p{".k5p"};
constexpr File k5s{".k5s"};
constexpr File k5w{".k5w"};
constexpr File o2w{".o2w"};
constexpr File rsc{".rsc"};
constexpr File rsf{".rsf"};
constexpr File rsg{".rsg"};
constexpr File rso{".rso"};
constexpr File rsp{".rsp"};
constexpr File rsr{".rsr"};

/// A fact that holds or a file that exists; with "!" before it, one that does not.
struct Condition {
    Condition(Fact of) : fact(of) {}
    Condition(File of) : file(of) {}

    Fact fact{};
    File file{nullptr};  ///< without an extension: the condition is about the fact
    bool isWanted = true;
};

Condition operator!(Fact fact) {
    Condition condition(fact);
    condition.isWanted = false;
    return condition;
}

Condition operator!(File file) {
    Condition condition(file);
    condition.isWanted = false;
    return condition;
}

struct DebugFile {
    const char* name = nullptr;  ///< null: none is written
    const char* text = nullptr;
    Files looksFor = {};  ///< once more, while it is open
};

/// What a check does besides looking for result files, in the order in which it does it.
struct Steps {
    bool readsShotFile = false;
    const char* firstTrace = nullptr;
    // Here it looks for the result files.
    bool asksReader = false;
    bool looksForPreviousK5o = false;
    const char* nextTrace = nullptr;
    Files thenLooksFor = {};
    DebugFile debugFile = {};
    const char* lastTrace = nullptr;
};

/// One answer of a check.
struct Answer {
    std::vector<Condition> when;
    ResultCode code;
    Files looksFor;
    Steps steps = {};
};

struct Check {
    std::vector<std::int32_t> items;
    std::vector<Answer> answers;
};

constexpr const char* solidFiber = "@@@ I2Engine Fiber Orientation Results SOLID";
constexpr const char* noFiberNorFile = "@@@ I2Engine HasFiber=false and .o2w/.k5o file not exist";
constexpr const char* noFiber = "@@@ I2Engine  HasFiber=false";
constexpr const char* noFiberFile = "@@@ I2Engine .o2w/.k5 file not exist";
constexpr const char* thermalPlain = "@@@ ZorbI2Engine GetThermalStressResults OstraMesh = false";
constexpr const char* thermalOstra = "@@@ ZorbI2Engine GetThermalStressResults  OstraMesh = true";
constexpr const char* icmNoK5p =
    "@@@ I2Engine ICM project \"Packing Temperature Results\" no .k5p file";
constexpr const char* icmNoK5f =
    "@@@ I2Engine ICM project \"Packing Temperature Results\" no .k5f file";
constexpr const char* prevShot0 = "@@@ I2Engine .cmx file FlagPrevShot=0";
constexpr const char* prevShot1 = "@@@ I2Engine .cmx file FlagPrevShot=1";
constexpr const char* noPreviousK5o = "@@@ I2Engine does not have .k5o file";

DebugFile ShellIniStrain(const char* text) {
    return {.name = "ShellIniStrain.txt", .text = text};
}

const DebugFile thermalTest = {
    .name = "ThermalTest.txt", .text = "FileExt = .k5w\nChkResult = 0", .looksFor = {k5w}};

/// In every situation, one answer of an item applies. An item without a check has none.
// clang-format off
const std::vector<Check> checks = {
    //   when                                      code                          looks for, in order
    {{kItemFiberOrientation, kItemMicroMechanics}, {
        {{solid, fibers, o2w},                     kResultAvailable,             {o2w, k5o},
            {.firstTrace = solidFiber, .asksReader = true}},
        {{solid, fibers, !o2w, k5o, newEnough},    kResultAvailable,             {o2w, k5o},
            {.firstTrace = solidFiber, .asksReader = true}},
        {{solid, fibers, !o2w, k5o, !newEnough},   kResultNoO2w,                 {o2w, k5o},
            {.firstTrace = solidFiber, .asksReader = true, .lastTrace = noFiberFile}},
        {{solid, fibers, !o2w, !k5o},              kResultNoO2w,                 {o2w, k5o},
            {.firstTrace = solidFiber, .asksReader = true, .lastTrace = noFiberFile}},
        {{solid, !fibers, o2w},                    kResultNoFiberResults,        {o2w, k5o},
            {.firstTrace = solidFiber, .asksReader = true, .lastTrace = noFiber}},
        {{solid, !fibers, !o2w, k5o, newEnough},   kResultNoFiberResults,        {o2w, k5o},
            {.firstTrace = solidFiber, .asksReader = true, .lastTrace = noFiber}},
        {{solid, !fibers, !o2w, k5o, !newEnough},  kResultNoFiberResultsNorO2w,  {o2w, k5o},
            {.firstTrace = solidFiber, .asksReader = true, .lastTrace = noFiberNorFile}},
        {{solid, !fibers, !o2w, !k5o},             kResultNoFiberResultsNorO2w,  {o2w, k5o},
            {.firstTrace = solidFiber, .asksReader = true, .lastTrace = noFiberNorFile}},
    }},
    {{kItemFiberOrientation, kItemDigimatExport, kItemMicroMechanics}, {
        {{shell, fibers, rso},                     kResultAvailable,             {rso}},
        {{shell, fibers, !rso},                    kResultNoFiberResults,        {rso}},
        {{shell, !fibers},                         kResultNoFiberResults,        {rso}},
    }},
    {{kItemFiberOrientation, kItemMicroMechanics}, {
        {{!solid, !shell},                         kResultAvailable,             {}},
    }},
    {{kItemDigimatExport}, {
        {{!shell},                                 kResultAvailable,             {}},
    }},
    {{kItemRunner}, {
        {{runners},                                kResultAvailable,             {}},
        {{!runners},                               kResultNoRunners,             {}},
    }},
    {{kItemMoldbaseMesh}, {
        {{moldbase},                               kResultAvailable,             {}},
        {{!moldbase},                              kResultNoMoldbase,            {}},
    }},
    {{kItemFlowInducedStress}, {
        {{rsf},                                    kResultAvailable,             {rsf}},
        {{!rsf},                                   kResultNoRsf,                 {rsf}},
    }},
    {{kItemThermalStress}, {
        {{!ostraMesh, k5w},                        kResultAvailable,             {k5w},
            {.firstTrace = thermalPlain}},
        {{ostraMesh, k5w},                         kResultAvailable,             {k5w},
            {.firstTrace = thermalOstra}},
        {{!ostraMesh, !k5w},                       kResultNoK5w,                 {k5w},
            {.firstTrace = thermalPlain, .debugFile = thermalTest}},
        {{ostraMesh, !k5w},                        kResultNoK5w,                 {k5w},
            {.firstTrace = thermalOstra, .debugFile = thermalTest}},
    }},
    {{kItemInitialStrain}, {
        {{solid, k5f},                             kResultAvailable,             {k5f}},
        {{solid, !k5f},                            kResultNoK5f,                 {k5f}},
        {{shell, !rsp, !rsg, !rsr},                kResultNoK5f,                 {rsp, rsg, rsr},
            {.debugFile = ShellIniStrain("RSP = 0RSG = 0RSR = 0File = 0")}},
        {{shell, !rsp, !rsg, rsr},                 kResultAvailable,             {rsp, rsg, rsr},
            {.debugFile = ShellIniStrain("RSP = 0RSG = 0RSR = 1File = 1")}},
        {{shell, !rsp, rsg, !rsr},                 kResultAvailable,             {rsp, rsg, rsr},
            {.debugFile = ShellIniStrain("RSP = 0RSG = 1RSR = 0File = 1")}},
        {{shell, !rsp, rsg, rsr},                  kResultAvailable,             {rsp, rsg, rsr},
            {.debugFile = ShellIniStrain("RSP = 0RSG = 1RSR = 1File = 1")}},
        {{shell, rsp, !rsg, !rsr},                 kResultAvailable,             {rsp, rsg, rsr},
            {.debugFile = ShellIniStrain("RSP = 1RSG = 0RSR = 0File = 1")}},
        {{shell, rsp, !rsg, rsr},                  kResultAvailable,             {rsp, rsg, rsr},
            {.debugFile = ShellIniStrain("RSP = 1RSG = 0RSR = 1File = 1")}},
        {{shell, rsp, rsg, !rsr},                  kResultAvailable,             {rsp, rsg, rsr},
            {.debugFile = ShellIniStrain("RSP = 1RSG = 1RSR = 0File = 1")}},
        {{shell, rsp, rsg, rsr},                   kResultAvailable,             {rsp, rsg, rsr},
            {.debugFile = ShellIniStrain("RSP = 1RSG = 1RSR = 1File = 1")}},
        {{!solid, !shell},                         kResultAvailable,             {}},
    }},
    {{kItemInsertFlowPressure}, {
        {{insert, k5f},                            kResultAvailable,             {k5f}},
        {{insert, !k5f},                           kResultNoInsert,              {k5f}},
        {{!insert, k5f},                           kResultNoInsert,              {k5f}},
        {{!insert, !k5f},                          kResultNoInsertNorK5f,        {k5f}},
    }},
    {{kItemMoldbasePressure}, {
        {{moldbase, k5f},                          kResultAvailable,             {k5f}},
        {{moldbase, !k5f},                         kResultNoMoldbaseNorK5f,      {k5f}},
        {{!moldbase, k5f},                         kResultNoMoldbase,            {k5f}},
        {{!moldbase, !k5f},                        kResultNoMoldbaseNorK5f,      {k5f}},
    }},
    {{kItemMoldbaseTemperature}, {
        {{moldbase, k5c},                          kResultAvailable,             {k5c}},
        {{moldbase, !k5c},                         kResultNoK5c,                 {k5c}},
        {{!moldbase, k5c},                         kResultNoMoldbase,            {k5c}},
        {{!moldbase, !k5c},                        kResultNoMoldbaseNorK5c,      {k5c}},
    }},
    {{kItemPackingTemperature}, {
        {{solid, k5p},                             kResultAvailable,             {k5p}},
        {{solid, !icm, !k5p},                      kResultNoK5p,                 {k5p}},
        {{solid, icm, !k5p, k5f},                  kResultAvailable,             {k5p},
            {.nextTrace = icmNoK5p, .thenLooksFor = {k5f}}},
        {{solid, icm, !k5p, !k5f},                 kResultNoK5p,                 {k5p},
            {.nextTrace = icmNoK5p, .thenLooksFor = {k5f}, .lastTrace = icmNoK5f}},
        {{shell, rsp},                             kResultAvailable,             {rsp, rsg, rsr}},
        {{shell, !rsp, rsg},                       kResultAvailable,             {rsp, rsg, rsr}},
        {{shell, !rsp, !rsg, rsr},                 kResultAvailable,             {rsp, rsg, rsr}},
        {{shell, !rsp, !rsg, !rsr},                kResultNoK5p,                 {rsp, rsg, rsr}},
        {{!solid, !shell},                         kResultAvailable,             {}},
    }},
    {{kItemEndOfCoolingTemperature}, {
        {{solid, k5c},                             kResultAvailable,             {k5c}},
        {{solid, !k5c},                            kResultNoK5c,                 {k5c}},
        {{!solid, rsc},                            kResultAvailable,             {rsc}},
        {{!solid, !rsc},                           kResultNoK5c,                 {rsc}},
    }},
    {{kItemInsertFiberMaterial}, {
        {{!previousShot},                          kResultNoInsertFiberResults,  {},
            {.readsShotFile = true, .firstTrace = prevShot0}},
        {{previousShot, previousShotsK5o},         kResultAvailable,             {},
            {.readsShotFile = true, .firstTrace = prevShot1, .looksForPreviousK5o = true}},
        {{previousShot, !previousShotsK5o},        kResultNoInsertFiberResults,  {},
            {.readsShotFile = true, .firstTrace = prevShot1, .looksForPreviousK5o = true,
             .lastTrace = noPreviousK5o}},
    }},
    {{kItemDensity}, {
        {{k5f},                                    kResultAvailable,             {k5f}},
        {{!k5f},                                   kResultNoK5f,                 {k5f}},
    }},
    {{kItemWeldLine, kItemDigimatWeldLine}, {
        {{!k5f},                                   kResultNoK5f,                 {k5f}},
        {{k5f, meetingAngle},                      kResultAvailable,             {k5f}},
        {{k5f, !meetingAngle},                     kResultNoMeetingAngle,        {k5f}},
    }},
    {{kItemDigimatFiber}, {
        {{!shell, crp},                            kResultAvailable,             {crp, k5o}},
        {{!shell, !crp, k5o},                      kResultAvailable,             {crp, k5o}},
        {{!shell, !crp, !k5o},                     kResultNoMediCrp,             {crp, k5o}},
        {{shell, crp},                             kResultAvailable,             {crp, k5o, rso}},
        {{shell, !crp, k5o},                       kResultAvailable,             {crp, k5o, rso}},
        {{shell, !crp, !k5o, rso},                 kResultNoDigimatInformation,  {crp, k5o, rso}},
        {{shell, !crp, !k5o, !rso},                kResultNoMediCrp,             {crp, k5o, rso}},
    }},
    {{kItemDigimatStress}, {
        {{rsf},                                    kResultAvailable,             {rsf}},
        {{!rsf, k5w},                              kResultAvailable,             {rsf, k5w}},
        {{!rsf, !k5w},                             kResultNeitherRsfNorK5w,      {rsf, k5w}},
    }},
    {{kItemDigimatTemperature}, {
        {{k5p},                                    kResultAvailable,             {k5p}},
        {{!k5p, k5c},                              kResultAvailable,             {k5p, k5c}},
        {{!k5p, !k5c},                             kResultNeitherK5pNorK5c,      {k5p, k5c}},
    }},
    {{kItemAnnealingStress}, {
        {{k5s},                                    kResultAvailable,             {k5s}},
        {{!k5s},                                   kResultNoK5s,                 {k5s}},
    }},
};
// clang-format on

// ---- What of it applies -------------------------------------------------------------------------

constexpr const char* namePrefix = "D:\\Proj\\Run03\\Cover03";

bool IsInjectionCompression(std::int32_t projectType) {
    const std::set<std::int32_t> types = {4, 6, 7, 8, 9, 10, 11};
    return types.count(projectType) != 0;
}

bool HasFlag(const Situation& situation, std::size_t position) {
    return situation.info.flags[position] != 0;
}

bool Holds(Fact fact, const Situation& situation) {
    switch (fact) {
        case solid:
            return situation.info.solverType == kSolidProject;
        case shell:
            return situation.info.solverType == kShellProject;
        case ostraMesh:
            return situation.info.voxelFlag == 1;
        case icm:
            return IsInjectionCompression(situation.info.projectType);
        case fibers:
            return HasFlag(situation, CZorbFEAInformation::kHasFiber);
        case runners:
            return HasFlag(situation, CZorbFEAInformation::kHasRunners);
        case moldbase:
            return HasFlag(situation, CZorbFEAInformation::kHasMoldbase);
        case insert:
            return HasFlag(situation, CZorbFEAInformation::kHasInsertedPart);
        case meetingAngle:
            return HasFlag(situation, CZorbFEAInformation::kHasMeetingAngle);
        case newEnough:
            return situation.beginResult == 0 && situation.version >= 1004;
        case previousShot:
            return situation.flagPrevShotAfter == 1;
        case previousShotsK5o:
            return situation.previousRunHasK5o;
    }
    throw std::logic_error("a fact without a meaning");
}

bool Holds(const Condition& condition, const Situation& situation) {
    const char* const extension = condition.file.extension;
    const bool holds = extension != nullptr ? situation.files.count(extension) != 0
                                            : Holds(condition.fact, situation);
    return holds == condition.isWanted;
}

bool Applies(const Answer& answer, const Situation& situation) {
    return std::all_of(answer.when.begin(), answer.when.end(),
                       [&](const Condition& condition) { return Holds(condition, situation); });
}

const std::vector<const Answer*>& AnswersAbout(std::int32_t itemId) {
    static std::map<std::int32_t, std::vector<const Answer*>> byItem;
    if (byItem.empty()) {
        for (const Check& check : checks) {
            for (const std::int32_t item : check.items) {
                for (const Answer& answer : check.answers) {
                    byItem[item].push_back(&answer);
                }
            }
        }
    }
    return byItem[itemId];
}

/// The one answer that applies; of an item without a check, the code that says so.
const Answer& AnswerFor(std::int32_t itemId, const Situation& situation) {
    static const Answer withoutCheck = {{}, kResultNoCheck, {}};
    const std::vector<const Answer*>& answers = AnswersAbout(itemId);
    if (answers.empty())
        return withoutCheck;
    const auto applies = [&](const Answer* answer) { return Applies(*answer, situation); };
    if (std::count_if(answers.begin(), answers.end(), applies) != 1)
        throw std::logic_error("not one answer applies: " + Described(situation));
    return **std::find_if(answers.begin(), answers.end(), applies);
}

/// Whether the answer may apply in a project of that kind.
bool IsOfKind(const Answer& answer, std::int32_t solverType) {
    Situation situation;
    situation.info.solverType = solverType;
    return std::all_of(answer.when.begin(), answer.when.end(), [&](const Condition& condition) {
        const bool isAboutKind = condition.file.extension == nullptr &&
                                 (condition.fact == solid || condition.fact == shell);
        return !isAboutKind || Holds(condition, situation);
    });
}

// ---- From an answer to what a watched platform notes
// ------------------------------------------------

std::string InUpperCase(std::string extension) {
    for (char& character : extension) {
        if (character >= 'a' && character <= 'z')
            character = static_cast<char>(character - 'a' + 'A');
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

using Events = std::vector<std::string>;

void AddTrace(const char* line, Events& events) {
    if (line != nullptr)
        events.push_back("trace " + std::string(line));
}

void AddLooks(const Files& files, const Situation& situation, Events& events) {
    for (const File& file : files) {
        events.push_back("exists " + ResultPath(file.extension, situation));
        events.push_back("exists " + (namePrefix + InUpperCase(file.extension)));
    }
}

void AddShotFile(const Situation& situation, Events& events) {
    events.push_back("trace @@@ Engine read cmx file");
    events.push_back("trace " + ShotFilePath(situation));
    events.push_back("open r " + ShotFilePath(situation));
}

void AddReader(Events& events) {
    events.push_back("reader begin " + SystemPath(std::string(namePrefix) + ".k5o"));
    events.push_back("reader version");
    events.push_back("reader end");
}

bool IsWritten(const DebugFile& file, const Situation& situation) {
    return file.name != nullptr && situation.unwritableFiles.count(file.name) == 0;
}

void AddDebugFile(const DebugFile& file, const Situation& situation, Events& events) {
    if (file.name != nullptr)
        events.push_back("open w " + std::string(file.name));
    AddLooks(file.looksFor, situation, events);
    if (IsWritten(file, situation))
        events.push_back("close " + std::string(file.name));
}

Events EventsOf(const Answer& answer, const Situation& situation) {
    const Steps& steps = answer.steps;
    Events events;
    if (steps.readsShotFile)
        AddShotFile(situation, events);
    AddTrace(steps.firstTrace, events);
    AddLooks(answer.looksFor, situation, events);
    if (steps.asksReader)
        AddReader(events);
    if (steps.looksForPreviousK5o)
        events.push_back("exists " + PreviousPath(situation));
    AddTrace(steps.nextTrace, events);
    AddLooks(steps.thenLooksFor, situation, events);
    AddDebugFile(steps.debugFile, situation, events);
    AddTrace(steps.lastTrace, events);
    return events;
}

/// What is left in the end. The first look for a result file normalizes the folder.
void AddRemains(const Answer& answer, const Situation& situation, Events& events) {
    const DebugFile& debugFile = answer.steps.debugFile;
    const bool wasRead = answer.steps.readsShotFile;
    if (IsWritten(debugFile, situation))
        events.push_back("left in " + std::string(debugFile.name) + ": " + debugFile.text);
    events.push_back("folder " + (answer.looksFor.empty() ? situation.info.projectFolder
                                                          : std::string("D:\\Proj\\Run03\\")));
    events.push_back("flagPrevShot " + std::to_string(wasRead ? situation.flagPrevShotAfter
                                                              : situation.flagPrevShot));
    events.push_back("valueShotRunID " + std::to_string(wasRead ? situation.valueShotRunIDAfter
                                                                : situation.valueShotRunID));
    events.push_back("code " + std::to_string(answer.code));
}

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
    std::set<std::string> extensions;
    for (const Answer* answer : AnswersAbout(itemId)) {
        if (IsOfKind(*answer, solverType)) {
            for (const Files& files : {answer->looksFor, answer->steps.thenLooksFor}) {
                for (const File& file : files) {
                    extensions.insert(file.extension);
                }
            }
        }
    }
    return extensions;
}

std::vector<std::string> Transcript(std::int32_t itemId, const Situation& situation) {
    const Answer& answer = AnswerFor(itemId, situation);
    Events events = EventsOf(answer, situation);
    AddRemains(answer, situation, events);
    return events;
}

std::string Described(const Situation& situation) {
    const CZorbFEAInformation& info = situation.info;
    std::ostringstream text;
    text << "solver type " << info.solverType << ", project type " << info.projectType
         << ", voxel flag " << info.voxelFlag << ", flags";
    for (const std::size_t position : factFlags) {
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
