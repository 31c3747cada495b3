// Trace lines for the debugger. They never change a result.
#pragma once

#include <string>

namespace platform {

void Trace(const wchar_t* line);

/// Traces narrow text. Text that does not convert in the current locale is traced byte by byte.
void TraceNarrow(const std::string& text);

}  // namespace platform
