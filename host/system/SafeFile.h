// Files that are whole, old or new, whatever happens while they are replaced.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "problems/Problem.h"
#include "system/SystemFiles.h"

namespace host {

/// A place where a file is to be written.
struct FilePlace {
    std::filesystem::path file;  ///< that a link there leads to, which is the user's own
    bool isTaken = false;        ///< by a regular file
    std::string reason;          ///< why no file can be written there; empty when one can
    std::optional<FileId> read;  ///< the file there whose text was looked at
};

FilePlace LookAtPlace(const std::filesystem::path& file);

/// The first 256 KiB of the file at a place. From then on no other file is replaced there. Throws a
/// Failure when it cannot be read.
std::string StartOf(FilePlace& place);

/// A look at a place; none when nothing is to be written there after all.
using Look = std::function<std::optional<FilePlace>()>;

/// Replaces the file that was at a place when it was looked at, in one step, or makes it anew. No
/// link that has come there is followed; for another file the place is looked at again. Returns why
/// it could not; the old file is whole then, unless the reason says that the new one is there, and
/// nothing is left behind.
std::string ReplaceFile(const Look& look, const std::string& bytes);

/// Throws the Failure that tells why a file could not be written.
[[noreturn]] void FailToWrite(const Place& place, const std::string& reason);

/// A name for a temporary file or folder. It cannot be guessed, and tells who made it.
std::string TemporaryName();

/// Removes the files, or folders, with a temporary name whose maker is gone: it was killed.
void RemoveLeftOvers(const std::filesystem::path& folder, std::filesystem::file_type type);

}  // namespace host
