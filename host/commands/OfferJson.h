// What the engine offers for a recipe, as the documents show it.
#pragma once

#include <string>
#include <vector>

#include "console/Report.h"
#include "handover/Offers.h"
#include "recipes/Recipe.h"

namespace host {

/// The groups of the dialog, by category.
inline constexpr const char* groupNames[] = {"Part", "Part insert", "Moldbase"};

/// The items without a title are known by their key in the file.
std::string TitleOf(const CZorbI2Item& item);

/// The solver's element type that a recipe asks for.
std::string ElementTypeOf(const Recipe& recipe, const SolverSlot& slot);

/// The dialog: project, target and items.
Json JsonOfDialog(const Recipe& recipe, const SolverSlot& slot,
                  const std::vector<OfferedItem>& items);

/// A sign for each item: '+' available, '-' missing, '.' not offered.
std::string SignsOf(const std::vector<OfferedItem>& items);

/// A column of the matrix: the items for a solver and a mesh kind.
Json JsonOfColumn(const SolverSlot& slot, const std::string& mesh, const std::string& signs);

}  // namespace host
