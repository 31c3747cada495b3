// What the host needs of files and folders beyond the standard library: one source per system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
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

/// A link that stands at a path.
struct Link {
    bool isThere = false;
    bool isTrusted = false;        ///< this user's or the administrator's; on Windows, any
    std::filesystem::path target;  ///< of a trusted one; may be relative to its folder
    std::error_code error = {};    ///< why it cannot be read
};

Link LookAtLink(const std::filesystem::path& path);

/// Whether this user may write the file, or put files into the folder, which Windows tells only
/// when it is tried.
std::error_code CheckWritable(const std::filesystem::path& path);

/// Adds the names in a folder that start like this, in UTF-8 and any order, as far as it can be
/// read. The standard library's iterators end the process when memory runs out.
std::error_code AddNamesIn(const std::filesystem::path& folder, std::string_view start,
                           std::vector<std::string>& names);

/// A file by the numbers that the system gives it, and a state of it by its size and the time when
/// it was last written; on Windows, the same for all files.
struct FileId {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::uint64_t size = 0;
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;

    bool operator==(const FileId&) const = default;
};

/// Appends a file's bytes, in blocks of 4 KiB, until there are `enough` or the file ends. A signal
/// interrupts it. Does not wait for the writer of a pipe.
std::error_code ReadStart(const std::filesystem::path& file, std::size_t enough, std::string& bytes,
                          FileId* id = nullptr);

/// Whether nobody but the administrator can rename what this user has in a folder. On Windows, yes.
bool IsSafeFromOthers(const std::filesystem::path& folder);

/// The number that the next file gets which this process opens; -1 on Windows.
int NextFileNumber();

/// Whether the file is open by a number, and read to its end. Yes for -1.
bool IsReadToItsEnd(int number, const std::filesystem::path& file);

/// Makes a folder that only this user can enter, and enters it; on Windows, whoever can enter the
/// one around it. Returns why it could not: there is one of that name, or another in its place by
/// then.
std::string EnterNewFolder(const std::filesystem::path& folder);

/// Removes the files in the current folder as far as it can, without memory of its own.
void RemoveFilesHere();

/// What a file may replace.
struct Replaceable {
    bool any = false;            ///< whatever has its name, but for a folder
    std::optional<FileId> only;  ///< otherwise this file, or nothing
};

/// What came of a file that was put in its place.
struct PutResult {
    bool isInPlace = false;       ///< with an error, when its folder does not reach the disk
    bool isAnotherThere = false;  ///< which came meanwhile, and is not to be replaced
    std::error_code error = {};
};

/// Puts bytes in the place of a file, in one step, with its mode, its list of access rules and,
/// where the right exists, its owner and group (on Windows with the rights of its folder). The
/// bytes are on the disk when it returns. They come by way of a file with a temporary name in the
/// same folder, which is made anew and gone in the end. No link is followed.
PutResult PutFile(const std::filesystem::path& file, const std::string& temporaryName,
                  const std::string& bytes, const Replaceable& replaceable);

}  // namespace host
