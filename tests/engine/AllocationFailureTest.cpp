// Every allocation of an operation fails in turn, once and then for good: nothing leaks, nothing is
// half done that a later call could stumble over, and the operation works when there is memory.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <new>
#include <numeric>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2AccessCMIFile.h>
#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/CZorbI2WeldlineDataStatus.h>
#include <zorbi2/ZorbI2Types.h>

#include "tests/support/FailingAllocations.h"
#include "tests/support/SampleProject.h"

using support::FailingAllocations;
using support::OpenProject;
using testing::IsEmpty;
using Mode = FailingAllocations::Mode;

namespace {

constexpr Mode modes[] = {Mode::once, Mode::fromThenOn};
const std::string cmiPath = "D:\\a folder whose name needs memory\\Cover03.cmi";

enum class Outcome { refused, done, badAlloc };

struct Attempt {
    Outcome outcome;
    bool hasFailed;  ///< whether any allocation failed
};

/// One try of the operation, in which allocation `number` fails.
template <typename Operation>
Attempt Try(FailingAllocations& watch, std::size_t number, Mode mode, Operation&& operation) {
    Outcome outcome = Outcome::badAlloc;
    watch.Start(number, mode);
    try {
        outcome = operation() ? Outcome::done : Outcome::refused;
    } catch (const std::bad_alloc&) {
        // the outcome that was assumed
    }
    watch.Stop();
    return {outcome, watch.HasFailed()};
}

/// What a host does with every group of offered items.
void ReadOfferedItems(CZorbI2EngineManager& manager) {
    CZorbI2Item item;
    CZorbI2ItemStatus status;
    for (int position = 0; position < kItemCount; ++position) {
        manager.GetPartPopItem(position, &item, &status);
        manager.GetPartInsertPopItem(position, &item, &status);
        manager.GetMoldBasePopItem(position, &item, &status);
    }
}

void SetPaths(CZorbI2EngineManager& manager) {
    manager.SetOutFolder("another folder whose name needs memory");
    manager.SetMappedMeshFilePath("a mapped mesh whose name needs memory");
    manager.SetCMIFileFullPath("D:\\a folder whose name needs memory", "Cover", 3, "cmi");
}

/// Offers the original ANSYS mesh, the largest offer of a solid project.
void OfferItems(CZorbI2EngineManager& manager) {
    manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    manager.SetPopItems();
    manager.HasPopItem();
}

/// One whole pass of a host, from the settings to the file.
void MakeWholePass(CZorbI2EngineManager& manager) {
    SetPaths(manager);
    OfferItems(manager);
    ReadOfferedItems(manager);
    std::map<int, std::string> options;
    for (int itemId = 0; itemId < kItemCount; ++itemId) {
        manager.GetItemAllOptions(itemId, options);
        manager.SetItemStatus(itemId, 1, 1);
    }
    manager.SetItemsValue();
    CZorbI2WeldlineDataStatus weldlines;
    manager.SetWeldlineDataStatus(kSolverAnsys, {10.0, 20.0, 30.0}, {0.5, 0.6, 0.7});
    manager.SetWeldlineDataValue();
    manager.GetWeldlinePopData(kSolverAnsys, &weldlines);
    manager.WriteCMIFile(0);
    manager.Close();
}

std::string FileOfWholePass(OpenProject& project) {
    project.files.written.clear();
    MakeWholePass(project.manager);
    return project.files.written[cmiPath];
}

std::string FileOfUntroubledPass() {
    OpenProject project;
    return FileOfWholePass(project);
}

/// All that a host reads of an open project, and the file that would be written now.
std::string StateOf(OpenProject& project) {
    CZorbI2EngineManager& manager = project.manager;
    std::ostringstream state;
    CZorbI2Item item;
    CZorbI2ItemStatus status;
    for (int itemId = 0; itemId < kItemCount; ++itemId) {
        manager.GetPartPopItemByID(itemId, &item, &status);
        state << status.checkState << ' ' << status.optionValue << '\n';
        std::map<int, std::string> options;
        manager.GetItemAllOptions(itemId, options);
        for (const auto& [key, label] : options) {
            state << key << ' ' << label << '\n';
        }
    }
    for (int solver = 0; solver < kSolverCount; ++solver) {
        int values[3] = {};
        manager.GetCurrentSolverStatus(solver, values[0], values[1], values[2]);
        CZorbI2WeldlineDataStatus weldlines;
        manager.GetWeldlinePopData(solver, &weldlines);
        state << values[0] << values[1] << values[2] << ' ' << weldlines.WeldlineAngles.at(2) << ' '
              << weldlines.ReductionRates.at(2) << '\n';
    }
    project.files.written.clear();
    manager.WriteCMIFile(0);
    for (const auto& [path, text] : project.files.written) {
        state << path << '\n' << text;
    }
    return state.str();
}

using OnProject = std::function<void(OpenProject& project)>;

/// Tries the operation on an open project, with items offered, until no allocation fails. Without
/// memory it raises std::bad_alloc, and a whole pass afterwards gives the file as ever. Returns how
/// many allocations failed in each mode.
std::size_t ExpectToSurvive(const OnProject& operation, const OnProject& afterFailure) {
    const std::string expectedFile = FileOfUntroubledPass();
    std::size_t failures = 0;
    for (const Mode mode : modes) {
        bool ranClean = false;
        for (std::size_t number = 0; !ranClean; ++number) {
            SCOPED_TRACE(testing::Message() << "allocation " << number << ", mode " << int(mode));
            FailingAllocations watch;
            {
                OpenProject project;
                SetPaths(project.manager);
                OfferItems(project.manager);
                const Attempt attempt = Try(watch, number, mode, [&] {
                    operation(project);
                    return true;
                });
                EXPECT_EQ(attempt.outcome, attempt.hasFailed ? Outcome::badAlloc : Outcome::done);
                if (attempt.hasFailed) {
                    afterFailure(project);
                }
                EXPECT_EQ(FileOfWholePass(project), expectedFile);
                ranClean = !attempt.hasFailed;
            }
            EXPECT_EQ(watch.Live(), 0U);
            failures = number;
        }
    }
    return failures;
}

void PrintFailures(const std::string& operation, std::size_t failures) {
    std::printf("%s: %zu allocations failed, once and for good\n", operation.c_str(), failures);
}

/// What is missing from an engine that was built with too little memory.
struct Gaps {
    std::vector<int> solvers;
    std::vector<int> items;
};

Gaps GapsOf(const CZorbI2Engine& engine) {
    const support::UnwatchedAllocations unwatched;
    Gaps gaps;
    for (int solver = 0; solver < kSolverCount; ++solver) {
        if (engine.solverOffered[solver] && !engine.solverSlots[solver]) {
            gaps.solvers.push_back(solver);
        }
    }
    for (int itemId = 0; itemId < kItemCount; ++itemId) {
        if (!engine.items[itemId]) {
            gaps.items.push_back(itemId);
        }
    }
    return gaps;
}

/// An item that is not there acts like one without results.
void ExpectActsWithoutResults(CZorbI2EngineManager& manager, int itemId) {
    manager.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0);
    CZorbI2Item item;
    CZorbI2ItemStatus status;
    std::map<int, std::string> options;
    for (const int category : {kCategoryPart, kCategoryPartInsert, kCategoryMoldbase}) {
        EXPECT_FALSE(manager.GetItem(category, itemId, &item));
    }
    EXPECT_FALSE(manager.GetItemAllOptions(itemId, options));
    EXPECT_FALSE(manager.GetPartPopItemByID(itemId, &item, &status));
    for (const int value : {-1, 0, 1, 5}) {
        EXPECT_FALSE(manager.SetItemStatus(itemId, value, value));
    }
    manager.SetItemsValue();
    manager.WriteCMIFile(0);
    EXPECT_EQ(manager.GetZorbCMIData()->OutputFlags[itemId], 0);
}

/// A solver whose slot is not there keeps no status, like one that is not offered.
void ExpectKeepsNoStatus(CZorbI2EngineManager& manager, int solver) {
    int meshKind = -77;
    int quadraticElement = -77;
    int annealingMode = -77;
    manager.SetEngineCurrentStatus(solver, 1, 1, 1);
    manager.GetCurrentSolverStatus(solver, meshKind, quadraticElement, annealingMode);
    EXPECT_EQ(meshKind, -77);
    EXPECT_EQ(quadraticElement, -77);
    EXPECT_EQ(annealingMode, -77);
}

/// A kind of project, and the solvers for which it has a slot.
struct Kind {
    const char* name;
    int solverType;
    support::ResultFiles results;
    std::vector<int> solvers;
};

std::ostream& operator<<(std::ostream& stream, const Kind& kind) {
    return stream << kind.name;
}

const Kind kinds[] = {
    {"Solid", kSolidProject, support::ResultFiles::all, {0, 1, 2, 3, 4, 5, 6, 7, 8}},
    {"SolidWithoutResults", kSolidProject, support::ResultFiles::none, {0, 1, 2, 3, 4, 5, 6, 7, 8}},
    {"Shell", kShellProject, support::ResultFiles::all, {0, 1, 2, 3, 4, 5, 6}},
};

/// A manager whose engine was created before, so that a failure shows what becomes of the pointer.
struct Recreation {
    explicit Recreation(const Kind& kind) : record(support::CompleteProject(kind.solverType)) {
        if (kind.results == support::ResultFiles::all) {
            support::AddAllResults(files);
        }
        manager.CreateEngine(nullptr);
        manager.CreateCMIDataBlock();
        manager.CreateCMIAccess();
        earlier.reset(manager.engine);
    }

    ~Recreation() {
        if (manager.engine == earlier.get()) {
            manager.engine = nullptr;
        }
    }

    support::WatchedPlatform files;
    CZorbFEAInformation record;
    std::unique_ptr<CZorbI2Engine> earlier;
    CZorbI2EngineManager manager;
};

std::vector<int> NumbersBelow(int end) {
    std::vector<int> numbers(end);
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

class CreateEngineWithoutMemory : public testing::TestWithParam<Kind> {};

}  // namespace

TEST_P(CreateEngineWithoutMemory, IsFalseThrowsOrLeavesOneGap) {
    Gaps found;
    bool ranClean = false;
    for (std::size_t number = 0; !ranClean; ++number) {
        SCOPED_TRACE(testing::Message() << "allocation " << number);
        FailingAllocations watch;
        {
            Recreation host(GetParam());
            const Attempt attempt = Try(watch, number, Mode::once,
                                        [&] { return host.manager.CreateEngine(&host.record); });
            ranClean = !attempt.hasFailed;
            EXPECT_EQ(attempt.outcome == Outcome::refused, number == 0);
            switch (attempt.outcome) {
                case Outcome::refused:
                    EXPECT_EQ(host.manager.engine, nullptr);
                    break;
                case Outcome::badAlloc:
                    EXPECT_EQ(host.manager.engine, host.earlier.get());
                    break;
                case Outcome::done: {
                    EXPECT_NE(host.manager.engine, host.earlier.get());
                    const Gaps gaps = GapsOf(*host.manager.engine);
                    EXPECT_EQ(gaps.solvers.size() + gaps.items.size(), ranClean ? 0U : 1U);
                    MakeWholePass(host.manager);
                    for (const int solver : gaps.solvers) {
                        ExpectKeepsNoStatus(host.manager, solver);
                    }
                    for (const int itemId : gaps.items) {
                        ExpectActsWithoutResults(host.manager, itemId);
                    }
                    const support::UnwatchedAllocations unwatched;
                    found.solvers.insert(found.solvers.end(), gaps.solvers.begin(),
                                         gaps.solvers.end());
                    found.items.insert(found.items.end(), gaps.items.begin(), gaps.items.end());
                    break;
                }
            }
        }
        EXPECT_EQ(watch.Live(), 0U);
        if (ranClean) {
            PrintFailures(GetParam().name + std::string(" CreateEngine"), number);
        }
    }
    EXPECT_THAT(found.solvers, testing::UnorderedElementsAreArray(GetParam().solvers));
    EXPECT_THAT(found.items, testing::UnorderedElementsAreArray(NumbersBelow(kItemCount)));
}

TEST_P(CreateEngineWithoutMemory, ForGoodIsFalseAtFirstAndThrowsLater) {
    bool ranClean = false;
    for (std::size_t number = 0; !ranClean; ++number) {
        SCOPED_TRACE(testing::Message() << "from allocation " << number << " on");
        FailingAllocations watch;
        {
            Recreation host(GetParam());
            const Attempt attempt = Try(watch, number, Mode::fromThenOn,
                                        [&] { return host.manager.CreateEngine(&host.record); });
            ranClean = !attempt.hasFailed;
            if (number == 0) {
                EXPECT_EQ(attempt.outcome, Outcome::refused);
                EXPECT_EQ(host.manager.engine, nullptr);
            } else if (attempt.hasFailed) {
                EXPECT_EQ(attempt.outcome, Outcome::badAlloc);
                EXPECT_EQ(host.manager.engine, host.earlier.get());
            } else {
                EXPECT_EQ(attempt.outcome, Outcome::done);
            }
        }
        EXPECT_EQ(watch.Live(), 0U);
    }
}

TEST_P(CreateEngineWithoutMemory, WorksAtTheNextTry) {
    Recreation host(GetParam());
    FailingAllocations watch;
    EXPECT_EQ(
        Try(watch, 100, Mode::fromThenOn, [&] { return host.manager.CreateEngine(&host.record); })
            .outcome,
        Outcome::badAlloc);
    EXPECT_TRUE(host.manager.CreateEngine(&host.record));
    EXPECT_THAT(GapsOf(*host.manager.engine).items, IsEmpty());
    MakeWholePass(host.manager);
    EXPECT_NE(host.files.written[cmiPath], "");
}

INSTANTIATE_TEST_SUITE_P(Projects, CreateEngineWithoutMemory, testing::ValuesIn(kinds),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(CreateBareEngineWithoutMemory, IsFalseAtFirstAndThrowsLater) {
    for (const Mode mode : modes) {
        bool ranClean = false;
        for (std::size_t number = 0; !ranClean; ++number) {
            SCOPED_TRACE(testing::Message() << "allocation " << number << ", mode " << int(mode));
            const support::WatchedPlatform files;
            CZorbFEAInformation record = support::ProjectWithoutCatalogue();
            CZorbI2EngineManager manager;
            FailingAllocations watch;
            const Attempt attempt =
                Try(watch, number, mode, [&] { return manager.CreateEngine(&record); });
            ranClean = !attempt.hasFailed;
            EXPECT_EQ(attempt.outcome, ranClean      ? Outcome::done
                                       : number == 0 ? Outcome::refused
                                                     : Outcome::badAlloc);
            EXPECT_EQ(manager.engine != nullptr, ranClean);
            EXPECT_EQ(watch.Live() != 0, ranClean);
        }
    }
}

TEST(CreateDataBlockWithoutMemory, IsFalseAndNull) {
    for (const Mode mode : modes) {
        OpenProject project;
        const std::unique_ptr<CZorbI2CMIData> earlier(project.manager.cmiData);
        FailingAllocations watch;
        EXPECT_EQ(Try(watch, 0, mode, [&] { return project.manager.CreateCMIDataBlock(); }).outcome,
                  Outcome::refused);
        EXPECT_EQ(project.manager.GetZorbCMIData(), nullptr);
        EXPECT_EQ(watch.Live(), 0U);
        const Attempt second =
            Try(watch, 1, mode, [&] { return project.manager.CreateCMIDataBlock(); });
        EXPECT_EQ(second.outcome, Outcome::done);
        EXPECT_FALSE(second.hasFailed);
        EXPECT_NE(FileOfWholePass(project), "");
    }
}

TEST(CreateWriterWithoutMemory, IsFalseAndNull) {
    for (const Mode mode : modes) {
        OpenProject project;
        const std::unique_ptr<CZorbI2AccessCMIFile> earlier(project.manager.accessCmiFile);
        FailingAllocations watch;
        EXPECT_EQ(Try(watch, 0, mode, [&] { return project.manager.CreateCMIAccess(); }).outcome,
                  Outcome::refused);
        EXPECT_EQ(project.manager.GetZorbAccessCMIFile(), nullptr);
        EXPECT_EQ(watch.Live(), 0U);
        const Attempt second =
            Try(watch, 1, mode, [&] { return project.manager.CreateCMIAccess(); });
        EXPECT_EQ(second.outcome, Outcome::done);
        EXPECT_FALSE(second.hasFailed);
        EXPECT_NE(FileOfWholePass(project), "");
    }
}

// ---- All other operations -----------------------------------------------------------------------

namespace {

using Manager = CZorbI2EngineManager;

/// An operation that leaves everything as it was when memory runs out.
struct Operation {
    enum Needs { noMemory, memory };

    const char* name;
    Needs needs;
    void (*call)(Manager& manager);
};

std::ostream& operator<<(std::ostream& stream, const Operation& operation) {
    return stream << operation.name;
}

/// What a host gives the operations to fill.
struct Records {
    CZorbI2Item item;
    CZorbI2ItemStatus status;
    CZorbI2WeldlineDataStatus weldlines;
    std::map<int, std::string> options;
    int numbers[3];
};

void Assign(Manager& manager) {
    Manager other;
    other = manager;
    other.engine = nullptr;
    other.cmiData = nullptr;
    other.accessCmiFile = nullptr;
}

void CheckAllResults(Manager& manager) {
    for (int itemId = 0; itemId < kItemCount; ++itemId) {
        EXPECT_EQ(manager.GetProjectResults(itemId),
                  itemId == kItemDigimatMucell ? kResultNoCheck : kResultAvailable);
    }
}

constexpr Operation::Needs none = Operation::noMemory;
constexpr Operation::Needs some = Operation::memory;

// The offer of an open project is the largest of its kind, so that SetPopItems has its memory.
// clang-format off
const Operation operations[] = {
    {"Assignment",              none, Assign},
    {"Close",                   none, [](Manager& m) { m.Close(); }},
    {"GetZorbI2Engine",         none, [](Manager& m) { m.GetZorbI2Engine(); }},
    {"GetZorbCMIData",          none, [](Manager& m) { m.GetZorbCMIData(); }},
    {"GetZorbAccessCMIFile",    none, [](Manager& m) { m.GetZorbAccessCMIFile(); }},
    {"SetOutFolder",            some, [](Manager& m) { m.SetOutFolder("a folder whose name needs memory"); }},
    {"SetMappedMeshFilePath",   some, [](Manager& m) { m.SetMappedMeshFilePath("a mesh whose name needs memory"); }},
    {"SetCMIFileFullPath",      some, [](Manager& m) { m.SetCMIFileFullPath("E:\\a folder whose name needs memory", "Cover", 3, "cmi"); }},
    {"SetViewEdit",             none, [](Manager& m) { m.SetViewEdit(false); }},
    {"SetDigimatWeldlineData",  none, [](Manager& m) { m.SetDigimatWeldlineData(135.0); }},
    {"SetEngineCurrentStatus",  none, [](Manager& m) { m.SetEngineCurrentStatus(kSolverAbaqus, kMeshMapped, 1, 1); }},
    {"GetCurrentSolverStatus",  none, [](Manager& m) { int n[3]; m.GetCurrentSolverStatus(kSolverAnsys, n[0], n[1], n[2]); }},
    {"SetPopItems",             none, [](Manager& m) { m.SetPopItems(); }},
    {"HasPopItem",              none, [](Manager& m) { EXPECT_TRUE(m.HasPopItem()); }},
    {"HasPartPopItem",          none, [](Manager& m) { EXPECT_TRUE(m.HasPartPopItem()); }},
    {"HasPartInsertPopItem",    none, [](Manager& m) { EXPECT_TRUE(m.HasPartInsertPopItem()); }},
    {"HasMoldbasePopItem",      none, [](Manager& m) { EXPECT_TRUE(m.HasMoldbasePopItem()); }},
    {"HasPartItem",             none, [](Manager& m) { EXPECT_TRUE(m.HasPartItem()); }},
    {"HasPartInsertItem",       none, [](Manager& m) { EXPECT_TRUE(m.HasPartInsertItem()); }},
    {"HasMoldbaseItem",         none, [](Manager& m) { EXPECT_TRUE(m.HasMoldbaseItem()); }},
    {"GetPartPopItem",          some, [](Manager& m) { Records r; EXPECT_TRUE(m.GetPartPopItem(1, &r.item, &r.status)); }},
    {"GetPartPopItemByID",      some, [](Manager& m) { Records r; EXPECT_TRUE(m.GetPartPopItemByID(kItemDensity, &r.item, &r.status)); }},
    {"GetPartInsertPopItem",    some, [](Manager& m) { Records r; EXPECT_TRUE(m.GetPartInsertPopItem(1, &r.item, &r.status)); }},
    {"GetMoldBasePopItem",      some, [](Manager& m) { Records r; EXPECT_TRUE(m.GetMoldBasePopItem(1, &r.item, &r.status)); }},
    {"GetItem",                 some, [](Manager& m) { Records r; EXPECT_TRUE(m.GetItem(kCategoryPart, kItemDensity, &r.item)); }},
    {"GetItemAllOptions",       some, [](Manager& m) { Records r; EXPECT_TRUE(m.GetItemAllOptions(kItemDensity, r.options)); }},
    {"SetItemStatus",           none, [](Manager& m) { EXPECT_TRUE(m.SetItemStatus(kItemDensity, -1, 3)); }},
    {"SetItemsValue",           none, [](Manager& m) { m.SetItemsValue(); }},
    {"GetProjectResults",       some, CheckAllResults},
    {"SetWeldlineDataStatus",   some, [](Manager& m) { m.SetWeldlineDataStatus(kSolverAnsys, {1.0, 2.0, 3.0}, {0.1, 0.2, 0.3}); }},
    {"SetWeldlineDataValue",    some, [](Manager& m) { m.SetWeldlineDataValue(); }},
    {"GetWeldlinePopData",      some, [](Manager& m) { Records r; m.GetWeldlinePopData(kSolverAnsys, &r.weldlines); }},
};
// clang-format on

// In the tests above, and below.
const std::set<std::string> otherOperations = {"CreateEngine", "CreateCMIDataBlock",
                                               "CreateCMIAccess", "WriteCMIFile"};

/// The names of the exported operations, as compilers of this system spell them.
std::set<std::string> ExportedOperations() {
    const std::string className = "CZorbI2EngineManager";
    std::ifstream list(ZORBI2_TEST_DATA "/exports/ZorbI2Engine.exports");
    std::set<std::string> names;
    for (std::string symbol; std::getline(list, symbol);) {
        const std::size_t place = symbol.find(className) + className.size();
        if (std::isdigit(static_cast<unsigned char>(symbol[place])) != 0) {
            const std::string length =
                symbol.substr(place, symbol.find_first_not_of("0123456789", place) - place);
            names.insert(symbol.substr(place + length.size(), std::stoul(length)));
        }
    }
    return names;
}

class OperationWithoutMemory : public testing::TestWithParam<Operation> {};

}  // namespace

TEST_P(OperationWithoutMemory, ThrowsAndChangesNothing) {
    const std::string expectedState = [] {
        OpenProject project;
        SetPaths(project.manager);
        OfferItems(project.manager);
        return StateOf(project);
    }();
    const Operation operation = GetParam();
    const std::size_t failures = ExpectToSurvive(
        [&operation](OpenProject& project) { operation.call(project.manager); },
        [&expectedState](OpenProject& project) { EXPECT_EQ(StateOf(project), expectedState); });
    EXPECT_EQ(failures != 0, operation.needs == Operation::memory);
    PrintFailures(operation.name, failures);
}

INSTANTIATE_TEST_SUITE_P(Operations, OperationWithoutMemory, testing::ValuesIn(operations),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(OperationsWithoutMemory, AreAllThatTheLibraryExports) {
    std::set<std::string> tried = otherOperations;
    for (const Operation& operation : operations) {
        tried.insert(operation.name);
    }
    tried.erase("Assignment");
    EXPECT_THAT(tried, testing::ContainerEq(ExportedOperations()));
}

TEST(OperationsWithoutMemory, FirstSetPopItemsLeavesABeginningOfTheLists) {
    const std::vector<std::int32_t> offered = {15, 0, 1, 4, 3, 5, 8, 9, 11, 16, 18, 19, 20, 13, 14};
    const std::size_t failures = ExpectToSurvive(
        [](OpenProject& project) {
            for (auto* list :
                 {&project.Selector().partPopItems, &project.Selector().partInsertPopItems,
                  &project.Selector().moldbasePopItems}) {
                *list = {};
                list->shrink_to_fit();
            }
            project.manager.SetPopItems();
        },
        [&offered](OpenProject& project) {
            const auto& part = project.Selector().partPopItems;
            ASSERT_LE(part.size(), offered.size());
            EXPECT_TRUE(std::equal(part.begin(), part.end(), offered.begin()));
        });
    EXPECT_GT(failures, 0U);
    PrintFailures("first SetPopItems", failures);
}

TEST(OperationsWithoutMemory, ControlFilePathChangesInBothObjectsOrInNone) {
    bool hasFailed = true;
    for (std::size_t number = 0; hasFailed; ++number) {
        SCOPED_TRACE(number);
        OpenProject project;
        CZorbI2EngineManager& manager = project.manager;
        manager.SetCMIFileFullPath("D:\\before", "Cover", 3, "cmi");
        FailingAllocations watch;
        hasFailed = Try(watch, number, Mode::once, [&manager] {
                        manager.SetCMIFileFullPath("D:\\a folder whose name needs memory", "Cover",
                                                   3, "cmi");
                        return true;
                    }).hasFailed;
        const std::string expected = hasFailed ? "D:\\before\\Cover03.cmi" : cmiPath;
        EXPECT_EQ(project.Engine().cmiFileFullPath, expected);
        EXPECT_EQ(manager.GetZorbAccessCMIFile()->filePath, expected);
    }
}

TEST(OperationsWithoutMemory, WriteCMIFileDoesNotTouchTheFile) {
    const std::size_t failures = ExpectToSurvive(
        [](OpenProject& project) {
            {
                const support::UnwatchedAllocations unwatched;
                project.files.events.clear();
            }
            project.manager.WriteCMIFile(0);
        },
        [](OpenProject& project) { EXPECT_THAT(project.files.events, IsEmpty()); });
    EXPECT_GT(failures, 0U);
    PrintFailures("WriteCMIFile", failures);
}
