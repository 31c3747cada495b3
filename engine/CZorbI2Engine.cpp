#include <zorbi2/CZorbI2Engine.h>

#include <algorithm>

#include "cmi/WeldlineData.h"
#include "items/ItemCatalogue.h"
#include "items/SolverSlots.h"
#include "platform/CheckedElement.h"
#include "results/ResultChecks.h"

using platform::CheckedElement;

CZorbI2Engine::CZorbI2Engine(const CZorbFEAInformation* info)
    : feaInformation(info != nullptr ? std::make_unique<CZorbFEAInformation>(*info)
                                     : std::make_unique<CZorbFEAInformation>()) {
    constexpr unsigned char buildIt = 1;
    if (feaInformation->flags[CZorbFEAInformation::kBuildCatalogue] == buildIt) {
        BuildCatalogue();
    }
    viewEdit = feaInformation->flags[CZorbFEAInformation::kViewEditAtStart] != 0;
}

CZorbI2Engine::~CZorbI2Engine() {
    // The order is part of the engine's promise; the rest is destroyed in reverse order
    // of declaration.
    for (auto& slot : solverSlots) {
        slot.reset();
    }
    for (auto& item : items) {
        item.reset();
    }
    weldlineAngleSet.reset();
    popItemSelector.reset();
    feaInformation.reset();
}

void CZorbI2Engine::BuildCatalogue() {
    const CZorbFEAInformation& info = *feaInformation;
    solverOffered = items::OfferedSolvers(info.solverType);
    items::BuildSolverSlots(solverSlots, solverOffered, info.solverType, info.voxelFlag);
    results::Run run{*feaInformation, flagPrevShot, valueShotRunID};
    items::BuildItemCatalogue(items, info.solverType, [&run](std::int32_t itemId) {
        return results::CheckResults(run, itemId);
    });
    weldlineAngleSet = std::make_unique<CZorbI2WeldlineDataStatus>(cmi::DefaultWeldlineData());
    popItemSelector = std::make_unique<PopItemSelector>(info.solverType, items, *weldlineAngleSet,
                                                        info.voxelFlag, info.projectType);
}

void CZorbI2Engine::SetEngineCurrentStatus(SolverIndex solver, std::int32_t meshKind,
                                           std::int32_t quadraticElement,
                                           std::int32_t annealingMode) {
    if (HasSlot(solver)) {
        SolverSlot& slot = *solverSlots[solver];
        slot.meshKind = meshKind;
        slot.quadraticElement = quadraticElement;
        slot.annealingMode = annealingMode;
    }
    popItemSelector->SetCurrentStatus(solver, meshKind, quadraticElement, annealingMode);
}

void CZorbI2Engine::GetCurrentSolverStatus(SolverIndex solver, std::int32_t& meshKind,
                                           std::int32_t& quadraticElement,
                                           std::int32_t& annealingMode) const {
    if (HasSlot(solver)) {
        const SolverSlot& slot = *solverSlots[solver];
        meshKind = slot.meshKind;
        quadraticElement = slot.quadraticElement;
        annealingMode = slot.annealingMode;
    }
}

bool CZorbI2Engine::HasSlot(SolverIndex solver) const {
    return static_cast<std::uint32_t>(solver) < solverSlots.size() && solverSlots[solver];
}

bool CZorbI2Engine::HasItemOfCategory(ItemCategory category) const {
    return std::any_of(items.begin(), items.end(),
                       [category](const auto& item) { return item && item->category == category; });
}

bool CZorbI2Engine::GetItem(ItemCategory category, std::int32_t itemId, CZorbI2Item* item) const {
    if (item == nullptr || static_cast<std::uint32_t>(itemId) >= items.size() || !items[itemId] ||
        items[itemId]->category != category) {
        return false;
    }
    *item = *items[itemId];
    return true;
}

bool CZorbI2Engine::GetItemAllOptions(std::int32_t itemId,
                                      std::map<std::int32_t, std::string>& options) const {
    // The id is not checked: deliberate.
    if (!items[itemId]) {
        options.clear();
        return false;
    }
    options = items[itemId]->options;
    return !options.empty();
}

void CZorbI2Engine::SetItemsValue() {
    if (popItemSelector->currentItemStatusList == nullptr) {
        return;
    }
    for (const CZorbI2ItemStatus& status : *popItemSelector->currentItemStatusList) {
        if (const auto& item = items[status.itemId]) {
            item->checkState = status.checkState;
            item->optionValue = status.optionValue;
        }
    }
}

ResultCode CZorbI2Engine::GetProjectResults(std::int32_t itemId) {
    results::Run run{*feaInformation, flagPrevShot, valueShotRunID};
    return results::CheckResults(run, itemId);
}

void CZorbI2Engine::SetWeldlineDataStatus(SolverIndex solver, const std::vector<double>& angles,
                                          const std::vector<double>& rates) {
    cmi::StoreWeldlineValues(popItemSelector->weldlineTable, solver, angles, rates);
}

void CZorbI2Engine::SetWeldlineDataValue() {
    cmi::TakeWeldlineValues(popItemSelector->weldlineTable, popItemSelector->currentWeldlineIndex,
                            *weldlineAngleSet);
}

void CZorbI2Engine::GetWeldlinePopData(SolverIndex solver,
                                       CZorbI2WeldlineDataStatus& record) const {
    record = CheckedElement(popItemSelector->weldlineTable, solver);
}
