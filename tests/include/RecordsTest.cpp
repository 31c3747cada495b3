// The records that hosts read and fill: names, types and order of their members, what they hold
// when they are new, and how they copy.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <zorbi2/CZorbI2AccessCMIFile.h>
#include <zorbi2/CZorbI2CMIData.h>
#include <zorbi2/CZorbI2Engine.h>
#include <zorbi2/PopItemSelector.h>
#include <zorbi2/SolverSlot.h>
#include <zorbi2/ZorbI2Engine.h>

#include "tests/support/CMIDataFields.h"
#include "tests/support/SampleProject.h"

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

using Int32 = std::int32_t;
using Text = std::string;
using Texts = std::vector<std::string>;
using Doubles = std::vector<double>;

template <typename Expected, typename Actual>
constexpr bool is = std::is_same_v<Expected, Actual>;

/// Whether the members lie in memory in the order given, which is that of their declaration.
bool AreDeclaredInOrder(const std::vector<const void*>& members) {
    return std::is_sorted(members.begin(), members.end(), std::less<const void*>()) &&
           std::adjacent_find(members.begin(), members.end()) == members.end();
}

static_assert(is<SolverIndex, Int32> && is<ItemCategory, Int32> && is<ResultCode, Int32>);
static_assert(sizeof(int) == sizeof(Int32));

// ---- The host's project record ------------------------------------------------------------------

using Info = CZorbFEAInformation;
static_assert(is<Text, decltype(Info::projectName)> && is<Int32, decltype(Info::runNumber)> &&
              is<Text, decltype(Info::projectFolder)> && is<Text, decltype(Info::text3)> &&
              is<Text, decltype(Info::text4)> && is<Int32, decltype(Info::value5)> &&
              is<Int32, decltype(Info::solverType)> && is<Int32, decltype(Info::projectType)> &&
              is<Int32, decltype(Info::voxelFlag)> && is<Int32, decltype(Info::value9)> &&
              is<unsigned char[20], decltype(Info::flags)>);
static_assert(!std::is_polymorphic_v<Info> && std::is_copy_constructible_v<Info> &&
              std::is_copy_assignable_v<Info>);

// ---- Items, choices, weld lines -----------------------------------------------------------------

using Item = CZorbI2Item;
static_assert(is<ItemCategory, decltype(Item::category)> && is<Int32, decltype(Item::itemId)> &&
              is<bool, decltype(Item::isAvailable)> && is<Int32, decltype(Item::checkState)> &&
              is<std::map<Int32, Text>, decltype(Item::options)> &&
              is<Int32, decltype(Item::optionValue)> && is<Text, decltype(Item::title)> &&
              is<Text, decltype(Item::description)>);
static_assert(!std::is_polymorphic_v<Item> && std::is_copy_constructible_v<Item> &&
              std::is_copy_assignable_v<Item>);
static_assert(std::is_constructible_v<Item, ItemCategory, Int32, bool, Text, Text, Int32,
                                      std::map<Int32, Text>, Int32>);
static_assert(is<ItemArray, std::array<std::unique_ptr<Item>, 22>>);

using Status = CZorbI2ItemStatus;
static_assert(is<Item*, decltype(Status::item)> && is<Int32, decltype(Status::itemId)> &&
              is<Int32, decltype(Status::checkState)> && is<Int32, decltype(Status::optionValue)>);
static_assert(!std::is_polymorphic_v<Status> && std::is_trivially_copyable_v<Status>);

using Weldlines = CZorbI2WeldlineDataStatus;
static_assert(is<Int32, decltype(Weldlines::solverIndex)> &&
              is<Doubles, decltype(Weldlines::WeldlineAngles)> &&
              is<Doubles, decltype(Weldlines::ReductionRates)>);
static_assert(!std::is_polymorphic_v<Weldlines> && std::is_copy_constructible_v<Weldlines> &&
              std::is_copy_assignable_v<Weldlines>);

// ---- Behind the getters -------------------------------------------------------------------------

static_assert(is<SolverIndex, decltype(SolverSlot::solverIndex)> &&
              is<Text, decltype(SolverSlot::name)> && is<Texts, decltype(SolverSlot::meshTypes)> &&
              is<Texts, decltype(SolverSlot::elementTypes)> &&
              is<Int32, decltype(SolverSlot::meshKind)> &&
              is<Int32, decltype(SolverSlot::quadraticElement)> &&
              is<Int32, decltype(SolverSlot::annealingMode)>);
static_assert(std::is_constructible_v<SolverSlot, SolverIndex, Text, Texts, Texts>);
static_assert(is<SolverSlotArray, std::array<std::unique_ptr<SolverSlot>, 9>>);

using Engine = CZorbI2Engine;
static_assert(
    is<Text, decltype(Engine::outFolder)> && is<Text, decltype(Engine::cmiFileFullPath)> &&
    is<Text, decltype(Engine::mappedMeshFilePath)> &&
    is<SolverSlotArray, decltype(Engine::solverSlots)> && is<ItemArray, decltype(Engine::items)> &&
    is<std::unique_ptr<Weldlines>, decltype(Engine::weldlineAngleSet)> &&
    is<double, decltype(Engine::digimatWeldlineAngle)> && is<bool, decltype(Engine::viewEdit)> &&
    is<std::unique_ptr<PopItemSelector>, decltype(Engine::popItemSelector)> &&
    is<std::unique_ptr<Info>, decltype(Engine::feaInformation)> &&
    is<std::vector<bool>, decltype(Engine::solverOffered)> &&
    is<Int32, decltype(Engine::flagPrevShot)> && is<Int32, decltype(Engine::valueShotRunID)>);
static_assert(!std::is_polymorphic_v<Engine> && !std::is_copy_constructible_v<Engine> &&
              !std::is_copy_assignable_v<Engine>);

using Selector = PopItemSelector;
static_assert(is<ItemStatusList, std::vector<Status>>);
static_assert(
    is<std::array<ItemStatusList, 9>, decltype(Selector::itemStatusLists)> &&
    is<ItemStatusList*, decltype(Selector::currentItemStatusList)> &&
    is<std::vector<Weldlines>, decltype(Selector::weldlineTable)> &&
    is<Int32, decltype(Selector::currentWeldlineIndex)> &&
    is<SolverIndex, decltype(Selector::currentSolver)> && is<Int32, decltype(Selector::meshKind)> &&
    is<Int32, decltype(Selector::quadraticElement)> &&
    is<Int32, decltype(Selector::annealingMode)> && is<Int32, decltype(Selector::projectType)> &&
    is<Int32, decltype(Selector::solverType)> && is<std::uint8_t, decltype(Selector::voxelFlag)> &&
    is<Int32, decltype(Selector::partCount)> && is<Int32, decltype(Selector::partInsertCount)> &&
    is<Int32, decltype(Selector::moldbaseCount)> &&
    is<std::vector<Int32>, decltype(Selector::partPopItems)> &&
    is<std::vector<Int32>, decltype(Selector::partInsertPopItems)> &&
    is<std::vector<Int32>, decltype(Selector::moldbasePopItems)>);
static_assert(!std::is_polymorphic_v<Selector> && !std::is_copy_constructible_v<Selector> &&
              !std::is_copy_assignable_v<Selector>);

using Data = CZorbI2CMIData;
static_assert(
    is<Text, decltype(Data::SolverName)> && is<Text, decltype(Data::MapFile)> &&
    is<Int32, decltype(Data::FileVersion)> && is<Int32, decltype(Data::SolverType)> &&
    is<Int32, decltype(Data::ProjectType)> && is<Int32, decltype(Data::QuadraticElement)> &&
    is<Int32, decltype(Data::IDCompositeModel)> && is<Text, decltype(Data::OutFolder)> &&
    is<Int32, decltype(Data::IsOriginalMesh)> && is<Int32, decltype(Data::IsDeformedMesh)> &&
    is<Int32, decltype(Data::IsMappedMesh)> && is<Int32, decltype(Data::Is3DMappingShell)> &&
    is<Int32, decltype(Data::IsAnnealingDeformedMesh)> &&
    is<Int32, decltype(Data::IsDistributeModel)> && is<Int32[22], decltype(Data::OutputFlags)> &&
    is<Int32, decltype(Data::IsDoDensityReduction)>);
static_assert(is<Int32, decltype(Data::SegmentX)> && is<Int32, decltype(Data::SegmentY)> &&
              is<Int32, decltype(Data::SegmentZ)> &&
              is<Int32, decltype(Data::FiberThetaXSegment)> &&
              is<Int32, decltype(Data::FiberThetaYSegment)> &&
              is<Int32, decltype(Data::FiberThetaZSegment)> &&
              is<Int32, decltype(Data::FiberStrengthXSegment)> &&
              is<Int32, decltype(Data::FiberStrengthYSegment)> &&
              is<Int32, decltype(Data::InsertFiberThetaXSegment)> &&
              is<Int32, decltype(Data::InsertFiberThetaYSegment)> &&
              is<Int32, decltype(Data::InsertFiberThetaZSegment)> &&
              is<Int32, decltype(Data::InsertFiberStrengthXSegment)> &&
              is<Int32, decltype(Data::InsertFiberStrengthYSegment)> &&
              is<Int32, decltype(Data::DensityReduction)> &&
              is<double[3], decltype(Data::WeldlineAngles)> &&
              is<double[3], decltype(Data::ReductionRates)> &&
              is<double, decltype(Data::DigimatWeldlineAngle)> &&
              is<Int32, decltype(Data::IsViewEditModelMapping)> &&
              is<Int32, decltype(Data::DigimatOption)>);
static_assert(!std::is_polymorphic_v<Data>);

static_assert(is<Text, decltype(CZorbI2AccessCMIFile::filePath)>);

}  // namespace

TEST(Records, ProjectRecordStartsZeroedAndEmptyInDeclaredOrder) {
    const Info info;
    EXPECT_EQ(info.projectName, "");
    EXPECT_EQ(info.runNumber, 0);
    EXPECT_EQ(info.projectFolder, "");
    EXPECT_EQ(info.text3, "");
    EXPECT_EQ(info.text4, "");
    EXPECT_EQ(info.value5, 0);
    EXPECT_EQ(info.solverType, 0);
    EXPECT_EQ(info.projectType, 0);
    EXPECT_EQ(info.voxelFlag, 0);
    EXPECT_EQ(info.value9, 0);
    EXPECT_THAT(info.flags, Each(0));
    EXPECT_TRUE(
        AreDeclaredInOrder({&info.projectName, &info.runNumber, &info.projectFolder, &info.text3,
                            &info.text4, &info.value5, &info.solverType, &info.projectType,
                            &info.voxelFlag, &info.value9, &info.flags}));
}

TEST(Records, ProjectRecordNamesTheFlagsThatTheEngineReads) {
    EXPECT_EQ(Info::kBuildCatalogue, 1U);
    EXPECT_EQ(Info::kHasFiber, 11U);
    EXPECT_EQ(Info::kHasRunners, 12U);
    EXPECT_EQ(Info::kHasMoldbase, 13U);
    EXPECT_EQ(Info::kHasInsertedPart, 14U);
    EXPECT_EQ(Info::kHasMeetingAngle, 16U);
    EXPECT_EQ(Info::kViewEditAtStart, 19U);
}

TEST(Records, ItemStartsZeroedAndEmptyInDeclaredOrder) {
    const Item item;
    EXPECT_EQ(item.category, 0);
    EXPECT_EQ(item.itemId, 0);
    EXPECT_FALSE(item.isAvailable);
    EXPECT_EQ(item.checkState, 0);
    EXPECT_THAT(item.options, IsEmpty());
    EXPECT_EQ(item.optionValue, 0);
    EXPECT_EQ(item.title, "");
    EXPECT_EQ(item.description, "");
    EXPECT_TRUE(
        AreDeclaredInOrder({&item.category, &item.itemId, &item.isAvailable, &item.checkState,
                            &item.options, &item.optionValue, &item.title, &item.description}));
}

TEST(Records, ItemTakesItsValuesAndKeepsCopies) {
    Text title = "title";
    Text description = "description";
    std::map<Int32, Text> options = {{5, "five"}};
    const Item item(1, 2, true, title, description, 3, options, 4);
    title.clear();
    description.clear();
    options.clear();
    EXPECT_EQ(item.category, 1);
    EXPECT_EQ(item.itemId, 2);
    EXPECT_TRUE(item.isAvailable);
    EXPECT_EQ(item.title, "title");
    EXPECT_EQ(item.description, "description");
    EXPECT_EQ(item.checkState, 3);
    EXPECT_THAT(item.options, ElementsAre(Pair(5, "five")));
    EXPECT_EQ(item.optionValue, 4);
}

TEST(Records, CopyOfAnItemIsIndependent) {
    const Item item(1, 2, true, "title", "description", 3, {{5, "five"}}, 4);
    Item copy(item);
    copy.options[5] = "changed";
    copy.title = "changed";
    EXPECT_EQ(item.options.at(5), "five");
    EXPECT_EQ(item.title, "title");
    copy = item;
    EXPECT_EQ(copy.options.at(5), "five");
    EXPECT_EQ(copy.title, "title");
}

TEST(Records, ItemStatusStartsZeroedInDeclaredOrder) {
    const Status status;
    EXPECT_EQ(status.item, nullptr);
    EXPECT_EQ(status.itemId, 0);
    EXPECT_EQ(status.checkState, 0);
    EXPECT_EQ(status.optionValue, 0);
    EXPECT_TRUE(AreDeclaredInOrder(
        {&status.item, &status.itemId, &status.checkState, &status.optionValue}));
}

TEST(Records, WeldlineRecordStartsZeroedAndEmptyInDeclaredOrder) {
    const Weldlines weldlines;
    EXPECT_EQ(weldlines.solverIndex, 0);
    EXPECT_THAT(weldlines.WeldlineAngles, IsEmpty());
    EXPECT_THAT(weldlines.ReductionRates, IsEmpty());
    EXPECT_TRUE(AreDeclaredInOrder(
        {&weldlines.solverIndex, &weldlines.WeldlineAngles, &weldlines.ReductionRates}));
}

TEST(Records, SolverSlotIsDeclaredInOrder) {
    const SolverSlot slot(0, "", {}, {});
    EXPECT_TRUE(
        AreDeclaredInOrder({&slot.solverIndex, &slot.name, &slot.meshTypes, &slot.elementTypes,
                            &slot.meshKind, &slot.quadraticElement, &slot.annealingMode}));
}

TEST(Records, EngineIsDeclaredInOrder) {
    support::OpenProject project;
    const Engine& engine = project.Engine();
    EXPECT_TRUE(
        AreDeclaredInOrder({&engine.outFolder, &engine.cmiFileFullPath, &engine.mappedMeshFilePath,
                            &engine.solverSlots, &engine.items, &engine.weldlineAngleSet,
                            &engine.digimatWeldlineAngle, &engine.viewEdit, &engine.popItemSelector,
                            &engine.feaInformation, &engine.solverOffered}));
}

TEST(Records, SelectorIsDeclaredInOrder) {
    support::OpenProject project;
    const Selector& selector = project.Selector();
    EXPECT_TRUE(AreDeclaredInOrder(
        {&selector.itemStatusLists, &selector.currentItemStatusList, &selector.weldlineTable,
         &selector.currentWeldlineIndex, &selector.currentSolver, &selector.meshKind,
         &selector.quadraticElement, &selector.annealingMode, &selector.projectType,
         &selector.solverType, &selector.voxelFlag, &selector.partCount, &selector.partInsertCount,
         &selector.moldbaseCount, &selector.partPopItems, &selector.partInsertPopItems,
         &selector.moldbasePopItems}));
}

TEST(Records, DataBlockStartsZeroedAndEmpty) {
    for (const auto& [name, value] : support::FieldsOf(Data())) {
        const bool isText = name == "SolverName" || name == "MapFile" || name == "OutFolder";
        EXPECT_EQ(value, isText ? "" : "0") << name;
    }
}

TEST(Records, DataBlockIsDeclaredInOrder) {
    const Data data;
    EXPECT_TRUE(AreDeclaredInOrder({&data.SolverName,
                                    &data.MapFile,
                                    &data.FileVersion,
                                    &data.SolverType,
                                    &data.ProjectType,
                                    &data.QuadraticElement,
                                    &data.IDCompositeModel,
                                    &data.OutFolder,
                                    &data.IsOriginalMesh,
                                    &data.IsDeformedMesh,
                                    &data.IsMappedMesh,
                                    &data.Is3DMappingShell,
                                    &data.IsAnnealingDeformedMesh,
                                    &data.IsDistributeModel,
                                    &data.OutputFlags,
                                    &data.IsDoDensityReduction,
                                    &data.SegmentX,
                                    &data.SegmentY,
                                    &data.SegmentZ,
                                    &data.FiberThetaXSegment,
                                    &data.FiberThetaYSegment,
                                    &data.FiberThetaZSegment,
                                    &data.FiberStrengthXSegment,
                                    &data.FiberStrengthYSegment,
                                    &data.InsertFiberThetaXSegment,
                                    &data.InsertFiberThetaYSegment,
                                    &data.InsertFiberThetaZSegment,
                                    &data.InsertFiberStrengthXSegment,
                                    &data.InsertFiberStrengthYSegment,
                                    &data.DensityReduction,
                                    &data.WeldlineAngles,
                                    &data.ReductionRates,
                                    &data.DigimatWeldlineAngle,
                                    &data.IsViewEditModelMapping,
                                    &data.DigimatOption}));
}
