#include "commands/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <iterator>

#include "commands/Arguments.h"
#include "commands/Completion.h"
#include "console/Report.h"
#include "recipes/Names.h"

namespace host {

namespace {

constexpr const char* exitCodes =
    "Exit codes:\n"
    "  0  done\n"
    "  1  something requested is not available, or a check failed\n"
    "  2  usage error, or an invalid recipe\n"
    "  3  error with a file, a folder, standard output or memory\n\n"
    "Example:\n"
    "  zorbi2 init Run02 && zorbi2 items Cover02.toml && zorbi2 write Cover02.toml";

void AddGeneralOptions(CLI::App& app, GeneralOptions& options) {
    app.add_flag("--json", options.json, "Print one JSON document instead of text");
    app.add_flag("--trace", options.trace, "Print the engine's trace lines on standard error");
    app.add_flag("--quiet", options.quiet, "Print only problems and what was asked for");
    app.add_flag("--strict", options.strict, "Treat warnings as errors");
    app.set_version_flag("--version", "zorbi2 " ZORBI2_VERSION, "Print the version and exit");
}

void AddCommand(CLI::App& app, const Command& row, CommandCall& call) {
    CLI::App& command = *app.add_subcommand(row.name, row.purpose)->group("Commands");
    command.footer(
        std::string("For --json, --trace, --quiet and --strict, see zorbi2 --help.\n\n") +
        "Example:\n  " + row.example);
    command.fallthrough();  // --json and its like may follow the command
    Arguments arguments(command);
    command.callback([&call, name = row.name, run = row.add(arguments)] {
        call.options.command = name;
        call.run = run;
    });
}

/// The commands that the words name, or all when they name none. Each takes long to make.
void AddCommands(CLI::App& app, const std::vector<std::string>& arguments, CommandCall& call) {
    const auto isNamed = [&arguments](const Command& row) {
        return std::ranges::count(arguments, row.name) > 0;
    };
    const bool namesNone = std::ranges::none_of(Commands(), isNamed);
    for (const Command& row : Commands()) {
        if (namesNone || isNamed(row)) {
            AddCommand(app, row, call);
        }
    }
}

/// "init, items, write or check".
std::string AllCommands() {
    std::string names;
    for (const Command& command : Commands()) {
        const bool isLast = &command == &Commands().back();
        names += (names.empty() ? "" : isLast ? " or " : ", ") + std::string(command.name);
    }
    return names;
}

/// "--set A=1 B=2" as "--set A=1 --set B=2": left to itself, the option would either take one
/// choice or swallow the recipes after it too.
std::vector<std::string> WithSingleChoices(const std::vector<std::string>& arguments) {
    std::vector<std::string> single;
    bool mayFollow = false;
    for (const std::string& argument : arguments) {
        const bool isChoice =
            mayFollow && !argument.starts_with('-') && argument.find('=') != std::string::npos;
        if (isChoice && single.back() != "--set") {
            single.emplace_back("--set");
        }
        single.push_back(argument);
        mayFollow = isChoice || argument.starts_with("--set");
    }
    return single;
}

/// The commands, or for a flag those of the app and of the command at hand.
std::vector<std::string> NamesLike(const std::string& word, const CLI::App& app) {
    std::vector<std::string> names;
    if (!word.starts_with('-')) {
        std::ranges::transform(Commands(), std::back_inserter(names), &Command::name);
        return names;
    }
    names = FlagsOf(app);
    for (const CLI::App* command : app.get_subcommands()) {
        std::ranges::copy(FlagsOf(*command), std::back_inserter(names));
    }
    return names;
}

/// What the user may have meant by a word that is no command or option.
std::string Suggestion(const CLI::App& app) {
    const std::vector<std::string> unknown = app.remaining(true);
    const bool isCommand = app.get_subcommands().empty();
    if (unknown.empty() || (!unknown[0].starts_with('-') && !isCommand)) {
        return {};
    }
    return "; closest matches: " + Nearest(unknown[0], NamesLike(unknown[0], app));
}

/// A flag that is none, beside another error: it may be the cause, or have taken a word's place.
std::string UnknownFlag(const CLI::App& app) {
    const std::vector<std::string> unknown = app.remaining(true);
    const bool isFlag = !unknown.empty() && unknown[0].starts_with('-');
    return isFlag ? "; unknown option " + unknown[0] + Suggestion(app) : std::string();
}

/// In the order in which they were given, other than the library tells them.
std::string UnknownWords(const CLI::App& app) {
    std::string words = "unexpected:";
    for (const std::string& word : app.remaining(true)) {
        words += " " + word;
    }
    return words;
}

ExitCode RefuseUsage(const CLI::App& app, const CLI::ParseError& error) {
    const auto commands = app.get_subcommands();
    const std::string command = commands.empty() ? "" : commands.front()->get_name() + " ";
    const bool isUnknown = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
    const std::string text =
        isUnknown ? UnknownWords(app) + Suggestion(app) : error.what() + UnknownFlag(app);
    Tell({{}, text, ExitCode::badUsage});
    std::cerr << "for usage, run zorbi2 " << command << "--help\n";
    return ExitCode::badUsage;
}

}  // namespace

std::optional<ExitCode> ParseCommandLine(std::vector<std::string> arguments, CommandCall& call) {
    CLI::App app("Prepares the hand-over of molding results to structural solvers.", "zorbi2");
    app.allow_windows_style_options(false);  // a path may start with a slash
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.footer(exitCodes);
    AddGeneralOptions(app, call.options);
    AddCommands(app, arguments, call);
    if (!arguments.empty() && arguments[0] == "complete") {  // not in the help: for shells
        for (const std::string& word : Completions(app, {arguments.begin() + 1, arguments.end()})) {
            std::cout << word << '\n';
        }
        return ExitCode::done;
    }
    if (!arguments.empty() && arguments[0] == "help") {  // what many type first
        arguments.erase(arguments.begin());
        arguments.emplace_back("--help");
    }
    try {
        if (const auto empty = std::ranges::find(arguments, ""); empty != arguments.end()) {
            const auto number = std::to_string(empty - arguments.begin() + 1);
            throw CLI::ParseError(
                "argument " + number + " is empty, perhaps from an unset variable",
                CLI::ExitCodes::ArgumentMismatch);
        }
        arguments = WithSingleChoices(arguments);
        std::ranges::reverse(arguments);  // as CLI11 wants them
        app.parse(std::move(arguments));
        if (app.get_subcommands().empty()) {
            throw CLI::ParseError("a command is required: " + AllCommands(),
                                  CLI::ExitCodes::RequiredError);
        }
    } catch (const CLI::Success& wish) {  // help or version
        app.exit(wish, std::cout, std::cerr);
        return ExitCode::done;
    } catch (const CLI::ParseError& error) {
        return RefuseUsage(app, error);
    }
    return std::nullopt;
}

}  // namespace host
