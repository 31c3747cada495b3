// What the user is told when the results of an item are missing.
#pragma once

#include <string>

#include "ZorbI2Types.h"

/// Assigns the message of a result code to `text`; "Unknown messages" for codes without one.
void GetResultMessage(ResultCode code, std::string& text);
