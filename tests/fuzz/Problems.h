// What the host promises about every list of problems.
#pragma once

#include <string_view>

#include "problems/Problem.h"

namespace fuzz {

/// Expects lines that the text has, in which people find what is wrong, and messages that a
/// terminal can show: without control characters, which it would obey.
void ExpectGoodProblems(const host::Problems& problems, std::string_view text);

}  // namespace fuzz
