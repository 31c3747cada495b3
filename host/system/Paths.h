// Paths as the host has them: UTF-8 texts on the outside, std::filesystem inside.
#pragma once

#include <filesystem>
#include <string>

#include "problems/Problem.h"
#include "system/HostPlatform.h"  // Utf8Of

namespace host {

std::filesystem::path PathOf(const std::string& utf8);

/// With this system's separators, whichever the path was written with.
std::filesystem::path PathOfAny(std::string utf8);

/// Whether a path starts with a drive letter or two backslashes: it may be of another machine.
bool MayBeElsewhere(const std::string& path);

/// The absolute path of a path that may be relative to a folder, with the system's separators.
std::string AbsolutePath(const std::string& path, const std::filesystem::path& relativeTo);

/// Throws a Failure at a place unless a path is a folder.
void CheckFolder(const std::string& folder, const Place& place);

/// The text for the engine. Throws a Failure when the system's character set lacks a character.
std::string ForEngine(const std::string& utf8);

}  // namespace host
