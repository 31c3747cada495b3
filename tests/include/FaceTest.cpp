// The manager's operations with their exact signatures: hosts are compiled against them.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include <zorbi2/CZorbI2EngineManager.h>

namespace {

using Manager = CZorbI2EngineManager;
using Text = std::string;
using Doubles = std::vector<double>;

template <typename Expected, typename Actual>
constexpr bool is = std::is_same_v<Expected, Actual>;

template <typename Result, typename... Arguments>
using Operation = Result (Manager::*)(Arguments...);

using PopItemRead = Operation<bool, int, CZorbI2Item*, CZorbI2ItemStatus*>;

// A plain class: no base, no virtual operations, not copied by construction.
static_assert(std::is_default_constructible_v<Manager>);
static_assert(std::is_destructible_v<Manager> && !std::has_virtual_destructor_v<Manager>);
static_assert(!std::is_polymorphic_v<Manager>);
static_assert(!std::is_copy_constructible_v<Manager> && !std::is_move_constructible_v<Manager>);
static_assert(is<Operation<Manager&, const Manager&>, decltype(&Manager::operator=)>);

// Its members, and nothing else.
static_assert(is<CZorbI2Engine*, decltype(Manager::engine)>);
static_assert(is<CZorbI2CMIData*, decltype(Manager::cmiData)>);
static_assert(is<CZorbI2AccessCMIFile*, decltype(Manager::accessCmiFile)>);
static_assert(sizeof(Manager) == 3 * sizeof(void*));

// The three objects.
static_assert(is<Operation<bool>, decltype(&Manager::Close)>);
static_assert(is<Operation<bool, CZorbFEAInformation*>, decltype(&Manager::CreateEngine)>);
static_assert(is<Operation<bool>, decltype(&Manager::CreateCMIDataBlock)>);
static_assert(is<Operation<bool>, decltype(&Manager::CreateCMIAccess)>);
static_assert(is<Operation<CZorbI2Engine*>, decltype(&Manager::GetZorbI2Engine)>);
static_assert(is<Operation<CZorbI2CMIData*>, decltype(&Manager::GetZorbCMIData)>);
static_assert(is<Operation<CZorbI2AccessCMIFile*>, decltype(&Manager::GetZorbAccessCMIFile)>);

// Project settings.
static_assert(is<Operation<void, Text>, decltype(&Manager::SetOutFolder)>);
static_assert(is<Operation<void, Text>, decltype(&Manager::SetMappedMeshFilePath)>);
static_assert(is<Operation<void, Text, Text, int, Text>, decltype(&Manager::SetCMIFileFullPath)>);
static_assert(is<Operation<void, bool>, decltype(&Manager::SetViewEdit)>);
static_assert(is<Operation<void, double>, decltype(&Manager::SetDigimatWeldlineData)>);

// Solver status and offered items.
static_assert(is<Operation<void, int, int, int, int>, decltype(&Manager::SetEngineCurrentStatus)>);
static_assert(
    is<Operation<void, int, int&, int&, int&>, decltype(&Manager::GetCurrentSolverStatus)>);
static_assert(is<Operation<void>, decltype(&Manager::SetPopItems)>);
static_assert(is<Operation<bool>, decltype(&Manager::HasPopItem)>);
static_assert(is<Operation<bool>, decltype(&Manager::HasPartPopItem)>);
static_assert(is<Operation<bool>, decltype(&Manager::HasPartInsertPopItem)>);
static_assert(is<Operation<bool>, decltype(&Manager::HasMoldbasePopItem)>);
static_assert(is<Operation<bool>, decltype(&Manager::HasPartItem)>);
static_assert(is<Operation<bool>, decltype(&Manager::HasPartInsertItem)>);
static_assert(is<Operation<bool>, decltype(&Manager::HasMoldbaseItem)>);
static_assert(is<PopItemRead, decltype(&Manager::GetPartPopItem)>);
static_assert(is<PopItemRead, decltype(&Manager::GetPartPopItemByID)>);
static_assert(is<PopItemRead, decltype(&Manager::GetPartInsertPopItem)>);
static_assert(is<PopItemRead, decltype(&Manager::GetMoldBasePopItem)>);

// Items and results.
static_assert(is<Operation<bool, int, int, CZorbI2Item*>, decltype(&Manager::GetItem)>);
static_assert(
    is<Operation<bool, int, std::map<int, Text>&>, decltype(&Manager::GetItemAllOptions)>);
static_assert(is<Operation<bool, int, int, int>, decltype(&Manager::SetItemStatus)>);
static_assert(is<Operation<void>, decltype(&Manager::SetItemsValue)>);
static_assert(is<Operation<int, int>, decltype(&Manager::GetProjectResults)>);

// Weld-line data and the control parameter file.
static_assert(
    is<Operation<bool, int, Doubles, Doubles>, decltype(&Manager::SetWeldlineDataStatus)>);
static_assert(is<Operation<void>, decltype(&Manager::SetWeldlineDataValue)>);
static_assert(
    is<Operation<bool, int, CZorbI2WeldlineDataStatus*>, decltype(&Manager::GetWeldlinePopData)>);
static_assert(is<Operation<bool, int>, decltype(&Manager::WriteCMIFile)>);

}  // namespace

TEST(Face, ManagerHoldsEngineDataBlockAndWriterInThisOrder) {
    Manager manager;
    const void* const object = &manager;
    const void* const engine = &manager.engine;
    const void* const cmiData = &manager.cmiData;
    const void* const accessCmiFile = &manager.accessCmiFile;
    EXPECT_EQ(engine, object);
    EXPECT_LT(engine, cmiData);
    EXPECT_LT(cmiData, accessCmiFile);
}
