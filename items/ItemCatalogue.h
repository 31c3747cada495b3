// The fixed catalogue of the output items: titles, descriptions, options and defaults.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include <zorbi2/CZorbI2Item.h>
#include <zorbi2/ZorbI2Types.h>

namespace items {

/// Answers the result code of an item id.
using ResultCodeOf = std::function<ResultCode(std::int32_t itemId)>;

/// Fills a slot for each item, in a fixed order, in which result codes are also asked for. An item
/// without results gets the reason as its only option. A slot for whose item there is no memory
/// stays null.
void BuildItemCatalogue(ItemArray& items, std::int32_t solverType,
                        const ResultCodeOf& resultCodeOf);

/// Fills `options`, which arrives empty, for one item; returns the default option key.
std::int32_t BuildItemOptions(std::int32_t solverType, std::int32_t itemId, ResultCode resultCode,
                              bool available, std::map<std::int32_t, std::string>& options);

}  // namespace items
