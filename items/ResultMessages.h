// What the user is told when the results of an item are missing.
#pragma once

#include <string>

#include <zorbi2/ZorbI2Types.h>

namespace items {

/// Assigns the message of a result code to `text`; "Unknown messages" for codes without one.
void GetResultMessage(ResultCode code, std::string& text);

}  // namespace items
