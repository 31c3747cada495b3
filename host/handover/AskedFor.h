// What must stand in the control file, from the recipe and the offer alone: a second opinion,
// against which the file that the engine has written is held.
#pragma once

#include <vector>

#include <zorbi2/CZorbI2Item.h>

#include "control_files/ControlFile.h"
#include "handover/Offers.h"
#include "recipes/Recipe.h"

namespace host {

/// All values of the file. `offered` has the recipe's choices; `items` are the engine's, for what
/// the file says of items that are not offered.
ControlFile AskedFor(const Recipe& recipe, const std::vector<OfferedItem>& offered,
                     const ItemArray& items);

}  // namespace host
