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
    std::string text = {};  ///< of the file that is there, unless it is kept
    bool isKept = false;    ///< whatever it is
};

/// What a call replaces.
enum class Replaces { controlFiles, anyFile, nothing };

/// A control file as messages name it, after its recipe.
Place PlaceOf(const std::filesystem::path& controlFile);

/// Throws a Failure for a place where no file can be written, for a file that the call reads, for
/// one that is named like a file of a run, and for one that the call does not replace.
ControlFilePlace LookAtControlFile(const std::filesystem::path& file, const Recipe& recipe,
                                   bool isRead, Replaces replaces);

}  // namespace host
