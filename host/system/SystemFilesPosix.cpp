// POSIX: all steps of a replacement work in one open folder, whatever happens to its path
// meanwhile.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <csignal>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>

#include "problems/Problem.h"
#include "system/Signals.h"
#include "system/SystemFiles.h"

namespace host {

namespace {

std::error_code LastError() {
    return {errno, std::generic_category()};
}

/// A file or folder that is open while the object lives, unless it could not be opened.
class Descriptor {
public:
    explicit Descriptor(int opened) : number(opened) {}
    ~Descriptor() {
        if (number >= 0) {
            close(number);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    const int number;
};

using OpenFolder = std::unique_ptr<DIR, int (*)(DIR*)>;

/// Also one that may be written but not read, which cannot be brought to the disk then.
int OpenToWriteIn(const std::filesystem::path& folder) {
    const int opened = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return opened < 0 && errno == EACCES ? open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)
                                         : opened;
}

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written < 0 ? 0 : written));
    }
    return true;
}

/// Also after a signal.
bool Synchronize(int file) {
    int result = 0;
    do {
        result = fsync(file);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

FileId IdOf(const struct stat& status) {
    return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
            status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

/// A file that is to be replaced.
struct Replaced {
    struct stat status {};
    bool hasRules = false;  ///< of access, beyond the mode; mostly it has none
    std::string rules;      ///< as the system keeps them; empty when they cannot be read
};

constexpr const char* accessRules = "system.posix_acl_access";

void ReadRules(const std::filesystem::path& file, Replaced& replaced) {
    std::array<char, 65536> rules;  // XATTR_SIZE_MAX
    const ssize_t size = getxattr(file.c_str(), accessRules, rules.data(), rules.size());
    replaced.hasRules = size >= 0 || (errno != ENODATA && errno != ENOTSUP);
    replaced.rules.assign(rules.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
}

/// Gives a file the mode of another, its rules of access and, as far as the right exists, its owner
/// and group.
bool TakeOver(int file, const Replaced& other) {
    const auto& [status, hasRules, rules] = other;
    fremovexattr(file, accessRules);  // those that its folder has for new files
    const bool hasGroup = fchown(file, static_cast<uid_t>(-1), status.st_gid) == 0;
    const bool hasOwner = fchown(file, status.st_uid, static_cast<gid_t>(-1)) == 0;
    // Rights of an owner or group that it does not have are not for the ones that it has; with
    // rules, those that the mode gives the group are not the group's.
    const mode_t lost = (hasOwner ? 0U : mode_t{S_ISUID}) | (hasGroup ? 0U : mode_t{S_ISGID}) |
                        (hasGroup && !hasRules ? 0U : mode_t{S_IRWXG});
    const mode_t kept =
        status.st_mode & (S_ISUID | S_ISGID | S_ISVTX | S_IRWXU | S_IRWXG | S_IRWXO) & ~lost;
    if (fchmod(file, kept) != 0) {
        return false;
    }
    if (hasGroup && hasOwner && !rules.empty()) {
        fsetxattr(file, accessRules, rules.data(), rules.size(), 0);  // else it has fewer rights
    }
    return true;
}

/// Makes the file anew, with all its bytes on the disk.
bool Fill(int folder, const char* name, const Replaced* replaced, const std::string& bytes) {
    constexpr mode_t forThisUser = S_IRUSR | S_IWUSR;
    constexpr mode_t asUsual = forThisUser | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    const Descriptor file(openat(folder, name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                 replaced != nullptr ? forThisUser : asUsual));
    return file.number >= 0 && WriteAll(file.number, bytes) &&
           (replaced == nullptr || TakeOver(file.number, *replaced)) && Synchronize(file.number);
}

/// Goes through the names in a folder without memory of its own, which opendir would ask for.
/// Returns whether all were read.
template <class Visit>
bool ForEachEntry(int folder, const Visit& visit) {
    alignas(dirent64) std::array<char, 4096> block;
    ssize_t size = 0;
    while ((size = getdents64(folder, block.data(), block.size())) > 0) {
        for (const char* next = block.data(); next < block.data() + size;) {
            const auto* const entry = reinterpret_cast<const dirent64*>(next);
            if (entry->d_name != std::string_view(".") && entry->d_name != std::string_view("..")) {
                visit(entry->d_name);
            }
            next += entry->d_reclen;
        }
    }
    return size == 0;
}

/// Enters a folder that was just made, unless it is another one by now.
std::string Enter(const std::filesystem::path& folder) {
    const Descriptor made(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status {};
    if (made.number < 0 || fstat(made.number, &status) != 0) {
        return std::strerror(errno);
    }
    fchmod(made.number, S_IRWXU);  // if it is another of this user's, which all may write to
    bool isNew = status.st_uid == geteuid();
    if (!ForEachEntry(made.number, [&isNew](const char* /*name*/) { isNew = false; })) {
        return std::strerror(errno);
    }
    if (!isNew) {
        return "it is not this user's own and empty";
    }
    return fchdir(made.number) == 0 ? "" : std::strerror(errno);
}

/// Not every file system can rename without replacing. A second link never replaces a file; where a
/// file system has none either, the place is looked at first.
bool Rename(int folder, const char* from, const char* to, bool mayReplace) {
    if (mayReplace) {
        return renameat(folder, from, folder, to) == 0;
    }
    if (renameat2(folder, from, folder, to, RENAME_NOREPLACE) == 0) {
        return true;
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return false;
    }
    if (linkat(folder, from, folder, to, 0) == 0) {
        unlinkat(folder, from, 0);
        return true;
    }
    const bool hasLinks = errno != EPERM && errno != ENOTSUP && errno != ENOSYS;
    struct stat there {};
    if (!hasLinks && fstatat(folder, to, &there, AT_SYMLINK_NOFOLLOW) == 0) {
        errno = EEXIST;
        return false;
    }
    return !hasLinks && renameat(folder, from, folder, to) == 0;
}

/// Looked at as late as can be: to bring the bytes to the disk has taken its time.
bool MayReplace(int folder, const char* name, const Replaceable& replaceable) {
    struct stat there {};
    if (!replaceable.any && fstatat(folder, name, &there, AT_SYMLINK_NOFOLLOW) == 0 &&
        replaceable.only != IdOf(there)) {
        errno = EEXIST;
        return false;
    }
    return true;
}

}  // namespace

std::string MachineMark() {
    std::array<char, 256> name{};
    gethostname(name.data(), name.size() - 1);
    // Containers may share a name and a folder, but not the numbers of processes.
    std::error_code unknown;
    const auto numbers = std::filesystem::read_symlink("/proc/self/ns/pid", unknown);
    std::array<char, 2 * sizeof(std::size_t) + 1> digits{};
    std::snprintf(digits.data(), digits.size(), "%08zx",
                  std::hash<std::string>{}(name.data() + numbers.string()) & 0xFFFFFFFFU);
    return digits.data();
}

unsigned long ProcessNumber() {
    return static_cast<unsigned long>(getpid());
}

std::uint64_t RandomNumber() {
    // The standard library would ask the processor what it can do first, which takes long on
    // virtual machines.
    std::uint64_t number = 0;
    if (getentropy(&number, sizeof number) != 0) {
        FailFor(errno, {}, "cannot get random numbers from the system");
    }
    return number;
}

bool IsRunning(unsigned long process) {
    return kill(static_cast<pid_t>(process), 0) == 0 || errno != ESRCH;
}

bool IsOwn(const std::filesystem::path& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 && status.st_uid == geteuid();
}

Link LookAtLink(const std::filesystem::path& path) {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) {
        return {};
    }
    // Opened itself: another one could take its place before it is read.
    const Descriptor link(open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    std::array<char, PATH_MAX> target{};
    const ssize_t length = link.number >= 0 && fstat(link.number, &status) == 0
                               ? readlinkat(link.number, "", target.data(), target.size())
                               : -1;
    if (length < 0) {
        return {true, false, {}, LastError()};
    }
    if (status.st_uid != geteuid() && status.st_uid != 0) {
        return {true, false, {}};
    }
    return {true, true, std::string(target.data(), static_cast<std::size_t>(length))};
}

std::error_code CheckWritable(const std::filesystem::path& path) {
    const bool isWritable = faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
    return isWritable ? std::error_code() : LastError();
}

std::error_code AddNamesIn(const std::filesystem::path& folder, std::string_view start,
                           std::vector<std::string>& names) {
    const OpenFolder entries(opendir(folder.c_str()), closedir);
    if (!entries) {
        return LastError();
    }
    const auto next = [&entries] {
        errno = 0;  // readdir leaves it so at the end
        return readdir(entries.get());
    };
    while (const dirent* const entry = next()) {
        const std::string_view name = entry->d_name;
        if (name.starts_with(start) && name != "." && name != "..") {
            names.emplace_back(name);
        }
    }
    return LastError();
}

std::error_code ReadStart(const std::filesystem::path& file, std::size_t enough, std::string& bytes,
                          FileId* id) {
    const Descriptor opened(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (opened.number < 0 || (id != nullptr && fstat(opened.number, &status) != 0)) {
        return LastError();
    }
    if (id != nullptr) {
        *id = IdOf(status);
    }
    std::array<char, 4096> block{};
    while (bytes.size() < enough) {
        const ssize_t size = read(opened.number, block.data(), block.size());
        if (size < 0 && (errno != EINTR || IsInterrupted())) {
            return LastError();
        }
        if (size == 0) {
            break;
        }
        bytes.append(block.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }
    return {};
}

int NextFileNumber() {
    const Descriptor next(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0));
    return next.number;
}

bool IsReadToItsEnd(int number, const std::filesystem::path& file) {
    struct stat there {};
    struct stat opened {};
    return number < 0 ||
           (stat(file.c_str(), &there) == 0 && fstat(number, &opened) == 0 &&
            IdOf(there) == IdOf(opened) && lseek(number, 0, SEEK_CUR) >= opened.st_size);
}

bool IsSafeFromOthers(const std::filesystem::path& folder) {
    struct stat status {};
    const bool isThere = stat(folder.c_str(), &status) == 0;
    const bool mayOthersWrite = (status.st_mode & (S_IWGRP | S_IWOTH)) != 0;
    return isThere && (status.st_uid == geteuid() || status.st_uid == 0) &&
           (!mayOthersWrite || (status.st_mode & S_ISVTX) != 0);
}

std::string EnterNewFolder(const std::filesystem::path& folder) {
    if (mkdir(folder.c_str(), S_IRWXU) != 0) {
        return std::strerror(errno);
    }
    std::string reason = Enter(folder);
    if (!reason.empty()) {
        rmdir(folder.c_str());
    }
    return reason;
}

void RemoveFilesHere() {
    const Descriptor folder(open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ForEachEntry(folder.number, [](const char* name) { unlink(name); });
}

PutResult PutFile(const std::filesystem::path& file, const std::string& temporaryName,
                  const std::string& bytes, const Replaceable& replaceable) {
    const Descriptor folder(OpenToWriteIn(file.parent_path()));
    if (folder.number < 0) {
        return {false, false, LastError()};
    }
    const std::string name = file.filename().string();
    Replaced old;
    const bool isThere =
        fstatat(folder.number, name.c_str(), &old.status, AT_SYMLINK_NOFOLLOW) == 0;
    if (isThere) {
        ReadRules(file, old);
    }
    const bool isMoved =
        Fill(folder.number, temporaryName.c_str(), isThere ? &old : nullptr, bytes) &&
        MayReplace(folder.number, name.c_str(), replaceable) &&
        Rename(folder.number, temporaryName.c_str(), name.c_str(), isThere);
    if (!isMoved) {
        const std::error_code error = LastError();
        unlinkat(folder.number, temporaryName.c_str(), 0);
        return {false, error == std::errc::file_exists, error};
    }
    // Not every file system can bring a folder to the disk.
    const bool isOnDisk = Synchronize(folder.number) || errno == EINVAL || errno == EBADF;
    return {true, false, isOnDisk ? std::error_code() : LastError()};
}

}  // namespace host
