#include "tests/golden/Passes.h"

#include <locale>
#include <sstream>

namespace golden {

namespace {

using Files = std::vector<std::string>;
using Choices = std::vector<Choice>;

// ---- Projects -----------------------------------------------------------------------------------

const char* const shotOfRun2 =
    "[CMX]\n<SOLID_MCM>\nVersion = 1\nFlagPrevShot = 1\nValueShotRunID = 2\n</SOLID_MCM>\n";

const std::vector<int> everyFact = {1, 11, 12, 13, 14, 16};

const Files solidFiles = {
    "Run03\\Cover03.o2w", "Run03\\Cover03.k5w", "Run03\\Cover03.rsf",      "Run03\\Cover03.k5f",
    "Run03\\Cover03.k5p", "Run03\\Cover03.k5c", "Run03\\Cover03_medi.crp", "Run03\\Cover03.k5s",
    "Run03\\Cover03.k5o", "Run02\\Cover02.k5o",
};

const Files shellFiles = {
    "Run03\\Cover03.rso", "Run03\\Cover03.rsp", "Run03\\Cover03.rsg", "Run03\\Cover03.rsr",
    "Run03\\Cover03.rsf", "Run03\\Cover03.rsc", "Run03\\Cover03.k5f",
};

const Files voxelFiles = {
    "Run03\\Cover03_vox.k5o", "Run03\\Cover03.k5w", "Run03\\Cover03.rsf",
    "Run03\\Cover03.k5f",     "Run03\\Cover03.k5p", "Run03\\Cover03.k5c",
};

/// A fiber-filled solid part with runners, an insert from an earlier shot and a moldbase.
const Project solid = {
    .flags = everyFact, .files = solidFiles, .shotFile = shotOfRun2, .fiberVersion = 1004};

const Project solidAnnealed = {.projectType = 3,
                               .flags = everyFact,
                               .files = solidFiles,
                               .shotFile = shotOfRun2,
                               .fiberVersion = 1004};

const Project solidFoamed = {.projectType = 9,
                             .flags = everyFact,
                             .files = solidFiles,
                             .shotFile = shotOfRun2,
                             .fiberVersion = 1004};

const Project solidUnfilled = {
    .flags = {1, 13},
    .files = {"Run03\\Cover03.k5w", "Run03\\Cover03.rsf", "Run03\\Cover03.k5f",
              "Run03\\Cover03.k5p", "Run03\\Cover03.k5c"}};

const Project solidWithoutResults = {.flags = everyFact};

const Project shell = {.solverType = 1, .flags = {1, 11, 12, 16}, .files = shellFiles};

const Project shellUnfilled = {
    .solverType = 1, .flags = {1}, .files = {"Run03\\Cover03.rso", "Run03\\Cover03.rsg"}};

const Project voxel = {
    .voxelFlag = 1, .flags = everyFact, .files = voxelFiles, .fiberVersion = 1005};

/// With a result for ".k5o" of one version and no other fiber results.
Project SolidWithFiberVersion(long long version) {
    Project project = solidUnfilled;
    project.flags = {1, 11};
    project.files.push_back("Run03\\Cover03.k5o");
    project.fiberVersion = version;
    return project;
}

Project WithFlags(Project project, const std::vector<int>& flags) {
    project.flags = flags;
    return project;
}

Project WithFiles(Project project, const Files& files) {
    project.files = files;
    return project;
}

// ---- Choices ------------------------------------------------------------------------------------

/// Every item checked; option items with their coarsest choice that counts as output.
const Choices everything = {
    {0, -1, 0},  {1, -1, 1},  {2, 1, -1},  {3, 1, -1},  {4, 1, -1},  {5, 1, -1},
    {6, 1, -1},  {7, 1, -1},  {8, 1, -1},  {9, 1, -1},  {10, 1, -1}, {11, -1, 1},
    {12, -1, 0}, {13, -1, 1}, {14, 1, -1}, {15, -1, 0}, {16, 1, -1}, {17, 1, -1},
    {18, 1, -1}, {19, 1, -1}, {20, 1, -1}, {21, 1, -1},
};

/// The check items of the part alone.
const Choices partResults = {
    {3, 1, -1}, {4, 1, -1}, {5, 1, -1}, {8, 1, -1}, {9, 1, -1}, {14, 1, -1},
};

const Choices everythingUnchecked = {
    {0, -1, 5},  {1, -1, 0},  {2, 0, -1},  {3, 0, -1},  {4, 0, -1},  {5, 0, -1},  {6, 0, -1},
    {7, 0, -1},  {8, 0, -1},  {9, 0, -1},  {10, 0, -1}, {12, -1, 5}, {13, -1, 0}, {14, 0, -1},
    {15, -1, 1}, {16, 0, -1}, {17, 0, -1}, {18, 0, -1}, {19, 0, -1}, {20, 0, -1}, {21, 0, -1},
};

/// Material reduction of part and insert, density and composite model.
Choices Levels(int part, int insert, int density, int model) {
    return {{0, -1, part}, {12, -1, insert}, {13, -1, density}, {15, -1, model}};
}

// ---- The table ----------------------------------------------------------------------------------

// clang-format off
const std::vector<Pass> passes = {
    // Solid projects: every solver with its mesh kinds.
    {.name = "AnsysOriginal",          .project = solid, .visits = {{.solver = 0, .meshKind = 0, .choices = everything}}},
    {.name = "AnsysDeformed",          .project = solid, .visits = {{.solver = 0, .meshKind = 1, .choices = everything}}},
    {.name = "AnsysMapped",            .project = solid, .visits = {{.solver = 0, .meshKind = 2, .choices = partResults}}},
    {.name = "AbaqusOriginal",         .project = solid, .visits = {{.solver = 1, .meshKind = 0, .choices = partResults}}},
    {.name = "AbaqusDeformed",         .project = solid, .visits = {{.solver = 1, .meshKind = 1, .choices = everything}}},
    {.name = "AbaqusMapped",           .project = solid, .visits = {{.solver = 1, .meshKind = 2, .choices = everything}}},
    {.name = "MscNastranOriginal",     .project = solid, .visits = {{.solver = 2, .meshKind = 0, .choices = everything}}},
    {.name = "MscNastranDeformed",     .project = solid, .visits = {{.solver = 2, .meshKind = 1, .choices = everything}}},
    {.name = "MscNastranMapped",       .project = solid, .visits = {{.solver = 2, .meshKind = 2, .choices = partResults}}},
    {.name = "NeNastranOriginal",      .project = solid, .visits = {{.solver = 3, .meshKind = 0, .choices = everything}}},
    {.name = "NeNastranDeformed",      .project = solid, .visits = {{.solver = 3, .meshKind = 1, .choices = everything}}},
    {.name = "NeNastranMapped",        .project = solid, .visits = {{.solver = 3, .meshKind = 2, .choices = everything}}},
    {.name = "LsDynaOriginal",         .project = solid, .visits = {{.solver = 4, .meshKind = 0, .choices = everything}}},
    {.name = "LsDynaDeformed",         .project = solid, .visits = {{.solver = 4, .meshKind = 1, .choices = everything}}},
    {.name = "LsDynaMapped",           .project = solid, .visits = {{.solver = 4, .meshKind = 2, .choices = everything}}},
    {.name = "LsDyna3DMappingToShell", .project = solid, .visits = {{.solver = 4, .meshKind = 3, .choices = everything}}},
    {.name = "MarcOriginal",           .project = solid, .visits = {{.solver = 5, .meshKind = 0, .choices = everything}}},
    {.name = "MarcDeformed",           .project = solid, .visits = {{.solver = 5, .meshKind = 1, .choices = partResults}}},
    {.name = "MarcMapped",             .project = solid, .visits = {{.solver = 5, .meshKind = 2, .choices = everything}}},
    {.name = "NxNastranOriginal",      .project = solid, .visits = {{.solver = 6, .meshKind = 0, .choices = partResults}}},
    {.name = "NxNastranDeformed",      .project = solid, .visits = {{.solver = 6, .meshKind = 1, .choices = everything}}},
    {.name = "NxNastranMapped",        .project = solid, .visits = {{.solver = 6, .meshKind = 2, .choices = everything}}},
    {.name = "RadiossOriginal",        .project = solid, .visits = {{.solver = 7, .meshKind = 0, .choices = everything}}},
    {.name = "RadiossDeformed",        .project = solid, .visits = {{.solver = 7, .meshKind = 1, .choices = everything}}},
    {.name = "RadiossMapped",          .project = solid, .visits = {{.solver = 7, .meshKind = 2, .choices = everything}}},
    {.name = "WorkbenchMapped",        .project = solid, .visits = {{.solver = 8, .meshKind = 2, .choices = everything}}},
    {.name = "WorkbenchUnlistedMesh",  .project = solid, .visits = {{.solver = 8, .meshKind = 7, .choices = everything}}},
    {.name = "AnsysUnlistedMesh",      .project = solid, .visits = {{.solver = 0, .meshKind = 3, .choices = everything}}},
    {.name = "MappedQuadratic",        .project = solid, .visits = {{.solver = 0, .meshKind = 2, .quadraticElement = 1, .choices = everything}}},
    {.name = "QuadraticByAnyNumber",   .project = solid, .visits = {{.solver = 5, .meshKind = 0, .quadraticElement = -7}}},

    // Annealing and foaming.
    {.name = "AnsysAnnealed",          .project = solidAnnealed, .visits = {{.solver = 0, .meshKind = 1, .annealingMode = 1, .choices = everything}}},
    {.name = "AbaqusAnnealed",         .project = solidAnnealed, .visits = {{.solver = 1, .meshKind = 1, .annealingMode = 1, .choices = everything}}},
    {.name = "LsDynaAnnealed",         .project = solidAnnealed, .visits = {{.solver = 4, .meshKind = 1, .annealingMode = 1, .choices = everything}}},
    {.name = "MarcAnnealed",           .project = solidAnnealed, .visits = {{.solver = 5, .meshKind = 1, .annealingMode = 1, .choices = everything}}},
    {.name = "RadiossAnnealed",        .project = solidAnnealed, .visits = {{.solver = 7, .meshKind = 1, .annealingMode = 1, .choices = everything}}},
    {.name = "AnnealedOriginal",       .project = solidAnnealed, .visits = {{.solver = 0, .meshKind = 0, .annealingMode = 1, .choices = everything}}},
    {.name = "AnnealingModeZero",      .project = solidAnnealed, .visits = {{.solver = 0, .meshKind = 1, .annealingMode = 0, .choices = everything}}},
    {.name = "AnnealingModeTwoAnsys",  .project = solidAnnealed, .visits = {{.solver = 0, .meshKind = 1, .annealingMode = 2, .choices = everything}}},
    {.name = "AnnealingModeTwoAbaqus", .project = solidAnnealed, .visits = {{.solver = 1, .meshKind = 1, .annealingMode = 2, .choices = everything}}},
    {.name = "AnnealingModeOneOfAnotherProject", .project = solid, .visits = {{.solver = 0, .meshKind = 1, .annealingMode = 1, .choices = everything}}},
    {.name = "FoamedOriginal",         .project = solidFoamed, .visits = {{.solver = 0, .meshKind = 0, .choices = everything}}},
    {.name = "FoamedDeformed",         .project = solidFoamed, .visits = {{.solver = 2, .meshKind = 1, .choices = everything}}},

    // Shell and voxel projects, and a kind that neither is.
    {.name = "ShellAnsys",             .project = shell, .visits = {{.solver = 0, .meshKind = 0, .choices = everything}}},
    {.name = "ShellAnsysDeformed",     .project = shell, .visits = {{.solver = 0, .meshKind = 1, .choices = everything}}},
    {.name = "ShellAbaqusMapped",      .project = shell, .visits = {{.solver = 1, .meshKind = 2, .choices = everything}}},
    {.name = "ShellMscNastran",        .project = shell, .visits = {{.solver = 2, .meshKind = 0, .choices = everything}}},
    {.name = "ShellLsDyna",            .project = shell, .visits = {{.solver = 4, .meshKind = 0, .choices = everything}}},
    {.name = "ShellMarcMapped",        .project = shell, .visits = {{.solver = 5, .meshKind = 2, .choices = everything}}},
    {.name = "ShellRadiossNotOffered", .project = shell, .visits = {{.solver = 7, .meshKind = 0, .choices = everything}}},
    {.name = "ShellWorkbenchNotOffered", .project = shell, .visits = {{.solver = 8, .meshKind = 2, .choices = everything}}},
    {.name = "ShellUnfilled",          .project = shellUnfilled, .visits = {{.solver = 1, .meshKind = 0, .choices = everything}}},
    {.name = "VoxelAnsysMapped",       .project = voxel, .visits = {{.solver = 0, .meshKind = 2, .choices = everything}}},
    {.name = "VoxelAnsysOriginal",     .project = voxel, .visits = {{.solver = 0, .meshKind = 0, .choices = everything}}},
    {.name = "VoxelLsDyna3DMappingToShell", .project = voxel, .visits = {{.solver = 4, .meshKind = 3, .choices = everything}}},
    {.name = "VoxelWorkbench",         .project = voxel, .visits = {{.solver = 8, .meshKind = 0, .choices = everything}}},
    {.name = "NeitherSolidNorShell",   .project = {.solverType = 2, .flags = everyFact}, .visits = {{.solver = 0, .meshKind = 0, .choices = everything}}},

    // Choices.
    {.name = "NothingChosen",          .project = solid, .visits = {{}}},
    {.name = "EverythingUnchecked",    .project = solid, .visits = {{.choices = everythingUnchecked}}},
    {.name = "ReductionMin",           .project = solid, .visits = {{.choices = Levels(0, 4, 1, 0)}}},
    {.name = "ReductionLow",           .project = solid, .visits = {{.choices = Levels(1, 3, 2, 1)}}},
    {.name = "ReductionMedium",        .project = solid, .visits = {{.choices = Levels(2, 2, 3, 2)}}},
    {.name = "ReductionHigh",          .project = solid, .visits = {{.choices = Levels(3, 1, 4, 0)}}},
    {.name = "ReductionMax",           .project = solid, .visits = {{.choices = Levels(4, 0, 5, 1)}}},
    {.name = "ReductionNone",          .project = solid, .visits = {{.choices = Levels(5, 5, 6, 2)}}},
    {.name = "DistributedModel",       .project = solid, .visits = {{.choices = Levels(6, 6, 0, 2)}}},
    {.name = "LevelsBeyondTheOptions", .project = solid, .visits = {{.choices = Levels(7, 8, 7, 9)}}},
    {.name = "CheckStateTwo",          .project = solid, .visits = {{.choices = {{3, 2, -1}, {4, 1, -1}}}}},
    {.name = "RefusedChoices",         .project = solid, .visits = {{.choices = {{0, 1, -1}, {1, 1, -2}, {3, -1, 1}, {13, 1, -1}}}}},
    {.name = "ChoicesNotCommitted",    .project = solid, .visits = {{.choices = everything, .commitsChoices = false}}},

    // Missing results.
    {.name = "NoResults",              .project = solidWithoutResults, .visits = {{.choices = everything}}},
    {.name = "NoResultsNoFacts",       .project = {.flags = {1}}, .visits = {{.choices = everything}}},
    {.name = "UnfilledPart",           .project = solidUnfilled, .visits = {{.choices = everything}}},
    {.name = "FiberResultsTooOld",     .project = SolidWithFiberVersion(1003), .visits = {{.choices = everything}}},
    {.name = "FiberResultsNewEnough",  .project = SolidWithFiberVersion(1004), .visits = {{.choices = everything}}},
    {.name = "NoMeetingAngles",        .project = WithFlags(solid, {1, 11, 12, 13, 14}), .visits = {{.choices = everything}}},
    {.name = "NoInsertNoMoldbase",     .project = WithFlags(solid, {1, 11, 12, 16}), .visits = {{.choices = everything}}},
    {.name = "InsertOfThisShot",       .project = {.flags = everyFact, .files = solidFiles, .fiberVersion = 1004}, .visits = {{.choices = everything}}},
    {.name = "PreviousShotWithoutFibers", .project = WithFiles(solid, {"Run03\\Cover03.o2w", "Run03\\Cover03.k5f"}), .visits = {{.choices = everything}}},
    {.name = "CompressionPackingFromFilling", .project = {.projectType = 6, .flags = everyFact, .files = {"Run03\\Cover03.k5f"}}, .visits = {{.choices = everything}}},
    {.name = "PackingWithoutResults",  .project = {.projectType = 5, .flags = everyFact, .files = {"Run03\\Cover03.k5f"}}, .visits = {{.choices = everything}}},
    {.name = "OnlyUpperCaseNames",     .project = {.flags = everyFact, .files = {"Run03\\Cover03.K5F", "Run03\\Cover03.RSF"}}, .visits = {{.choices = everything}}},

    // Solvers that do not exist.
    {.name = "SolverNine",             .project = solid, .visits = {{.solver = 0, .choices = everything}, {.solver = 9}}},
    {.name = "SolverMinusOne",         .project = solid, .visits = {{.solver = 2, .meshKind = 2, .choices = everything}, {.solver = -1, .meshKind = 2, .offersItems = false}}},

    // Several visits to the dialog.
    {.name = "LastSolverCounts",       .project = solid, .visits = {{.solver = 4, .meshKind = 3, .choices = everything}, {.solver = 1, .meshKind = 0, .quadraticElement = 1, .choices = partResults}}},
    {.name = "ChoicesBelongToTheirSolver", .project = solid, .visits = {{.solver = 4, .choices = everything}, {.solver = 1}, {.solver = 4}}},
    {.name = "ChoicesOfTheOtherSolverStayCommitted", .project = solid, .visits = {{.solver = 4, .choices = everything}, {.solver = 1, .commitsChoices = false}}},
    {.name = "StatusChangedAfterTheOffer", .project = solid, .visits = {{.solver = 4, .meshKind = 3, .choices = everything}, {.solver = 4, .meshKind = 0, .offersItems = false}}},

    // Weld lines.
    {.name = "WeldlinesOfAnsys",       .project = solid, .visits = {{.solver = 0, .takesWeldlines = true}}, .weldlines = {{0, {15.0, 45.5, 75.125}, {0.75, 0.85, 0.9}}, {1, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3}}}},
    {.name = "WeldlinesOfAbaqus",      .project = solid, .visits = {{.solver = 1, .takesWeldlines = true}}, .weldlines = {{0, {15.0, 45.5, 75.125}, {0.75, 0.85, 0.9}}, {1, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3}}}},
    {.name = "WeldlinesOfWorkbench",   .project = solid, .visits = {{.solver = 8, .meshKind = 2, .takesWeldlines = true}}, .weldlines = {{8, {10.0, 20.0, 30.0, 40.0}, {0.5, 0.6, 0.7, 0.8}}}},
    {.name = "WeldlinesNotTaken",      .project = solid, .visits = {{.solver = 0}}, .weldlines = {{0, {15.0, 45.5, 75.125}, {0.75, 0.85, 0.9}}}},
    {.name = "WeldlinesOfTheSolverBefore", .project = solid, .visits = {{.solver = 5, .takesWeldlines = true}, {.solver = 6}}, .weldlines = {{5, {11.0, 22.0, 33.0}, {0.11, 0.22, 0.33}}, {6, {44.0, 55.0, 66.0}, {0.44, 0.55, 0.66}}}},
    {.name = "WeldlinesRounded",       .project = solid, .visits = {{.solver = 3, .takesWeldlines = true}}, .weldlines = {{3, {0.0004, 59.9996, 1e15}, {-0.25, 0.0625, 1.0005}}}},

    // Settings.
    {.name = "DigimatAngle",           .project = solid, .visits = {{.solver = 4, .choices = {{11, -1, 0}, {16, 1, -1}}}}, .settings = {.digimatAngle = 120.25}},
    {.name = "DigimatAngleBelowZero",  .project = solid, .visits = {{.solver = 4}}, .settings = {.digimatAngle = -5.0}},
    {.name = "ViewEditOfTheRecord",    .project = WithFlags(solid, {1, 11, 19}), .visits = {{}}},
    {.name = "ViewEditSwitchedOn",     .project = solid, .visits = {{}}, .settings = {.viewEdit = true}},
    {.name = "ViewEditSwitchedOff",    .project = WithFlags(solid, {1, 11, 19}), .visits = {{}}, .settings = {.viewEdit = false}},
    {.name = "EmptySettings",          .project = solid, .visits = {{.meshKind = 2}}, .settings = {.outFolder = "", .mappedMesh = ""}},
    {.name = "PercentSignsAndUmlauts", .project = solid, .visits = {{.meshKind = 2}}, .settings = {.outFolder = "D:\\M\xfcller 100%\\%s%d\\", .mappedMesh = "D:\\%n\\a b.msh"}},
    {.name = "RunTwelve",              .project = {.runFolder = "Run12\\", .runNumber = 12, .flags = {1, 11, 12}, .files = {"Run12\\Cover12.o2w", "Run12\\Cover12.k5f"}}, .visits = {{.choices = everything}}},

    // The lists of this one are given, so that the file shows one item of each kind.
    {.name = "ExampleOfTheFormat",
     .project = {.root = "C:\\Projects\\Cover\\", .runFolder = "Run01", .runNumber = 1, .projectType = 1, .flags = {1, 11, 12, 13, 14, 16},
                 .files = {"Run01\\Cover01.o2w", "Run01\\Cover01.rsf", "Run01\\Cover01.k5w", "Run01\\Cover01.k5f", "Run01\\Cover01.k5c", "Run00\\Cover00.k5o"},
                 .shotFile = "<SOLID_MCM>\nFlagPrevShot = 1\nValueShotRunID = 0\n</SOLID_MCM>\n"},
     .visits = {{.solver = 0, .meshKind = 1, .choices = {{0, -1, 2}, {12, -1, 0}, {13, -1, 2}, {15, -1, 0}, {2, 1, -1}, {3, 1, -1}, {4, 1, -1}, {10, 1, -1}}}},
     .settings = {.outFolder = "C:\\Projects\\Cover\\Run01\\I2"},
     .lists = ItemLists{{0, 3, 4, 13}, {}, {2, 10}}},
};
// clang-format on

// ---- As text ------------------------------------------------------------------------------------

template <typename Value>
void PutList(std::ostream& text, const char* key, const std::vector<Value>& values) {
    text << key;
    for (const Value& value : values) {
        text << ' ' << value;
    }
    text << '\n';
}

/// With its line ends as "|".
std::string OnOneLine(std::string text) {
    for (char& character : text) {
        character = character == '\n' ? '|' : character;
    }
    return text;
}

void Put(std::ostream& text, const Project& project) {
    text << "root " << project.root << '\n'
         << "runFolder " << project.runFolder << '\n'
         << "projectName " << project.name << '\n'
         << "runNumber " << project.runNumber << '\n'
         << "solverType " << project.solverType << '\n'
         << "projectType " << project.projectType << '\n'
         << "voxelFlag " << project.voxelFlag << '\n';
    PutList(text, "flags", project.flags);
    for (const std::string& file : project.files) {
        text << "file " << file << '\n';
    }
    if (!project.shotFile.empty()) {
        text << "shotFile " << OnOneLine(project.shotFile) << '\n';
    }
    text << "fiberVersion " << project.fiberVersion << '\n';
}

void Put(std::ostream& text, const Settings& settings) {
    text << "outFolder " << settings.outFolder << '\n'
         << "mappedMesh " << settings.mappedMesh << '\n';
    if (settings.viewEdit) {
        text << "viewEdit " << *settings.viewEdit << '\n';
    }
    if (settings.digimatAngle) {
        text << "digimatAngle " << *settings.digimatAngle << '\n';
    }
}

void Put(std::ostream& text, const WeldlineValues& weldlines) {
    text << "weldlines " << weldlines.solver << '\n';
    PutList(text, "angles", weldlines.angles);
    PutList(text, "rates", weldlines.rates);
}

void Put(std::ostream& text, const Visit& visit) {
    text << "visit " << visit.solver << ' ' << visit.meshKind << ' ' << visit.quadraticElement
         << ' ' << visit.annealingMode << '\n'
         << "offersItems " << visit.offersItems << '\n';
    for (const Choice& choice : visit.choices) {
        text << "choice " << choice.itemId << ' ' << choice.checkState << ' ' << choice.option
             << '\n';
    }
    text << "commitsChoices " << visit.commitsChoices << '\n'
         << "takesWeldlines " << visit.takesWeldlines << '\n';
}

void Put(std::ostream& text, const Pass& pass) {
    text << "pass " << pass.name << '\n';
    Put(text, pass.project);
    Put(text, pass.settings);
    for (const WeldlineValues& weldlines : pass.weldlines) {
        Put(text, weldlines);
    }
    for (const Visit& visit : pass.visits) {
        Put(text, visit);
    }
    if (pass.lists) {
        PutList(text, "partList", pass.lists->part);
        PutList(text, "partInsertList", pass.lists->partInsert);
        PutList(text, "moldbaseList", pass.lists->moldbase);
    }
    text << "end\n";
}

}  // namespace

const std::vector<Pass>& Passes() {
    return passes;
}

std::string PassesAsText() {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(17);
    for (const Pass& pass : passes) {
        Put(text, pass);
    }
    return text.str();
}

}  // namespace golden
