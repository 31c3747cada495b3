#include "handover/Offers.h"

#include <algorithm>

#include "problems/VisibleText.h"
#include "recipes/Names.h"

namespace host {

std::vector<OfferedItem> AskOfferedItems(CZorbI2EngineManager& manager) {
    using Manager = CZorbI2EngineManager;
    // Not constexpr: the addresses of imported functions are known when the program is loaded.
    static bool (Manager::*const groups[])(int, CZorbI2Item*, CZorbI2ItemStatus*) = {
        &Manager::GetPartPopItem, &Manager::GetPartInsertPopItem, &Manager::GetMoldBasePopItem};
    manager.SetPopItems();
    manager.HasPopItem();
    std::vector<OfferedItem> items;
    items.reserve(kItemCount);
    ItemCategory group = kCategoryPart;
    for (const auto getItem : groups) {
        OfferedItem next;
        next.group = group++;
        for (int position = 0; (manager.*getItem)(position, &next.item, &next.status); ++position) {
            items.push_back(next);
        }
    }
    return items;
}

std::vector<const SolverSlot*> OfferedSolvers(const CZorbI2Engine& engine) {
    std::vector<const SolverSlot*> solvers;
    for (const auto& slot : engine.solverSlots) {
        if (slot) {
            solvers.push_back(slot.get());
        }
    }
    return solvers;
}

bool Offers(const SolverSlot& slot, std::int32_t meshKind) {
    return std::ranges::any_of(slot.meshTypes, [meshKind](const std::string& label) {
        return Find(label, meshKinds) == meshKind;
    });
}

Problems CheckTarget(const Recipe& recipe, const CZorbI2Engine& engine) {
    Problems problems;
    const auto refuse = [&](const char* key, const std::string& text) {
        problems.emplace_back(recipe.PlaceOf(key), text, ExitCode::notAvailable);
    };
    const SolverSlot* slot = engine.solverSlots[recipe.solver].get();
    if (slot == nullptr) {
        std::vector<std::string> offered;
        for (const SolverSlot* other : OfferedSolvers(engine)) {
            offered.push_back(other->name);
        }
        refuse("target.solver",
               Quoted(NameOf(recipe.solver, solverKeywords)) +
                   " is not offered for this project; offered: " + Listed(offered));
        return problems;
    }
    if (!Offers(*slot, recipe.meshKind)) {
        refuse("target.mesh", Quoted(NameOf(recipe.meshKind, meshKinds)) + " is not offered for " +
                                  slot->name +
                                  " in this project; offered: " + Listed(slot->meshTypes));
    }
    if (recipe.quadraticElements && slot->elementTypes.size() == 1) {
        refuse("target.quadratic_elements",
               slot->name + " has only one element type in this project: " + slot->elementTypes[0]);
    }
    return problems;
}

}  // namespace host
