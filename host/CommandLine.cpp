#include "CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

namespace host {

namespace {

constexpr const char* exitCodes =
    "Exit codes:\n"
    "  0  done\n"
    "  1  something asked for is not available, or a check found faults\n"
    "  2  wrong usage, or a recipe that cannot be read\n"
    "  3  file or folder trouble\n\n"
    "Example:\n"
    "  zorbi2 init Run02 && zorbi2 items Cover02.toml && zorbi2 write Cover02.toml";

CLI::App& AddCommand(CLI::App& app, const char* name, const char* purpose, const char* example) {
    return *app.add_subcommand(name, purpose)
                ->footer(
                    std::string("--json, --trace, --quiet: see zorbi2 --help\n\nExample:\n  ") +
                    example)
                ->fallthrough();  // --json and its like may stand behind the command
}

void AddInit(CLI::App& app, Options& options) {
    CLI::App& command = AddCommand(app, "init", "Write a recipe to start from",
                                   "zorbi2 init /runs/cover/Run02 -o cover.toml");
    command.add_option("RUN_FOLDER", options.runFolder, "Folder with the run's files")->required();
    command.add_option("-o,--output", options.recipeFile, "Recipe to write, else NAME.toml")
        ->type_name("FILE");
    command.add_flag("--force", options.force, "Replace an existing recipe");
}

void AddTargetOptions(CLI::App& command, Options& options) {
    command.add_option("--solver", options.solver, "Solver instead of the recipe's")
        ->type_name("S");
    command.add_option("--mesh", options.mesh, "Mesh kind instead of the recipe's")->type_name("M");
    command.add_option("--set", options.choices, "Choices instead of the recipe's")
        ->type_name("ITEM=CHOICE")
        ->allow_extra_args(false);
}

void AddItems(CLI::App& app, Options& options) {
    CLI::App& command = AddCommand(app, "items", "Show what the desktop dialog shows for a recipe",
                                   "zorbi2 items cover.toml --solver ABAQUS --mesh deformed");
    command.add_option("RECIPE", options.files, "Recipe (TOML)")->required()->expected(1);
    CLI::Option* matrix = command.add_flag("--matrix", options.matrix,
                                           "Show items against solvers and mesh kinds instead");
    command
        .add_flag("--solvers", options.solvers, "Show solvers, mesh kinds, element types instead")
        ->excludes(matrix);
    AddTargetOptions(command, options);
}

void AddWrite(CLI::App& app, Options& options) {
    CLI::App& command = AddCommand(app, "write", "Write the control parameter file of each recipe",
                                   "zorbi2 write *.toml --set thermal-stress=on --out handover");
    command.add_option("RECIPE", options.files, "Recipes (TOML)")->required();
    AddTargetOptions(command, options);
    command.add_option("--out", options.outFolder, "Folder for the files")->type_name("FOLDER");
    command.add_flag("--dry-run", options.dryRun, "Print the files instead of writing them");
}

void AddCheck(CLI::App& app, Options& options) {
    CLI::App& command = AddCommand(app, "check", "Read control parameter files back",
                                   "zorbi2 check --show handover/*.cmi");
    command.add_option("FILE", options.files, "Control parameter files")->required();
    command.add_flag("--show", options.show, "Tell in words what each file asks for");
}

/// "--set A=1 B=2" as "--set A=1 --set B=2", which leaves recipes behind it alone.
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

void AddGeneralOptions(CLI::App& app, Options& options) {
    app.add_flag("--json", options.json, "Print one JSON document instead of text");
    app.add_flag("--trace", options.trace, "Print the engine's trace lines on standard error");
    app.add_flag("--quiet", options.quiet, "Print problems and what was asked for, no more");
    app.set_version_flag("--version", "zorbi2 " ZORBI2_VERSION);
}

}  // namespace

std::optional<ExitCode> ParseCommandLine(std::vector<std::string> arguments, Options& options) {
    CLI::App app("Prepares the hand-over of molding results to structural solvers.", "zorbi2");
    app.allow_windows_style_options(false);  // a path may start with a slash
    app.footer(exitCodes);
    AddGeneralOptions(app, options);
    AddInit(app, options);
    AddItems(app, options);
    AddWrite(app, options);
    AddCheck(app, options);
    try {
        arguments = WithSingleChoices(arguments);
        std::ranges::reverse(arguments);  // as CLI11 wants them
        app.parse(std::move(arguments));
        if (app.get_subcommands().empty()) {
            throw CLI::RequiredError("A command: init, items, write or check");
        }
    } catch (const CLI::Success& wish) {  // help or version
        app.exit(wish, std::cout, std::cerr);
        return ExitCode::done;
    } catch (const CLI::ParseError& error) {
        const auto commands = app.get_subcommands();
        const std::string command = commands.empty() ? "" : commands.front()->get_name() + " ";
        std::cerr << "zorbi2: " << error.what() << "\nzorbi2 " << command
                  << "--help tells how it is used\n";
        return ExitCode::badUsage;
    }
    options.command = app.get_subcommands().front()->get_name();
    return std::nullopt;
}

}  // namespace host
