#include "commands/OfferJson.h"

#include "recipes/Names.h"

namespace host {

namespace {

Json JsonOf(const OfferedItem& offered) {
    const CZorbI2Item& item = offered.item;
    Json entry = {{"id", item.itemId},
                  {"name", NameOf(item.itemId, shortNames)},
                  {"group", groupNames[offered.group]},
                  {"title", TitleOf(item)},
                  {"description", item.description},
                  {"available", !offered.IsMissing()}};
    if (offered.IsMissing()) {
        entry["reason"] = offered.Label();
    } else if (offered.IsSwitch()) {
        entry["on"] = offered.status.checkState == 1;
    } else {
        entry["option"] = offered.status.optionValue;
        entry["options"] = Json::array();
        for (const auto& [key, label] : item.options) {
            entry["options"].push_back({{"key", key}, {"label", label}});
        }
    }
    return entry;
}

Json AvailableOf(const std::string& signs) {
    Json available = Json::object();
    for (const auto& [itemId, name] : shortNames) {
        if (signs[itemId] != '.') {
            available[name] = signs[itemId] == '+';
        }
    }
    return available;
}

}  // namespace

std::string TitleOf(const CZorbI2Item& item) {
    return item.title.empty() ? NameOf(item.itemId, itemKeys) : item.title;
}

std::string ElementTypeOf(const Recipe& recipe, const SolverSlot& slot) {
    const bool isSecond = recipe.quadraticElements && slot.elementTypes.size() > 1;
    return slot.elementTypes[isSecond ? 1 : 0];
}

Json JsonOfDialog(const Recipe& recipe, const SolverSlot& slot,
                  const std::vector<OfferedItem>& items) {
    Json list = Json::array();
    for (const OfferedItem& offered : items) {
        list.push_back(JsonOf(offered));
    }
    return {{"project", recipe.project.projectName},      {"run", recipe.project.runNumber},
            {"folder", recipe.project.projectFolder},     {"solver", slot.name},
            {"mesh", NameOf(recipe.meshKind, meshKinds)}, {"items", list}};
}

std::string SignsOf(const std::vector<OfferedItem>& items) {
    std::string signs(kItemCount, '.');
    for (const OfferedItem& offered : items) {
        signs[offered.item.itemId] = offered.IsMissing() ? '-' : '+';
    }
    return signs;
}

Json JsonOfColumn(const SolverSlot& slot, const std::string& mesh, const std::string& signs) {
    return {{"solver", slot.name}, {"mesh", mesh}, {"available", AvailableOf(signs)}};
}

}  // namespace host
