// What the host needs from the system beyond the standard library: one source per system.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace host {

/// Makes the process fit for the host: streams that take bytes as they are, failed writes as
/// errors and not as signals. Returns the command line in UTF-8, without the program's name.
std::vector<std::string> PrepareProcess(int argc, char** argv);

/// The folder that this program lies in.
std::filesystem::path ProgramFolder();

/// A path in UTF-8. On Windows, what is no Unicode in it becomes the replacement character.
std::string Utf8Of(const std::filesystem::path& path);

/// UTF-8 to the character set of the engine's texts; empty when a character does not exist there.
std::optional<std::string> ToEngineText(const std::string& utf8);
std::string FromEngineText(const std::string& text);

/// The same text for two paths of the same file, links followed.
std::string FileIdentity(const std::filesystem::path& file);

/// Raises the limit of open files as far as the system lets it. Returns how many the engine may
/// open; counting may stop at `wanted`.
std::size_t RaiseOpenFileLimit(std::size_t wanted);

/// Whether standard output takes text without waiting for its reader.
bool TakesOutput();

enum class Stream { output, errors };

/// Columns of the terminal that a standard stream goes to; 0 when it goes elsewhere.
std::size_t TerminalColumns(Stream stream);

/// From now on the engine's trace lines go to standard error.
void ShowTraceLines();

/// Keeps trace lines back as long as it lives.
class NoTraceLines {
public:
    NoTraceLines();
    ~NoTraceLines();
    NoTraceLines(const NoTraceLines&) = delete;
    NoTraceLines& operator=(const NoTraceLines&) = delete;

private:
    const bool wereShown_;
};

}  // namespace host
