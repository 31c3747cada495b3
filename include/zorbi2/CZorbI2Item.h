// One output item: a quantity that can be handed over to a structural solver.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "ZorbI2Types.h"

/// A value record. The engine owns its items; what a host reads is a copy of its own.
class CZorbI2Item {
public:
    CZorbI2Item() = default;

    /// Makes an item from all its values; keeps its own copies of title, description and options.
    CZorbI2Item(ItemCategory itemCategory, std::int32_t id, bool available, std::string itemTitle,
                std::string itemDescription, std::int32_t initialCheckState,
                std::map<std::int32_t, std::string> itemOptions, std::int32_t defaultOption)
        : category(itemCategory),
          itemId(id),
          isAvailable(available),
          checkState(initialCheckState),
          options(std::move(itemOptions)),
          optionValue(defaultOption),
          title(std::move(itemTitle)),
          description(std::move(itemDescription)) {}

    ItemCategory category = 0;    ///< model section, one of kCategory...
    std::int32_t itemId = 0;      ///< one of kItem...
    bool isAvailable = false;     ///< the results existed when the engine was created
    std::int32_t checkState = 0;  ///< -1: set by option; otherwise 0 off, 1 on
    /// Option key to label, ascending. -2: results missing (the label says why); -1: no options;
    /// 0 and above: real choices. Never empty for an item of the engine.
    std::map<std::int32_t, std::string> options;
    std::int32_t optionValue = 0;  ///< key of the chosen option
    std::string title;             ///< short title; may be empty
    std::string description;       ///< one sentence; may be empty
};

/// The items of an engine by id. A slot is null only when there was no memory for its item.
typedef std::array<std::unique_ptr<CZorbI2Item>, kItemCount> ItemArray;
