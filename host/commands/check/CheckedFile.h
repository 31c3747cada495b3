// A control file from disk, checked against its layout and against what the engine offers.
#pragma once

#include <optional>
#include <string>

#include "commands/Surroundings.h"
#include "commands/check/OfferCheck.h"
#include "console/Report.h"
#include "control_files/ControlFile.h"

namespace host {

struct CheckedFile {
    std::string name;
    std::optional<std::string> text = {};  ///< in UTF-8; none when the file cannot be read
    ControlFile values = {};               ///< empty when lines are faulty
    Problems problems = {};                ///< also why it cannot be read
};

/// Reads a file and checks it; "-" is standard input.
CheckedFile CheckFile(const std::string& name, const Surroundings& host, OfferCheck& offers);

/// The file as the documents show it.
Json JsonOf(const CheckedFile& file, bool isFine);

}  // namespace host
