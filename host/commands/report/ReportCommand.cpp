// The command "report": a page that shows recipes and control files, for people without a terminal.
#include <memory>
#include <new>
#include <optional>
#include <utility>

#include "commands/Commands.h"
#include "commands/report/Entry.h"
#include "commands/report/Page.h"
#include "commands/report/Summary.h"
#include "handover/RunFolder.h"
#include "problems/VisibleText.h"
#include "system/HostPlatform.h"
#include "system/Memory.h"
#include "system/SafeFile.h"
#include "system/Signals.h"
#include "system/SystemFiles.h"

namespace host {

namespace {

namespace fs = std::filesystem;

struct ReportOptions {
    std::vector<std::string> files;  ///< recipes and control files
    std::optional<std::string> page;
    Overrides overrides;
    bool force = false;
};

/// Whether a word of the command line names a control file. What cannot be read is one by its name.
bool NamesControlFile(const std::string& word, const fs::path& start) {
    if (word == "-") {
        return false;
    }
    const fs::path file = PathOf(AbsolutePath(word, start));
    if (file.extension() == ".cmi") {
        return true;
    }
    constexpr std::size_t firstLine = 64;
    std::string text;
    if (std::error_code unknown; fs::is_regular_file(file, unknown)) {
        ReadStart(file, firstLine, text);
    }
    return IsControlFile(text);
}

/// The entries of a call, one after the other.
class Reporter {
public:
    Reporter(const ReportOptions& options, Terminal& terminal)
        : options_(options),
          host_(terminal),
          page_(*host_.bareEngine.engine, options.files.size() == 1) {}

    ExitCode Run();

private:
    FilePlace LookAtPage() const;
    void ReadRecipes();
    void AddEntries();
    void Add(const Json& entry, const Problems& problems);
    void PutInPlace();

    const ReportOptions& options_;
    Surroundings host_;
    fs::path file_;  ///< of the page
    std::vector<bool> isControlFile_;
    std::vector<Job> jobs_;  ///< of the recipes
    FilesRead recipesRead_;  ///< with the files that they have the translator read
    FilesRead controlFilesRead_;
    Page page_;
    Summary summary_;
    Problems problems_;
    Json list_ = Json::array();
};

/// Throws a Failure for what may not be replaced.
FilePlace Reporter::LookAtPage() const {
    const std::string& name = *options_.page;
    FilePlace place = LookAtPlace(file_);
    if (!place.reason.empty()) {
        FailToWrite({name}, place.reason);
    }
    RemoveLeftOvers(place.file.parent_path(), fs::file_type::regular);
    const std::string identity = FileIdentity(file_);
    if (recipesRead_.contains(identity) || controlFilesRead_.contains(identity)) {
        Fail({name}, "is an input of this command, so it is not replaced", ExitCode::fileTrouble);
    }
    RefuseNameOfRun(place, {name});
    const std::string text = place.isTaken ? StartOf(place) : std::string();
    if (!text.empty() && !Page::IsPage(text) && !options_.force) {
        Fail({name}, "is not a report; use --force to replace it", ExitCode::fileTrouble);
    }
    return place;
}

void Reporter::ReadRecipes() {
    const fs::path& start = host_.scratch.Start();
    std::vector<std::string> recipes;
    for (const std::string& file : options_.files) {
        isControlFile_.push_back(NamesControlFile(file, start));
        if (isControlFile_.back()) {
            controlFilesRead_.insert(FileIdentity(PathOf(AbsolutePath(file, start))));
        } else {
            recipes.push_back(file);
        }
    }
    CheckOpenFileLimit(recipes.size());
    jobs_ = ReadJobs(host_, recipes, options_.overrides);
    RefuseSameFile(jobs_);
    recipesRead_ = FilesReadBy(jobs_, start);
}

void Reporter::Add(const Json& entry, const Problems& problems) {
    summary_.Add(entry);
    if (options_.page) {
        page_.Add(entry);
    }
    if (host_.terminal.options.json) {
        list_.push_back(entry);
    }
    AddTo(problems_, problems);
}

/// Adds them until a signal comes.
void Reporter::AddEntries() {
    OfferCheck offers;
    auto nextJob = jobs_.begin();
    for (std::size_t i = 0; i < options_.files.size() && !IsInterrupted(); ++i) {
        if (isControlFile_[i]) {
            Problems problems;
            const Json entry = EntryOf(options_.files[i], host_, offers, problems);
            Add(entry, problems);
        } else {
            Job job = std::move(*nextJob++);
            const Json entry = EntryOf(job, host_, recipesRead_);
            Add(entry, job.problems);
        }
    }
}

void Reporter::PutInPlace() {
    const std::string text = page_.Text(summary_.AsJson());
    if (HasLackedMemory()) {
        throw std::bad_alloc();  // the page may be cut off
    }
    const std::string reason = ReplaceFile([this] { return LookAtPage(); }, text);
    if (!reason.empty()) {
        FailToWrite({*options_.page}, reason);
    }
    host_.terminal.news << "wrote    " << Visible(Utf8Of(file_)) << '\n';
}

ExitCode Reporter::Run() {
    Terminal& terminal = host_.terminal;
    if (!options_.page && !terminal.options.json) {
        Fail({}, "-o FILE is required unless --json is given", ExitCode::badUsage);
    }
    ReadRecipes();
    if (options_.page) {
        file_ = OutputPath(*options_.page, host_.scratch.Start());
        LookAtPage();
    }
    AddEntries();
    if (IsInterrupted()) {
        Fail({}, "interrupted: no report was written", ExitCode::fileTrouble);
    }
    if (options_.page) {
        PutInPlace();
    }
    const Json summary = summary_.AsJson();
    terminal.news << summary["entries"].get<std::size_t>() - summary["failed"].get<std::size_t>()
                  << " shown, " << summary["failed"] << " failed" << std::endl;
    return Report(problems_, terminal.options, {{"summary", summary}, {"entries", list_}});
}

}  // namespace

RunFunction AddReport(Arguments& arguments) {
    const auto options = std::make_shared<ReportOptions>();
    arguments.Words("FILE", options->files, "Recipes (TOML) or control parameter files");
    arguments.Value("-o,--output", "FILE", options->page,
                    "HTML page to write; optional with --json");
    AddOverrides(arguments, options->overrides);
    arguments.Value("--out", "FOLDER", options->overrides.controlFolder,
                    "Override the recipe's folder of control files");
    arguments.Flag("--force", options->force, "Also replace a file that is not a report");
    return [options](Terminal& terminal) { return Reporter(*options, terminal).Run(); };
}

}  // namespace host
