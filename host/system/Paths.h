// Paths and files as the host has them: UTF-8 texts on the outside, std::filesystem inside.
#pragma once

#include <cstddef>
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

/// Bytes of the largest file that is read whole: 256 KiB. What is larger may have no end.
constexpr std::size_t largestFile = 1 << 18;

/// The whole file as bytes. Throws a Failure at the place.
std::string ReadFile(const std::filesystem::path& file, const Place& place);
std::string ReadStandardInput(const Place& place);

/// The text for the engine. Throws a Failure when the system's character set lacks a character.
std::string ForEngine(const std::string& utf8);

}  // namespace host
