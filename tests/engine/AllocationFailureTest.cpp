// Every allocation of an operation fails in turn, once and then for good: nothing leaks, nothing is
// half done that a later call could stumble over, and the operation works when there is memory.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <new>
#include <numeric>
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

using OnProject = std::function<void(OpenProject& project)>;

/// Tries the operation on an open project, with items offered, until no allocation fails. Without
/// memory it raises std::bad_alloc, and a whole pass afterwards gives the file as ever.
void ExpectToSurvive(const OnProject& operation, const OnProject& afterFailure = {}) {
    const std::string expectedFile = FileOfUntroubledPass();
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
                if (attempt.hasFailed && afterFailure) {
                    afterFailure(project);
                }
                EXPECT_EQ(FileOfWholePass(project), expectedFile);
                ranClean = !attempt.hasFailed;
            }
            EXPECT_EQ(watch.Live(), 0U);
        }
    }
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
        if (!engine.solverSlots[solver]) {
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

/// A manager whose engine was created before, so that a failure shows what becomes of the pointer.
struct Recreation {
    Recreation() {
        support::AddAllResults(files);
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
    CZorbFEAInformation record = support::CompleteProject();
    std::unique_ptr<CZorbI2Engine> earlier;
    CZorbI2EngineManager manager;
};

std::vector<int> NumbersBelow(int end) {
    std::vector<int> numbers(end);
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

}  // namespace

TEST(CreateEngineWithoutMemory, IsFalseThrowsOrLeavesOneGap) {
    Gaps found;
    bool ranClean = false;
    for (std::size_t number = 0; !ranClean; ++number) {
        SCOPED_TRACE(testing::Message() << "allocation " << number);
        FailingAllocations watch;
        {
            Recreation host;
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
    }
    EXPECT_THAT(found.solvers, testing::UnorderedElementsAreArray(NumbersBelow(kSolverCount)));
    EXPECT_THAT(found.items, testing::UnorderedElementsAreArray(NumbersBelow(kItemCount)));
}

TEST(CreateEngineWithoutMemory, ForGoodIsFalseAtFirstAndThrowsLater) {
    bool ranClean = false;
    for (std::size_t number = 0; !ranClean; ++number) {
        SCOPED_TRACE(testing::Message() << "from allocation " << number << " on");
        FailingAllocations watch;
        {
            Recreation host;
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

TEST(CreateEngineWithoutMemory, WorksAtTheNextTry) {
    Recreation host;
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

TEST(OperationWithoutMemory, SetPopItemsLeavesABeginningOfTheLists) {
    const std::vector<std::int32_t> offered = {15, 0, 1, 4, 3, 5, 8, 9, 11, 16, 18, 19, 20, 13, 14};
    ExpectToSurvive(
        [](OpenProject& project) {
            project.Selector().partPopItems = {};
            project.Selector().partPopItems.shrink_to_fit();
            project.Selector().moldbasePopItems = {};
            project.Selector().moldbasePopItems.shrink_to_fit();
            project.manager.SetPopItems();
        },
        [&offered](OpenProject& project) {
            const auto& part = project.Selector().partPopItems;
            ASSERT_LE(part.size(), offered.size());
            EXPECT_TRUE(std::equal(part.begin(), part.end(), offered.begin()));
        });
}

TEST(OperationWithoutMemory, GetPartPopItem) {
    ExpectToSurvive([](OpenProject& project) {
        CZorbI2Item item;
        CZorbI2ItemStatus status;
        ASSERT_TRUE(project.manager.GetPartPopItem(1, &item, &status));
        EXPECT_EQ(item.options.size(), 6U);
    });
}

TEST(OperationWithoutMemory, GetPartPopItemByID) {
    ExpectToSurvive([](OpenProject& project) {
        CZorbI2Item item;
        CZorbI2ItemStatus status;
        ASSERT_TRUE(project.manager.GetPartPopItemByID(kItemInsertFiberMaterial, &item, &status));
        EXPECT_EQ(item.options.size(), 6U);
    });
}

TEST(OperationWithoutMemory, GetItem) {
    ExpectToSurvive([](OpenProject& project) {
        CZorbI2Item item;
        ASSERT_TRUE(project.manager.GetItem(kCategoryPart, kItemDensity, &item));
        EXPECT_EQ(item.options.size(), 7U);
    });
}

TEST(OperationWithoutMemory, GetItemAllOptions) {
    ExpectToSurvive([](OpenProject& project) {
        std::map<int, std::string> options;
        ASSERT_TRUE(project.manager.GetItemAllOptions(kItemDensity, options));
        EXPECT_EQ(options.size(), 7U);
    });
}

TEST(OperationWithoutMemory, SetItemStatusAndSetItemsValue) {
    ExpectToSurvive([](OpenProject& project) {
        EXPECT_TRUE(project.manager.SetItemStatus(kItemEndOfCoolingTemperature, 1, -1));
        project.manager.SetItemsValue();
    });
}

TEST(OperationWithoutMemory, Paths) {
    ExpectToSurvive([](OpenProject& project) { SetPaths(project.manager); });
}

TEST(OperationWithoutMemory, ControlFilePathChangesInBothObjectsOrInNone) {
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

TEST(OperationWithoutMemory, GetProjectResults) {
    ExpectToSurvive([](OpenProject& project) {
        for (int itemId = 0; itemId < kItemCount; ++itemId) {
            EXPECT_EQ(project.manager.GetProjectResults(itemId),
                      itemId == kItemDigimatMucell ? kResultNoCheck : kResultAvailable);
        }
    });
}

TEST(OperationWithoutMemory, WriteCMIFileDoesNotTouchTheFile) {
    ExpectToSurvive(
        [](OpenProject& project) {
            {
                const support::UnwatchedAllocations unwatched;
                project.files.events.clear();
            }
            project.manager.WriteCMIFile(0);
        },
        [](OpenProject& project) { EXPECT_THAT(project.files.events, IsEmpty()); });
}
