// A control file from disk, checked against its layout and against what the engine offers.
#pragma once

#include <string>

#include "commands/RecipeCommand.h"
#include "commands/check/OfferCheck.h"
#include "console/Report.h"
#include "control_files/ControlFile.h"

namespace host {

/// What is known of a file once it is read.
struct Checked {
    std::string name;
    ControlFile values;  ///< empty when lines are faulty
    Problems problems;
};

/// The text in UTF-8; "-" is standard input. Throws a Failure when the file cannot be read.
std::string ReadControlText(const std::string& name, const Surroundings& host);

Checked CheckText(const std::string& name, const std::string& text, OfferCheck& offers);

/// The file as the documents show it.
Json JsonOf(const Checked& file, bool isFine);

}  // namespace host
