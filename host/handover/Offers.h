// What the engine offers: solvers with their mesh kinds, and items.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include <zorbi2/CZorbI2Engine.h>
#include <zorbi2/CZorbI2EngineManager.h>
#include <zorbi2/CZorbI2Item.h>
#include <zorbi2/CZorbI2ItemStatus.h>
#include <zorbi2/ZorbI2Types.h>

#include "problems/Problem.h"
#include "recipes/Recipe.h"

namespace host {

/// An item that the dialog offers, with the choice made for it.
struct OfferedItem {
    ItemCategory group = kCategoryPart;  ///< of the dialog
    CZorbI2Item item;
    CZorbI2ItemStatus status;

    std::int32_t Id() const { return item.itemId; }
    bool IsMissing() const { return status.optionValue == kOptionResultsMissing; }
    bool IsSwitch() const { return status.checkState != kNotACheckItem; }
    /// The label of the chosen option; of an item without results, the reason.
    std::string Label() const { return item.options.at(status.optionValue); }
};

/// Null when the item is not among the offered ones.
inline const OfferedItem* FindItem(const std::vector<OfferedItem>& offered, std::int32_t itemId) {
    const auto found = std::ranges::find(offered, itemId, &OfferedItem::Id);
    return found != offered.end() ? &*found : nullptr;
}

/// The items that are offered for the engine's current status, in the order of the dialog.
std::vector<OfferedItem> AskOfferedItems(CZorbI2EngineManager& manager);

/// The solvers that are offered for the project.
std::vector<const SolverSlot*> OfferedSolvers(const CZorbI2Engine& engine);

bool Offers(const SolverSlot& slot, std::int32_t meshKind);

/// What the project does not offer of the recipe's solver, mesh kind and elements.
Problems CheckTarget(const Recipe& recipe, const CZorbI2Engine& engine);

}  // namespace host
