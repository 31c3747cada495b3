// What a command takes on the command line, and where it goes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// Its headers take long to compile, so the commands do without them.
namespace CLI {
class App;
}

namespace host {

/// All long flags: "--json".
std::vector<std::string> FlagsOf(const CLI::App& commandLine);

/// A command adds what it takes; the values stand in the command's variables once the command line
/// is read, and must live until then.
class Arguments {
public:
    explicit Arguments(CLI::App& commandLine) : commandLine_(commandLine) {}

    // Words without a flag in front, which must be there
    void Word(const char* name, std::string& word, const char* help);
    void Words(const char* name, std::vector<std::string>& words, const char* help);
    /// A single word, which may be missing when `canDoWithout` has become true.
    void WordUnless(const bool& canDoWithout, const char* name, std::vector<std::string>& words,
                    const char* help);

    // Flags with a value
    void Value(const char* flags, const char* placeholder, std::optional<std::string>& value,
               const char* help);
    void Value(const char* flags, const char* placeholder, std::optional<std::int32_t>& value,
               const char* help);
    /// A flag that may come several times, each with one value.
    void Values(const char* flag, const char* placeholder, std::vector<std::string>& values,
                const char* help);

    /// @param notWith a flag added before that contradicts this one, or null
    void Flag(const char* flag, bool& isOn, const char* help, const char* notWith = nullptr);

private:
    CLI::App& commandLine_;
};

}  // namespace host
