// Paths and files as the host has them: UTF-8 texts on the outside, std::filesystem inside.
#pragma once

#include <cstddef>
#include <filesystem>
#include <istream>
#include <string>

#include "problems/Problem.h"

namespace host {

std::filesystem::path PathOf(const std::string& utf8);

/// With this system's separators, whichever the path was written with.
std::filesystem::path PathOfAny(std::string utf8);

std::string Utf8Of(const std::filesystem::path& path);

/// Whether a path starts with a drive letter or two backslashes: it may be of another machine.
bool MayBeElsewhere(const std::string& path);

/// The absolute path of a path that may be relative to a folder, with the system's separators. A
/// path of any machine is absolute on every system, and stays the text that it is: the translator
/// may run on another machine.
std::string AbsolutePath(const std::string& path, const std::filesystem::path& relativeTo);

/// Throws a Failure, of a place, unless a path is a folder.
void CheckFolder(const std::string& folder, const Place& place);

/// The whole file as bytes, up to 256 KiB. Throws a Failure, of a place.
std::string ReadFile(const std::filesystem::path& file, const Place& place);
/// What a stream still has, in blocks of 4 KiB until that is enough.
std::string ReadBytes(std::istream& stream, std::size_t enough);
std::string ReadStandardInput(const Place& place);

/// The text for the engine. Throws a Failure when the system's character set lacks a character.
std::string ForEngine(const std::string& utf8);

}  // namespace host
