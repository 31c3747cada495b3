// The user's choice for one output item under one solver.
#pragma once

#include <cstdint>

class CZorbI2Item;

/// A value record. The engine keeps one for each item under each solver.
class CZorbI2ItemStatus {
public:
    /// The engine's own item (not owned; valid while the engine lives). Null in a record that was
    /// never filled.
    CZorbI2Item* item = nullptr;
    std::int32_t itemId = 0;       ///< id of that item
    std::int32_t checkState = 0;   ///< -1: set by option; otherwise 0 off, 1 on
    std::int32_t optionValue = 0;  ///< chosen key; -2: results missing, -1: no options
};
