// Files that are read, with a look at each before: what is not a regular file might never end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "problems/Problem.h"

namespace host {

/// Bytes of the largest file that is read whole: 256 KiB. What is larger may have no end.
constexpr std::size_t largestFile = 1 << 18;

/// The whole file as bytes. Throws a Failure at the place.
std::string ReadFile(const std::filesystem::path& file, const Place& place);
std::string ReadStandardInput(const Place& place);

/// Throws a Failure at a place for what is there but is not a regular file, which might never end
/// or never begin, is larger than it can be, or cannot be read.
void CheckRegularFile(const std::filesystem::path& file, std::uintmax_t largest,
                      const Place& place);

}  // namespace host
