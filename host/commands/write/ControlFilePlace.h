// What stands where a control file is to be written, and what of it may be replaced.
#pragma once

#include <filesystem>
#include <set>
#include <string>

#include "recipes/Recipe.h"
#include "system/SafeFile.h"

namespace host {

/// What a new text makes of the file that is there.
enum class Change { none, isNew, isChanged, isKept };

/// Files that a call reads and never replaces, by FileIdentity.
using FilesRead = std::set<std::string>;

struct ControlFilePlace : FilePlace {
    std::string text;  ///< of the file that is there
};

/// Whether a text starts as control files do.
bool IsControlFile(const std::string& text);

/// Throws a Failure for what may not be replaced: what is no control file, unless forced, and what
/// the call reads always.
ControlFilePlace LookAtControlFile(const std::filesystem::path& file, const Recipe& recipe,
                                   bool isRead, bool isForced);

}  // namespace host
