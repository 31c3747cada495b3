// Calls out of order: debug builds stop with the name of the missing call.
#ifndef NDEBUG

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <ostream>
#include <string>

#include <zorbi2/CZorbI2EngineManager.h>
#include <zorbi2/CZorbI2Item.h>
#include <zorbi2/CZorbI2ItemStatus.h>
#include <zorbi2/CZorbI2WeldlineDataStatus.h>
#include <zorbi2/ZorbI2Types.h>

#include "tests/support/SampleProject.h"

namespace {

using Manager = CZorbI2EngineManager;

struct Call {
    const char* name;
    std::function<void(Manager&)> make;

    friend void PrintTo(const Call& call, std::ostream* out) { *out << call.name; }
};

std::string NameOf(const testing::TestParamInfo<Call>& info) {
    return info.param.name;
}

CZorbI2Item item;
CZorbI2ItemStatus status;
CZorbI2WeldlineDataStatus weldlines;
std::map<int, std::string> options;
int number = 0;

/// Calls that an engine without catalogue takes.
const Call bareEngineCalls[] = {
    {"SetOutFolder", [](Manager& m) { m.SetOutFolder("out"); }},
    {"SetMappedMeshFilePath", [](Manager& m) { m.SetMappedMeshFilePath("mesh"); }},
    {"SetCMIFileFullPath", [](Manager& m) { m.SetCMIFileFullPath("out", "name", 1, "cmi"); }},
    {"SetViewEdit", [](Manager& m) { m.SetViewEdit(true); }},
    {"SetDigimatWeldlineData", [](Manager& m) { m.SetDigimatWeldlineData(1.0); }},
    {"GetCurrentSolverStatus",
     [](Manager& m) { m.GetCurrentSolverStatus(kSolverAnsys, number, number, number); }},
    {"HasPartItem", [](Manager& m) { m.HasPartItem(); }},
    {"HasPartInsertItem", [](Manager& m) { m.HasPartInsertItem(); }},
    {"HasMoldbaseItem", [](Manager& m) { m.HasMoldbaseItem(); }},
    {"GetItem", [](Manager& m) { m.GetItem(0, 0, &item); }},
    {"GetItemAllOptions", [](Manager& m) { m.GetItemAllOptions(kItemFiberOrientation, options); }},
    {"GetProjectResults", [](Manager& m) { m.GetProjectResults(kItemFiberOrientation); }},
    {"WriteCMIFile", [](Manager& m) { m.WriteCMIFile(0); }},
};

/// Calls that need the catalogue.
const Call catalogueCalls[] = {
    {"SetEngineCurrentStatus",
     [](Manager& m) { m.SetEngineCurrentStatus(kSolverAnsys, kMeshOriginal, 0, 0); }},
    {"SetPopItems", [](Manager& m) { m.SetPopItems(); }},
    {"HasPopItem", [](Manager& m) { m.HasPopItem(); }},
    {"HasPartPopItem", [](Manager& m) { m.HasPartPopItem(); }},
    {"HasPartInsertPopItem", [](Manager& m) { m.HasPartInsertPopItem(); }},
    {"HasMoldbasePopItem", [](Manager& m) { m.HasMoldbasePopItem(); }},
    {"GetPartPopItem", [](Manager& m) { m.GetPartPopItem(0, &item, &status); }},
    {"GetPartPopItemByID",
     [](Manager& m) { m.GetPartPopItemByID(kItemFiberOrientation, &item, &status); }},
    {"GetPartInsertPopItem", [](Manager& m) { m.GetPartInsertPopItem(0, &item, &status); }},
    {"GetMoldBasePopItem", [](Manager& m) { m.GetMoldBasePopItem(0, &item, &status); }},
    {"SetItemStatus", [](Manager& m) { m.SetItemStatus(kItemFiberOrientation, 0, 0); }},
    {"SetItemsValue", [](Manager& m) { m.SetItemsValue(); }},
    {"SetWeldlineDataStatus", [](Manager& m) { m.SetWeldlineDataStatus(kSolverAnsys, {}, {}); }},
    {"SetWeldlineDataValue", [](Manager& m) { m.SetWeldlineDataValue(); }},
    {"GetWeldlinePopData", [](Manager& m) { m.GetWeldlinePopData(kSolverAnsys, &weldlines); }},
};

class BeforeCreateEngineDeathTest : public testing::TestWithParam<Call> {};
class OnABareEngineDeathTest : public testing::TestWithParam<Call> {};

}  // namespace

TEST_P(BeforeCreateEngineDeathTest, CallStopsWithItsName) {
    Manager manager;
    manager.CreateCMIDataBlock();
    manager.CreateCMIAccess();
    EXPECT_DEATH(GetParam().make(manager), "CreateEngine has not been called");
}

INSTANTIATE_TEST_SUITE_P(Bare, BeforeCreateEngineDeathTest, testing::ValuesIn(bareEngineCalls),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Catalogue, BeforeCreateEngineDeathTest, testing::ValuesIn(catalogueCalls),
                         NameOf);

TEST_P(OnABareEngineDeathTest, CallStopsWithTheReason) {
    Manager manager;
    manager.CreateEngine(nullptr);
    EXPECT_DEATH(GetParam().make(manager), "the project record's flag 1 is not 1");
}

INSTANTIATE_TEST_SUITE_P(Catalogue, OnABareEngineDeathTest, testing::ValuesIn(catalogueCalls),
                         NameOf);

TEST(ManagerDeathTest, CmiFilePathNeedsTheWriter) {
    Manager manager;
    manager.CreateEngine(nullptr);
    EXPECT_DEATH(manager.SetCMIFileFullPath("out", "name", 1, "cmi"),
                 "CreateCMIAccess has not been called");
}

TEST(ManagerDeathTest, WriteNeedsTheDataBlock) {
    Manager manager;
    manager.CreateEngine(nullptr);
    manager.CreateCMIAccess();
    EXPECT_DEATH(manager.WriteCMIFile(0), "CreateCMIDataBlock has not been called");
}

TEST(ManagerDeathTest, WriteNeedsTheWriter) {
    Manager manager;
    manager.CreateEngine(nullptr);
    manager.CreateCMIDataBlock();
    EXPECT_DEATH(manager.WriteCMIFile(0), "CreateCMIAccess has not been called");
}

#endif
