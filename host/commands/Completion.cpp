#include "commands/Completion.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "commands/Arguments.h"
#include "recipes/Names.h"

namespace host {

namespace {

using Words = std::vector<std::string>;

/// Values by their placeholder in the help.
Words ValuesFor(const std::string& placeholder) {
    if (placeholder == "S") {
        return WordsOf(solverKeywords);
    }
    if (placeholder == "M") {
        return WordsOf(meshKinds);
    }
    if (placeholder == "ITEM=CHOICE") {
        Words items = WordsOf(shortNames);
        for (std::string& item : items) {
            item += '=';
        }
        return items;
    }
    if (placeholder == "RECIPE") {
        return {":recipes"};
    }
    if (placeholder == "NAME" || placeholder == "NUMBER") {
        return {};
    }
    return {placeholder.ends_with("FOLDER") ? ":folders" : ":files"};
}

Words CommandsOf(const CLI::App& app) {
    Words names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        names.push_back(command->get_name());
    }
    return names;
}

/// What the option takes that a word names; null when it is none or a flag.
const CLI::Option* OptionWithValue(const CLI::App& command, const std::string& word) {
    const CLI::Option* option = word.starts_with('-') ? command.get_option_no_throw(word) : nullptr;
    return option != nullptr && option->get_expected_max() > 0 ? option : nullptr;
}

/// The values of the command's arguments: recipes, a folder, files.
Words ValuesOfArguments(const CLI::App& command) {
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_positional()) {
            return ValuesFor(option->get_name(true));
        }
    }
    return {};
}

/// Some shells hand over "--solver=A" as three words, others as one. Returns whether the last word
/// is a choice for an item, which the target decides on.
bool SplitAtEquals(Words& words) {
    const std::size_t equals = words.back().find('=');
    if (words.back() == "=") {
        words.back() = "";
        return words.size() > 1 && !words[words.size() - 2].starts_with('-');
    }
    if (words.size() > 2 && words[words.size() - 2] == "=") {
        words.erase(words.end() - 2);
        return !words[words.size() - 2].starts_with('-');
    }
    if (words.back().starts_with("--") && equals != std::string::npos) {
        const std::string value = words.back().substr(equals + 1);
        words.back().resize(equals);
        words.push_back(value);
    }
    return false;
}

Words AllAfter(const CLI::App& app, const Words& words, std::string_view last) {
    const Words known = CommandsOf(app);
    const auto name =
        std::ranges::find_first_of(words.begin(), words.end() - 1, known.begin(), known.end());
    const bool hasCommand = name != words.end() - 1;
    const CLI::App& command = hasCommand ? *app.get_subcommand(*name) : app;
    const std::string before = words.size() > 1 ? words[words.size() - 2] : "";
    if (const CLI::Option* option = OptionWithValue(command, before)) {
        return ValuesFor(option->get_type_name());
    }
    if (last.starts_with('-')) {
        Words flags = FlagsOf(command);
        std::ranges::copy(hasCommand ? FlagsOf(app) : Words(), std::back_inserter(flags));
        return flags;
    }
    return hasCommand ? ValuesOfArguments(command) : known;
}

}  // namespace

Words Completions(const CLI::App& app, Words words) {
    if (words.empty()) {
        words.emplace_back();
    }
    const std::size_t count = words.size();
    if (SplitAtEquals(words)) {
        return {};
    }
    const std::string front = words.size() > count ? words[count - 1] + "=" : "";
    Words found;
    for (const std::string& word : AllAfter(app, words, words.back())) {
        if (word.starts_with(words.back()) || word.starts_with(':')) {
            found.push_back((word.starts_with(':') ? "" : front) + word);
        }
    }
    std::ranges::sort(found);
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

}  // namespace host
