// The command "write". A control file is written beside its place, read back and compared with
// what was asked for; only then does it take the place of the old one.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fstream>
#include <functional>
#include <map>
#include <memory>

#include "commands/Commands.h"
#include "commands/RecipeCommand.h"
#include "console/Report.h"
#include "handover/Engine.h"
#include "handover/LoadRecipe.h"
#include "handover/Session.h"
#include "system/HostPlatform.h"

namespace host {

namespace {

namespace fs = std::filesystem;

struct WriteOptions {
    std::vector<std::string> recipes;
    Overrides overrides;
    bool dryRun = false;
};

volatile std::sig_atomic_t isInterrupted = 0;

/// One recipe on its way to its control file.
struct Job {
    Recipe recipe;
    fs::path controlFile;
    Problems problems;
    std::string text;  ///< of the file
};

/// Removed at the end of the object's life, unless it has been moved away.
struct TemporaryFile {
    ~TemporaryFile() {
        std::error_code ignored;
        fs::remove(path, ignored);
    }
    fs::path path;
};

[[noreturn]] void FailToWrite(const Job& job, const std::string& reason) {
    Fail({}, Utf8Of(job.controlFile) + ": cannot be written: " + reason, ExitCode::fileTrouble);
}

/// Tries what the engine did not manage, for the system's reason; empty when it goes well.
std::string ReasonAgainstWriting(const fs::path& file) {
    constexpr std::size_t moreThanAControlFile = 65536;
    errno = 0;
    std::ofstream stream(file, std::ios::binary);
    stream << std::string(moreThanAControlFile, ' ') << std::flush;
    return stream ? std::string() : std::strerror(errno);
}

/// What the text of the file says differently from what was asked for, if anything.
std::string DifferenceFrom(const ControlFile& asked, const std::string& text) {
    ControlFile found;
    try {
        found = ReadControlFile({}, text);
    } catch (const Failure& failure) {
        const Problem& fault = failure.List().front();
        return "line " + std::to_string(fault.place.line) + ": " + fault.message;
    }
    for (const auto& [key, value] : asked) {
        const auto line = found.find(key);
        if (line == found.end() || line->second != value) {
            return key + " is " + (line == found.end() ? "missing" : Quoted(line->second)) +
                   ", but should be " + Quoted(value);
        }
    }
    for (const auto& [key, value] : found) {
        if (!asked.contains(key)) {
            return key + " is there, but should not be";
        }
    }
    return {};
}

/// Reads the file back. Throws unless it says what was asked for.
void ReadBack(Job& job, const fs::path& file, const ControlFile& asked) {
    std::error_code missing;
    const Place place{{}, 0, 0, Utf8Of(job.controlFile)};
    job.text = fs::exists(file, missing) ? ReadFile(file, place) : std::string();
    const std::string difference = DifferenceFrom(asked, FromEngineText(job.text));
    if (!difference.empty()) {
        const std::string reason = ReasonAgainstWriting(file);
        FailToWrite(job, reason.empty() ? "not what was asked for: " + difference : reason);
    }
}

void WriteControlFile(const Surroundings& host, bool isDryRun, Job& job) {
    const Recipe& recipe = job.recipe;
    if (isInterrupted != 0) {
        Fail({}, "interrupted before its turn", ExitCode::fileTrouble);
    }
    CheckFolder(recipe.project.projectFolder, recipe.PlaceOf("project.folder"));
    Session session(recipe);
    Problems problems = session.ApplyRecipe();
    if (host.terminal.options.strict) {
        MakeStrict(problems);
    }
    ThrowErrors(problems);
    job.problems.insert(job.problems.end(), problems.begin(), problems.end());
    SortByLine(job.problems);
    const std::string mark = "." + Utf8Of(host.scratch.Path().filename());
    const fs::path name = job.controlFile.filename() += mark;
    const fs::path folder = isDryRun ? "." : job.controlFile.parent_path();  // the scratch folder
    const TemporaryFile file{folder / name};
    const ControlFile asked = session.Write(folder, recipe.controlExtension + mark);
    ReadBack(job, file.path, asked);
    std::error_code error;
    if (!isDryRun) {
        fs::rename(file.path, job.controlFile, error);
    }
    if (error) {
        FailToWrite(job, error.message());
    }
}

/// Does one step of a job, unless an earlier one failed.
void Attempt(Job& job, const GeneralOptions& options, const std::function<void()>& step) {
    try {
        if (!HasErrors(job.problems)) {
            step();
        }
    } catch (const std::exception& error) {
        const Problems problems = ProblemsOf(error);
        job.problems.insert(job.problems.end(), problems.begin(), problems.end());
    }
    for (Problem& problem : job.problems) {
        problem.place.file = job.recipe.file;
    }
    if (options.strict) {
        MakeStrict(job.problems);
    }
}

std::vector<Job> ReadJobs(Surroundings& host, const WriteOptions& options) {
    std::vector<Job> jobs;
    for (const std::string& file : options.recipes) {
        Job& job = jobs.emplace_back();
        job.recipe.file = file;
        Attempt(job, host.terminal.options, [&] {
            job.recipe = LoadRecipe(file, options.overrides, host.names, host.scratch.Start(),
                                    Purpose::writing);
            job.problems = std::exchange(job.recipe.problems, {});
            job.controlFile = SetControlFile(host.bareEngine, job.recipe, job.recipe.controlFolder,
                                             job.recipe.controlExtension);
        });
    }
    return jobs;
}

void RefuseSameFile(std::vector<Job>& jobs) {
    std::map<std::string, std::vector<Job*>> writers;
    for (Job& job : jobs) {
        if (!HasErrors(job.problems)) {
            writers[FileIdentity(job.controlFile)].push_back(&job);
        }
    }
    for (const auto& [file, same] : writers) {
        for (std::size_t i = 0; same.size() > 1 && i < same.size(); ++i) {
            const Job& other = *same[i == 0 ? 1 : 0];
            same[i]->problems.emplace_back(
                Place{same[i]->recipe.file},
                Utf8Of(other.controlFile) + ": " + other.recipe.file + " would write it too",
                ExitCode::badUsage);
        }
    }
}

/// The engine keeps the shot file of each run open until the process ends.
void CheckOpenFileLimit(std::size_t recipes) {
    const std::size_t possible = RaiseOpenFileLimit();
    if (recipes > possible) {
        Fail({},
             std::to_string(recipes) +
                 " recipes are too many for one call, because each leaves a file open; nothing "
                 "was written; at most " +
                 std::to_string(possible) + " are possible",
             ExitCode::fileTrouble);
    }
}

/// A line for each job, on a terminal one for all of them.
void Show(const Job& job, const std::string& counter, const WriteOptions& options,
          Terminal& terminal) {
    const bool isDone = !HasErrors(job.problems);
    const bool isSingle = options.recipes.size() == 1;
    const std::string file = Utf8Of(job.controlFile);
    if (isDone && options.dryRun) {
        terminal.out << (isSingle ? "" : "==> " + file + " <==\n") << job.text;
    } else if (terminal.isTerminal && !isSingle && !options.dryRun) {
        terminal.news << "\r[" << counter << "]" << std::flush;
    } else if (isDone) {
        terminal.news << "wrote    " << file << std::endl;
    } else if (!isSingle) {
        terminal.news << "failed   "
                      << InOneLine(*std::ranges::find(job.problems, false, &Problem::isWarning))
                      << std::endl;
    }
}

Json JsonOf(const Job& job, bool isDryRun) {
    const bool isDone = !HasErrors(job.problems);
    Json entry = {{"recipe", job.recipe.file},
                  {"controlFile", Utf8Of(job.controlFile)},
                  {"status", !isDone    ? "failed"
                             : isDryRun ? "shown"
                                        : "written"},
                  {"problems", JsonOf(job.problems)}};
    if (isDone && isDryRun) {
        entry["text"] = FromEngineText(job.text);
    }
    return entry;
}

/// What became of all jobs.
struct Outcome {
    std::size_t done = 0;
    Problems problems;
    Json list = Json::array();
};

/// Writes the jobs one after the other. Each is dropped then: thousands of them need not stay.
Outcome WriteJobs(const Surroundings& host, const WriteOptions& options, std::vector<Job>& jobs) {
    Outcome outcome;
    const std::string total = "/" + std::to_string(jobs.size());
    std::size_t number = 0;
    for (Job& slot : jobs) {
        Job job = std::exchange(slot, {});
        Attempt(job, host.terminal.options, [&] { WriteControlFile(host, options.dryRun, job); });
        Show(job, std::to_string(++number) + total, options, host.terminal);
        outcome.done += HasErrors(job.problems) ? 0 : 1;
        outcome.problems.insert(outcome.problems.end(), job.problems.begin(), job.problems.end());
        if (host.terminal.options.json) {
            outcome.list.push_back(JsonOf(job, options.dryRun));
        }
    }
    return outcome;
}

ExitCode RunWrite(const WriteOptions& options, Terminal& terminal) {
    Surroundings host(terminal);
    CheckOpenFileLimit(options.recipes.size());
    std::vector<Job> jobs = ReadJobs(host, options);
    RefuseSameFile(jobs);
    std::signal(SIGINT, [](int) { isInterrupted = 1; });  // the files stay whole
    std::signal(SIGTERM, [](int) { isInterrupted = 1; });
    const Outcome outcome = WriteJobs(host, options, jobs);
    if (jobs.size() > 1) {
        terminal.news << (terminal.isTerminal ? "\r\033[K" : "") << outcome.done
                      << (options.dryRun ? " shown, " : " written, ") << jobs.size() - outcome.done
                      << " failed" << std::endl;
    }
    return Report(outcome.problems, terminal.options, {{"recipes", outcome.list}});
}

}  // namespace

RunFunction AddWrite(CLI::App& commandLine) {
    const auto options = std::make_shared<WriteOptions>();
    commandLine.add_option("RECIPE", options->recipes, "Recipes (TOML)")->required();
    AddOverrides(commandLine, options->overrides);
    commandLine.add_option("--out", options->overrides.controlFolder, "Folder for the files")
        ->type_name("FOLDER");
    commandLine.add_flag("--dry-run", options->dryRun, "Print the files instead of writing them");
    return [options](Terminal& terminal) { return RunWrite(*options, terminal); };
}

}  // namespace host
