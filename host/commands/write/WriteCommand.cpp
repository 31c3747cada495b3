// The command "write". The engine writes a control file in the scratch folder; it is read back and
// compared with what was asked for, and only then takes the place of the old one.
#include <algorithm>
#include <memory>
#include <set>
#include <utility>

#include "commands/Commands.h"
#include "commands/write/Job.h"
#include "console/Report.h"
#include "problems/VisibleText.h"
#include "system/HostPlatform.h"
#include "system/SafeFile.h"
#include "system/Signals.h"

namespace host {

namespace {

namespace fs = std::filesystem;

struct WriteOptions {
    std::vector<std::string> recipes;
    Overrides overrides;
    bool dryRun = false;
    bool diff = false;
    bool check = false;
    bool keep = false;
    bool force = false;

    bool WritesNothing() const { return dryRun || diff || check; }
    Replaces WhatItReplaces() const {
        return keep ? Replaces::nothing : force ? Replaces::anyFile : Replaces::controlFiles;
    }
};

/// What a job is that went well: "written".
std::string NameOfDone(const WriteOptions& options) {
    return options.dryRun ? "shown" : options.WritesNothing() ? "compared" : "written";
}

/// The jobs of a call, one after the other.
class Writer {
public:
    Writer(const WriteOptions& options, Terminal& terminal) : options_(options), host_(terminal) {}

    ExitCode Run();

private:
    void WriteControlFile(Job& job);
    std::optional<FilePlace> LookForPlace(Job& job);
    void WriteJobs();
    void Show(const Job& job);
    void ShowSummary();

    const WriteOptions& options_;
    Surroundings host_;
    std::vector<Job> jobs_;
    FilesRead filesRead_;
    std::set<fs::path> cleanFolders_;  ///< of temporary files whose makers are gone
    std::size_t tried_ = 0;
    std::size_t done_ = 0;
    bool wouldChange_ = false;
    Problems problems_;
    Json list_ = Json::array();
};

/// Where the text goes, if it is to be written.
std::optional<FilePlace> Writer::LookForPlace(Job& job) {
    const ControlFilePlace there =
        LookAtControlFile(job.controlFile, job.recipe, filesRead_.contains(job.controlFileIdentity),
                          options_.WhatItReplaces());
    job.change = ChangeTo(there, job.text);
    if (options_.diff && job.WouldChange()) {
        job.difference = DifferenceTo(there, job);
    }
    job.isInTime = !IsInterrupted();  // a signal may have ended a call of the engine
    if (!job.isInTime || !job.WouldChange() || options_.WritesNothing()) {
        return std::nullopt;
    }
    const fs::path folder = there.file.parent_path();
    if (cleanFolders_.insert(folder).second) {
        RemoveLeftOvers(folder, fs::file_type::regular);
    }
    return there;
}

void Writer::WriteControlFile(Job& job) {
    MakeText(job, host_.terminal.options);
    const std::string reason = ReplaceFile([&] { return LookForPlace(job); }, job.text);
    if (!reason.empty()) {
        FailToWrite(PlaceOf(job.controlFile), reason);
    }
}

/// A line for each file, on a terminal one for all of them. Failures are told at the end.
void Writer::Show(const Job& job) {
    Terminal& terminal = host_.terminal;
    const bool isSingle = options_.recipes.size() == 1;
    const std::string file = Visible(Utf8Of(job.controlFile));
    if (job.IsFine() && options_.dryRun) {
        terminal.out << (isSingle ? "" : "==> " + file + " <==\n") << job.text;
    } else if (job.IsFine() && options_.diff && !job.difference.empty()) {
        terminal.out << job.difference << std::flush;
    } else if (terminal.isTerminal && !isSingle && !options_.WritesNothing()) {
        terminal.news << "\r[" << tried_ << "/" << options_.recipes.size() << "]" << std::flush;
    } else if (job.IsFine()) {
        terminal.news << Padded(WordFor(job.change), sizeof "changed") << " " << file << std::endl;
    }
}

/// Writes the jobs until a signal comes. Each is dropped then: thousands of them need not stay.
void Writer::WriteJobs() {
    for (Job& slot : jobs_) {
        Job job = std::move(slot);
        if (!IsInterrupted()) {
            Attempt(job, host_.terminal.options, [&] { WriteControlFile(job); });
        }
        if (IsInterrupted() && !job.isInTime) {
            return;
        }
        ++tried_;
        Show(job);
        done_ += job.IsFine() ? 1 : 0;
        wouldChange_ = wouldChange_ || (job.IsFine() && job.WouldChange());
        AddTo(problems_, job.problems);
        if (host_.terminal.options.json) {
            list_.push_back(JsonOf(job, NameOfDone(options_), options_.dryRun, options_.diff));
        }
    }
}

/// What is done and what is not.
void Writer::ShowSummary() {
    Terminal& terminal = host_.terminal;
    const std::size_t all = options_.recipes.size();
    const std::string counts = std::to_string(done_) + " " + NameOfDone(options_) + ", " +
                               std::to_string(tried_ - done_) + " failed";
    terminal.news << (terminal.isTerminal && all > 1 ? "\r\033[K" : "");
    if (IsInterrupted()) {
        problems_.emplace_back(
            Place{},
            "interrupted: " + counts +
                (tried_ < all ? ", " + std::to_string(all - tried_) + " not done; continue with " +
                                    options_.recipes[tried_]
                              : ""),
            ExitCode::fileTrouble);
    } else if (all > 1) {
        terminal.news << counts << std::endl;
    }
}

ExitCode Writer::Run() {
    CheckOpenFileLimit(options_.recipes.size());
    jobs_ = ReadJobs(host_, options_.recipes, options_.overrides);
    RefuseSameFile(jobs_);
    filesRead_ = FilesReadBy(jobs_, host_.scratch.Start());
    WriteJobs();
    ShowSummary();
    const ExitCode code = Report(problems_, host_.terminal.options, {{"recipes", list_}});
    return options_.check && wouldChange_ ? std::max(code, ExitCode::notAvailable) : code;
}

}  // namespace

RunFunction AddWrite(Arguments& arguments) {
    const auto options = std::make_shared<WriteOptions>();
    arguments.Words("RECIPE", options->recipes, "Recipes (TOML); - is standard input");
    AddOverrides(arguments, options->overrides);
    arguments.Value("--out", "FOLDER", options->overrides.controlFolder,
                    "Folder for the files, overriding the recipe's");
    arguments.Flag("--dry-run", options->dryRun, "Print the files instead of writing them");
    arguments.Flag("--diff", options->diff, "Print what would change; write nothing", "--dry-run");
    arguments.Flag("--check", options->check, "Write nothing; exit 1 if anything would change",
                   "--dry-run");
    arguments.Flag("--no-clobber", options->keep, "Do not replace existing files");
    arguments.Flag("--force", options->force, "Also replace files that are not control files",
                   "--no-clobber");
    return [options](Terminal& terminal) { return Writer(*options, terminal).Run(); };
}

}  // namespace host
