#include "commands/Arguments.h"

#include <CLI/CLI.hpp>

namespace host {

std::vector<std::string> FlagsOf(const CLI::App& commandLine) {
    std::vector<std::string> flags;
    for (const CLI::Option* option : commandLine.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            flags.push_back("--" + name);
        }
    }
    return flags;
}

void Arguments::Word(const char* name, std::string& word, const char* help) {
    commandLine_.add_option(name, word, help)->required();
}

void Arguments::Words(const char* name, std::vector<std::string>& words, const char* help) {
    commandLine_.add_option(name, words, help)->required();
}

void Arguments::WordUnless(const bool& canDoWithout, const char* name,
                           std::vector<std::string>& words, const char* help) {
    commandLine_.add_option(name, words, help)->expected(1);
    commandLine_.parse_complete_callback([&canDoWithout, &words, name] {
        if (words.empty() && !canDoWithout) {
            throw CLI::RequiredError(name);
        }
    });
}

void Arguments::Value(const char* flags, const char* placeholder, std::optional<std::string>& value,
                      const char* help) {
    commandLine_.add_option(flags, value, help)->type_name(placeholder);
}

void Arguments::Value(const char* flags, const char* placeholder,
                      std::optional<std::int32_t>& value, const char* help) {
    commandLine_.add_option(flags, value, help)->type_name(placeholder);
}

void Arguments::Values(const char* flag, const char* placeholder, std::vector<std::string>& values,
                       const char* help) {
    commandLine_.add_option(flag, values, help)->type_name(placeholder)->allow_extra_args(false);
}

void Arguments::Flag(const char* flag, bool& isOn, const char* help, const char* notWith) {
    CLI::Option* const option = commandLine_.add_flag(flag, isOn, help);
    if (notWith != nullptr) {
        option->excludes(commandLine_.get_option(notWith));
    }
}

}  // namespace host
