#include <zorbi2/PopItemSelector.h>

#include "cmi/WeldlineData.h"
#include "engine/OfferedItemTables.h"
#include "platform/CheckedElement.h"

using platform::CheckedElement;

namespace {

using ItemIds = std::vector<std::int32_t>;

/// An item for which there was no memory counts as one without results.
CZorbI2ItemStatus StartingStatus(std::int32_t itemId, CZorbI2Item* item) {
    CZorbI2ItemStatus status;
    status.item = item;
    status.itemId = itemId;
    status.checkState = item != nullptr ? item->checkState : kNotACheckItem;
    status.optionValue = item != nullptr ? item->optionValue : kOptionResultsMissing;
    return status;
}

ItemStatusList StartingStatuses(const ItemArray& items) {
    ItemStatusList statuses;
    statuses.reserve(kItemCount);
    for (std::int32_t itemId = 0; itemId < kItemCount; ++itemId) {
        statuses.push_back(StartingStatus(itemId, items[itemId].get()));
    }
    return statuses;
}

bool CopyEntry(const CZorbI2ItemStatus& entry, CZorbI2Item* item, CZorbI2ItemStatus* status) {
    if (entry.item == nullptr) {
        return false;
    }
    *status = entry;
    *item = *entry.item;
    return true;
}

}  // namespace

PopItemSelector::PopItemSelector(std::int32_t projectSolverType, const ItemArray& items,
                                 const CZorbI2WeldlineDataStatus& weldlineAngleSet,
                                 std::int32_t projectVoxelFlag, std::int32_t kindOfProject)
    : weldlineTable(cmi::BuildWeldlineTable(weldlineAngleSet)),
      projectType(kindOfProject),
      solverType(projectSolverType),
      voxelFlag(static_cast<std::uint8_t>(projectVoxelFlag)) {
    itemStatusLists.fill(StartingStatuses(items));
}

void PopItemSelector::SetCurrentStatus(SolverIndex solver, std::int32_t mesh,
                                       std::int32_t quadratic, std::int32_t annealing) {
    currentSolver = solver;
    meshKind = mesh;
    quadraticElement = quadratic;
    annealingMode = annealing;
    if (static_cast<std::uint32_t>(solver) < itemStatusLists.size()) {
        currentItemStatusList = &itemStatusLists[solver];
    }
    currentWeldlineIndex = solver;
}

void PopItemSelector::SetPopItems() {
    engine::ListOfferedItems({solverType, voxelFlag, projectType},
                             {currentSolver, meshKind, annealingMode},
                             {partPopItems, partInsertPopItems, moldbasePopItems});
}

bool PopItemSelector::HasPopItem() {
    partCount = static_cast<std::int32_t>(partPopItems.size());
    partInsertCount = static_cast<std::int32_t>(partInsertPopItems.size());
    moldbaseCount = static_cast<std::int32_t>(moldbasePopItems.size());
    return partCount + partInsertCount + moldbaseCount > 0;
}

CZorbI2ItemStatus& PopItemSelector::CurrentStatus(std::int32_t position) const {
    ItemStatusList noList;  // without a current list every position is outside
    return CheckedElement(currentItemStatusList != nullptr ? *currentItemStatusList : noList,
                          position);
}

bool PopItemSelector::GetPopItem(const ItemIds& offered, std::int32_t count, std::int32_t position,
                                 CZorbI2Item* item, CZorbI2ItemStatus* status) const {
    if (item == nullptr || position < 0 || position >= count) {
        return false;
    }
    return CopyEntry(CurrentStatus(CheckedElement(offered, position)), item, status);
}

bool PopItemSelector::GetPartPopItem(std::int32_t position, CZorbI2Item* item,
                                     CZorbI2ItemStatus* status) const {
    return GetPopItem(partPopItems, partCount, position, item, status);
}

bool PopItemSelector::GetPartInsertPopItem(std::int32_t position, CZorbI2Item* item,
                                           CZorbI2ItemStatus* status) const {
    return GetPopItem(partInsertPopItems, partInsertCount, position, item, status);
}

bool PopItemSelector::GetMoldBasePopItem(std::int32_t position, CZorbI2Item* item,
                                         CZorbI2ItemStatus* status) const {
    return GetPopItem(moldbasePopItems, moldbaseCount, position, item, status);
}

bool PopItemSelector::GetPartPopItemByID(std::int32_t itemId, CZorbI2Item* item,
                                         CZorbI2ItemStatus* status) const {
    const std::size_t length = currentItemStatusList != nullptr ? currentItemStatusList->size() : 0;
    // "Greater than" is deliberate: the id just past the list raises the error of CurrentStatus.
    if (item == nullptr || itemId < 0 || static_cast<std::size_t>(itemId) > length) {
        return false;
    }
    return CopyEntry(CurrentStatus(itemId), item, status);
}

bool PopItemSelector::SetItemStatus(std::int32_t index, std::int32_t newCheckState,
                                    std::int32_t newOptionValue) {
    CZorbI2ItemStatus& status = CurrentStatus(index);
    if (status.optionValue == kOptionResultsMissing) {
        return false;
    }
    if (status.checkState == kNotACheckItem) {
        if (newOptionValue < 0) {
            return false;
        }
        status.optionValue = newOptionValue;
        return true;
    }
    if (status.optionValue != kOptionNone) {
        return true;  // both check state and option: accepted, nothing changes
    }
    if (newCheckState < 0) {
        return false;
    }
    status.checkState = newCheckState;
    return true;
}
