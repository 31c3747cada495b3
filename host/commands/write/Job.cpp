#include "commands/write/Job.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <map>
#include <utility>

#include "commands/write/TextDifference.h"
#include "handover/Engine.h"
#include "handover/LoadRecipe.h"
#include "handover/RunFolder.h"
#include "problems/VisibleText.h"
#include "system/HostPlatform.h"
#include "system/InputFiles.h"
#include "system/Signals.h"

namespace host {

namespace {

namespace fs = std::filesystem;

/// Removed at the end of the object's life.
struct TemporaryFile {
    ~TemporaryFile() {
        std::error_code ignored;
        fs::remove(path, ignored);
    }
    fs::path path;
};

/// Tries what the engine did not manage, for the system's reason; empty when it goes well.
std::string ReasonAgainstWriting(const fs::path& file) {
    errno = 0;
    std::ofstream stream(file, std::ios::binary);
    stream << std::string(largestFile, ' ') << std::flush;
    const std::string where = errno == ENAMETOOLONG ? "" : "in the temporary folder: ";
    return stream ? std::string() : where + std::strerror(errno);
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
    const Place place = PlaceOf(job.controlFile);
    job.text = fs::exists(file, missing) ? ReadFile(file, place) : std::string();
    const std::string difference = DifferenceFrom(asked, FromEngineText(job.text));
    if (!difference.empty()) {
        const std::string reason = ReasonAgainstWriting(file);
        FailToWrite(place, !reason.empty()    ? reason
                           : job.text.empty() ? "the engine wrote nothing"
                                              : "not what was asked for: " + difference);
    }
}

}  // namespace

void Attempt(Job& job, const GeneralOptions& options, const std::function<void()>& step) {
    if (!HasErrors(job.problems)) {
        Collect(job.problems, step);
    }
    for (Problem& problem : job.problems) {
        problem.place.file = job.recipe.file;
    }
    if (options.strict) {
        MakeStrict(job.problems);
    }
}

std::vector<Job> ReadJobs(Surroundings& host, const std::vector<std::string>& recipes,
                          const Overrides& overrides) {
    std::vector<Job> jobs;
    for (const std::string& file : recipes) {
        if (IsInterrupted()) {
            break;
        }
        Job& job = jobs.emplace_back();
        job.recipe.file = file;
        Attempt(job, host.terminal.options, [&] {
            job.recipe =
                LoadRecipe(file, overrides, host.names, host.scratch.Start(), Purpose::writing);
            job.problems = std::exchange(job.recipe.problems, {});
            job.controlFile = SetControlFile(host.bareEngine, job.recipe, job.recipe.controlFolder);
            job.controlFileIdentity = FileIdentity(job.controlFile);
        });
    }
    return jobs;
}

void RefuseSameFile(std::vector<Job>& jobs) {
    std::map<std::string, std::vector<Job*>> writers;
    for (Job& job : jobs) {
        if (job.IsFine()) {
            writers[job.controlFileIdentity].push_back(&job);
        }
    }
    for (const auto& [file, same] : writers) {
        for (std::size_t i = 0; same.size() > 1 && i < same.size(); ++i) {
            const Job& other = *same[i == 0 ? 1 : 0];
            same[i]->problems.emplace_back(
                Place{same[i]->recipe.file},
                Utf8Of(other.controlFile) + ": " + other.recipe.file + " would write this file too",
                ExitCode::badUsage);
        }
    }
}

void MakeText(Job& job, const GeneralOptions& options) {
    const Recipe& recipe = job.recipe;
    CheckRun(recipe);
    Session session(recipe);
    MakeText(job, session, options);
}

void MakeText(Job& job, Session& session, const GeneralOptions& options) {
    Problems problems = session.ApplyRecipe();
    if (options.strict) {
        MakeStrict(problems);
    }
    ThrowErrors(problems);
    AddTo(job.problems, problems);
    SortByLine(job.problems);
    const TemporaryFile file{job.controlFile.filename()};  // in the scratch folder
    session.Write();
    ReadBack(job, file.path, session.Asked());
}

FilesRead FilesReadBy(const std::vector<Job>& jobs, const fs::path& start) {
    FilesRead files;
    for (const Job& job : jobs) {
        files.insert(FileIdentity(PathOf(AbsolutePath(job.recipe.file, start))));
        if (!job.recipe.mappedMesh.empty()) {
            files.insert(FileIdentity(PathOf(job.recipe.mappedMesh)));
        }
    }
    return files;
}

Change ChangeTo(const ControlFilePlace& there, const std::string& text) {
    return !there.isTaken       ? Change::isNew
           : there.isKept       ? Change::isKept
           : there.text == text ? Change::none
                                : Change::isChanged;
}

std::string DifferenceTo(const ControlFilePlace& there, const Job& job) {
    const std::string name = Utf8Of(job.controlFile);
    return TextDifference(there.isTaken ? name : "/dev/null", FromEngineText(there.text), name,
                          FromEngineText(job.text));
}

std::string WordFor(Change change) {
    switch (change) {
        case Change::isNew:
            return "new";
        case Change::isChanged:
            return "changed";
        case Change::isKept:
            return "kept";
        default:
            return "unchanged";
    }
}

Json JsonOf(const Job& job, const std::string& whenDone, bool hasText, bool hasDifference) {
    Json entry = {{"recipe", job.recipe.file},
                  {"controlFile", Utf8Of(job.controlFile)},
                  {"status", job.IsFine() ? whenDone : "failed"}};
    if (job.IsFine()) {
        entry["change"] = WordFor(job.change);
    }
    entry["problems"] = JsonOf(job.problems);
    if (job.IsFine() && hasText) {
        entry["text"] = FromEngineText(job.text);
    }
    if (job.IsFine() && hasDifference) {
        entry["diff"] = job.difference;
    }
    return entry;
}

}  // namespace host
