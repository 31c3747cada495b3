// What safe files need from the system beyond the standard library: one source per system.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace host {

/// This machine and this process, as names of temporary files carry them: "5f3a0c12-4711".
std::string MachineMark();
unsigned long ProcessNumber();

/// A number that nobody can guess.
std::uint64_t RandomNumber();

/// Whether a process of this machine still runs. Yes when that cannot be known.
bool IsRunning(unsigned long process);

/// Whether a file or folder is this user's, or on Windows no link; no link is followed.
bool IsOwn(const std::filesystem::path& path);

/// Whether this user may write the file, or put files into the folder, which Windows tells only
/// when it is tried.
std::error_code CheckWritable(const std::filesystem::path& path);

/// The names in a folder that start like this, in UTF-8 and any order; none when it cannot be read.
std::vector<std::string> NamesIn(const std::filesystem::path& folder, std::string_view start);

/// Makes a folder that only this user can enter; on Windows, whoever can enter the one around it.
/// An error when there is one of that name.
std::error_code MakePrivateFolder(const std::filesystem::path& folder);

/// Puts bytes in the place of a file, in one step, with its mode, its list of access rules and,
/// where the right exists, its owner and group (on Windows with the rights of its folder); or, when
/// none may be replaced, only where none is. The bytes are on the disk when it returns. They come
/// by way of a file with a temporary name in the same folder, which is made anew and gone in the
/// end. No link is followed.
std::error_code PutFile(const std::filesystem::path& file, const std::string& temporaryName,
                        const std::string& bytes, bool mayReplace);

}  // namespace host
