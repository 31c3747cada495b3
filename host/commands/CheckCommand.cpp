// The command "check": reads control parameter files from disk and reports their faults.
#include <memory>
#include <optional>

#include "commands/Commands.h"
#include "commands/Surroundings.h"
#include "commands/check/Against.h"
#include "commands/check/CheckedFile.h"
#include "commands/check/InWords.h"
#include "console/Report.h"
#include "problems/VisibleText.h"
#include "system/Signals.h"

namespace host {

namespace {

struct CheckOptions {
    std::vector<std::string> files;
    std::optional<std::string> recipe;  ///< that they are compared with
    bool show = false;
};

void PrintWords(const ControlFile& file, Terminal& terminal) {
    constexpr std::size_t column = 21;
    const Json lines = InWords(file);
    for (const auto& [label, value] : lines.items()) {
        const auto words = value.get<std::string>();
        const bool isPath = words.starts_with('"');
        terminal.out << Padded("  " + label + ":", column)
                     << (isPath ? words : Wrapped(words, terminal.columns, column, column)) << '\n';
    }
}

/// Holds a file against what a recipe would write.
void Compare(CheckedFile& file, const std::string& wanted) {
    AddTo(file.problems, DifferencesFrom(wanted, file.name, *file.text));
    SortByLine(file.problems);
}

/// Tells of a file that is fine.
void ShowFile(const CheckedFile& file, bool show, Terminal& terminal) {
    const std::size_t warnings = file.problems.size();
    (show ? terminal.out : terminal.news)
        << Visible(file.name) << ": no errors"
        << (warnings == 0   ? ""
            : warnings == 1 ? ", 1 warning"
                            : ", " + std::to_string(warnings) + " warnings")
        << '\n';
    if (show) {
        PrintWords(file.values, terminal);
    }
}

ExitCode RunCheck(const CheckOptions& options, Terminal& terminal) {
    Surroundings host(terminal);
    OfferCheck offers;
    std::optional<std::string> wanted;
    if (options.recipe) {
        wanted = TextOfRecipe(*options.recipe, host);
    }
    Problems problems;
    Json list = Json::array();
    std::size_t fine = 0;
    for (const std::string& name : options.files) {
        if (IsInterrupted()) {
            problems.emplace_back(Place{}, "interrupted before " + name, ExitCode::fileTrouble);
            break;
        }
        CheckedFile file = CheckFile(name, host, offers);
        if (wanted && file.text) {
            Compare(file, *wanted);
        }
        const bool isFine = !HasErrors(file.problems);
        if (isFine) {
            ShowFile(file, options.show, terminal);
            ++fine;
        }
        list.push_back(JsonOf(file, isFine));
        AddTo(problems, file.problems);
    }
    const ExitCode code = Report(problems, terminal.options, {{"files", list}});
    if (options.files.size() > 1) {
        terminal.news << fine << " of " << options.files.size() << " files without errors\n";
    }
    return code;
}

}  // namespace

RunFunction AddCheck(Arguments& arguments) {
    const auto options = std::make_shared<CheckOptions>();
    arguments.Words("FILE", options->files, "Control parameter files; - is standard input");
    arguments.Value("--against", "RECIPE", options->recipe,
                    "Compare each line with what RECIPE would write");
    arguments.Flag("--show", options->show, "Say in words what each file asks for");
    return [options](Terminal& terminal) { return RunCheck(*options, terminal); };
}

}  // namespace host
