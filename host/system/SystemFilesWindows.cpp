// Windows: a new file takes its rights from its folder, as every file there does.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
// After windows.h.
#include <io.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <functional>
#include <random>

#include "problems/Problem.h"
#include "system/HostPlatform.h"
#include "system/SystemFiles.h"

namespace host {

namespace {

std::error_code LastError() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

/// A look through a folder, unless it could not be begun.
class Search {
public:
    explicit Search(HANDLE begun) : handle(begun) {}
    ~Search() {
        if (handle != INVALID_HANDLE_VALUE) {
            FindClose(handle);
        }
    }
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    const HANDLE handle;
};

/// Makes the file anew, with all its bytes on the disk.
std::error_code Fill(const std::filesystem::path& path, const std::string& bytes) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return LastError();
    }
    DWORD written = 0;
    const bool isWhole =
        WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0 &&
        written == bytes.size() && FlushFileBuffers(file) != 0;
    std::error_code reason = isWhole ? std::error_code() : LastError();
    if (!isWhole && !reason) {  // a part of it was written
        reason = {ERROR_WRITE_FAULT, std::system_category()};
    }
    CloseHandle(file);
    return reason;
}

}  // namespace

std::string MachineMark() {
    std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> name{};
    DWORD size = static_cast<DWORD>(name.size());
    GetComputerNameW(name.data(), &size);
    std::array<char, 9> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x",
                  static_cast<std::uint32_t>(std::hash<std::wstring_view>{}(name.data())));
    return digits.data();
}

unsigned long ProcessNumber() {
    return GetCurrentProcessId();
}

std::uint64_t RandomNumber() {
    std::random_device random;
    return std::uint64_t{random()} << 32 | random();
}

bool IsRunning(unsigned long process) {
    const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, process);
    if (handle == nullptr) {
        return GetLastError() != ERROR_INVALID_PARAMETER;  // the answer for no such process
    }
    const bool isRunning = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
    CloseHandle(handle);
    return isRunning;
}

bool IsOwn(const std::filesystem::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
}

Link LookAtLink(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::path target = std::filesystem::read_symlink(path, error);
    return {!error, true, target};
}

std::error_code CheckWritable(const std::filesystem::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const bool isReadOnlyFile = attributes != INVALID_FILE_ATTRIBUTES &&
                                (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 &&
                                (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    return isReadOnlyFile ? std::error_code(EACCES, std::generic_category()) : std::error_code();
}

std::error_code AddNamesIn(const std::filesystem::path& folder, std::string_view start,
                           std::vector<std::string>& names) {
    WIN32_FIND_DATAW entry{};
    const Search entries(FindFirstFileW((folder / L"*").c_str(), &entry));
    if (entries.handle == INVALID_HANDLE_VALUE) {
        return LastError();
    }
    do {
        const std::string name = Utf8Of(entry.cFileName);
        if (name.starts_with(start) && name != "." && name != "..") {
            names.push_back(name);
        }
    } while (FindNextFileW(entries.handle, &entry) != 0);
    return GetLastError() == ERROR_NO_MORE_FILES ? std::error_code() : LastError();
}

std::error_code ReadStart(const std::filesystem::path& file, std::size_t enough, std::string& bytes,
                          FileId* /*id*/) {
    std::ifstream stream(file, std::ios::binary);
    std::array<char, 4096> block{};
    while (bytes.size() < enough &&
           (stream.read(block.data(), block.size()), stream.gcount() > 0)) {
        bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    }
    return stream.bad() || !stream.is_open() ? std::error_code(errno, std::generic_category())
                                             : std::error_code();
}

int NextFileNumber() {
    return -1;  // the engine's runtime library may number files on its own
}

bool IsReadToItsEnd(int /*number*/, const std::filesystem::path& /*file*/) {
    return true;
}

bool IsSafeFromOthers(const std::filesystem::path& /*folder*/) {
    return true;
}

std::string EnterNewFolder(const std::filesystem::path& folder) {
    if (CreateDirectoryW(folder.c_str(), nullptr) == 0) {
        return ReasonOf(LastError());
    }
    std::string reason;
    if (SetCurrentDirectoryW(folder.c_str()) == 0) {
        reason = ReasonOf(LastError());
        RemoveDirectoryW(folder.c_str());
    }
    return reason;
}

void RemoveFilesHere() {
    WIN32_FIND_DATAW entry{};
    const Search entries(FindFirstFileW(L"*", &entry));
    if (entries.handle != INVALID_HANDLE_VALUE) {
        do {
            DeleteFileW(entry.cFileName);  // fails for the folders "." and ".."
        } while (FindNextFileW(entries.handle, &entry) != 0);
    }
}

PutResult PutFile(const std::filesystem::path& file, const std::string& temporaryName,
                  const std::string& bytes, const Replaceable& replaceable) {
    const std::filesystem::path temporary = file.parent_path() / temporaryName;
    std::error_code error = Fill(temporary, bytes);
    const bool mayReplace = replaceable.any || replaceable.only;
    const DWORD how = MOVEFILE_WRITE_THROUGH | (mayReplace ? MOVEFILE_REPLACE_EXISTING : 0);
    if (!error && MoveFileExW(temporary.c_str(), file.c_str(), how) == 0) {
        error = LastError();
    }
    if (error) {
        DeleteFileW(temporary.c_str());
    }
    return {!error, error == std::errc::file_exists, error};
}

}  // namespace host
