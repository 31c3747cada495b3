// Windows: a new file takes its rights from its folder, as every file there does.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
// After windows.h.
#include <io.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <random>

#include "system/HostPlatform.h"
#include "system/SystemFiles.h"

namespace host {

namespace {

std::error_code LastError() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

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

std::error_code CheckWritable(const std::filesystem::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const bool isReadOnlyFile = attributes != INVALID_FILE_ATTRIBUTES &&
                                (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 &&
                                (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    return isReadOnlyFile ? std::error_code(EACCES, std::generic_category()) : std::error_code();
}

std::vector<std::string> NamesIn(const std::filesystem::path& folder, std::string_view start) {
    std::vector<std::string> names;
    const std::filesystem::path wanted = std::u8string(start.begin(), start.end());
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::filesystem::path name = entry->path().filename();
        if (name.native().starts_with(wanted.native())) {
            names.push_back(Utf8Of(name));
        }
    }
    return names;
}

std::error_code MakePrivateFolder(const std::filesystem::path& folder) {
    return CreateDirectoryW(folder.c_str(), nullptr) != 0 ? std::error_code() : LastError();
}

std::error_code PutFile(const std::filesystem::path& file, const std::string& temporaryName,
                        const std::string& bytes, bool mayReplace) {
    const std::filesystem::path temporary = file.parent_path() / temporaryName;
    std::error_code reason = Fill(temporary, bytes);
    const DWORD how = MOVEFILE_WRITE_THROUGH | (mayReplace ? MOVEFILE_REPLACE_EXISTING : 0);
    if (!reason && MoveFileExW(temporary.c_str(), file.c_str(), how) == 0) {
        reason = LastError();
    }
    if (reason) {
        DeleteFileW(temporary.c_str());
    }
    return reason;
}

}  // namespace host
