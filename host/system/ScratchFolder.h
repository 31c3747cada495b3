// The folder in which the engine works.
#pragma once

#include <filesystem>

namespace host {

/// A temporary folder that only this user can enter, and that is the current one while the host
/// runs: the engine writes its file there, where nobody can put a link in its way, and leaves two
/// debug files in the current folder, with which a batch must not litter the user's. Removed with
/// the object, also when a signal came.
class ScratchFolder {
public:
    /// Throws a Failure when no folder can be made.
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    /// The user's current folder, from which paths of the command line start.
    const std::filesystem::path& Start() const { return start_; }

    /// What the destructor does, for a process that ends without: no object is destroyed when the
    /// standard library ends it.
    static void RemoveCurrent();

private:
    void Remove() const;

    std::filesystem::path start_;
    std::filesystem::path path_;
};

}  // namespace host
