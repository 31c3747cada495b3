// The engine's finite decisions, all of them, as lines of text: what is offered, what each check
// answers, every message, slot and item. For comparing builds of different systems.
#pragma once

#include <string>
#include <vector>

namespace golden {

/// One line per decision, inputs before " : " and outcome after it.
std::vector<std::string> DecisionTables();

}  // namespace golden
