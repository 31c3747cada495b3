// The command "write". A control file is written beside its place, read back and compared with
// what was asked for; only then does it take the place of the old one.
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fstream>
#include <functional>
#include <map>

#include "host/Commands.h"
#include "host/HostPlatform.h"
#include "host/Paths.h"
#include "host/Report.h"
#include "host/Session.h"

namespace host {

namespace {

namespace fs = std::filesystem;

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

Problem CannotWrite(const Job& job, const std::string& reason) {
    return {Place{}, Utf8Of(job.controlFile) + ": cannot be written: " + reason,
            ExitCode::fileTrouble};
}

/// Tries what the engine did not manage, for the system's reason; empty when it goes well.
std::string ReasonAgainstWriting(const fs::path& file) {
    constexpr std::size_t moreThanAControlFile = 65536;
    errno = 0;
    std::ofstream stream(file, std::ios::binary);
    stream << std::string(moreThanAControlFile, ' ') << std::flush;
    return stream ? std::string() : std::strerror(errno);
}

/// Reads the file back. Throws unless it says what was asked for.
void ReadBack(Job& job, const fs::path& file, const ControlFile& asked) {
    std::error_code missing;
    const Place place{{}, 0, 0, Utf8Of(job.controlFile)};
    job.text = fs::exists(file, missing) ? ReadFile(file, place) : std::string();
    const std::vector<std::string> found = SplitLines(job.text);
    const std::vector<std::string> expected = LinesOf(asked);
    if (found == expected && job.text.ends_with('\n')) {
        return;
    }
    const std::string reason = ReasonAgainstWriting(file);
    const auto [line, other] = std::ranges::mismatch(expected, found);
    throw CannotWrite(job, !reason.empty() ? reason
                           : line == expected.end() || other == found.end()
                               ? "not whole"
                               : "not what was asked for: " + Expected(*line, *other));
}

void CheckMappedMesh(const Recipe& recipe) {
    const bool isMapped = recipe.meshKind == kMeshMapped || recipe.meshKind == kMesh3DMappingShell;
    if (isMapped && recipe.mappedMesh.empty()) {
        throw Problem(
            recipe.PlaceOf("target.mesh"),
            Quoted(NameOf(recipe.meshKind, meshKinds)) + " needs target.mapped_mesh, its path",
            ExitCode::badUsage);
    }
}

void CheckRequired(Job& job, const Session& session, const ControlFile& file) {
    for (const Choice& required : job.recipe.required) {
        if (std::ranges::count(file.itemIds, required.itemId) == 0 ||
            file.values.OutputFlags[required.itemId] != 1) {
            job.problems.emplace_back(required.place,
                                      NameOf(required.itemId, shortNames) + " is not output: " +
                                          session.ReasonAgainst(required.itemId),
                                      ExitCode::notAvailable);
        }
    }
}

void WriteControlFile(const Surroundings& host, Job& job) {
    CheckFolder(job.recipe.project.projectFolder, job.recipe.PlaceOf("project.folder"));
    CheckMappedMesh(job.recipe);
    Session session(job.recipe);
    job.problems = session.ApplyRecipe();
    if (!job.problems.empty()) {
        return;
    }
    const std::string mark = "." + Utf8Of(host.scratch.Path().filename());
    const fs::path name = job.controlFile.filename() += mark;
    const fs::path folder =
        host.options.dryRun ? "." : job.controlFile.parent_path();  // the scratch folder
    const TemporaryFile file{folder / name};
    const ControlFile asked = session.Write(folder, job.recipe.controlExtension + mark);
    ReadBack(job, file.path, asked);
    CheckRequired(job, session, asked);
    if (job.problems.empty() && !host.options.dryRun) {
        std::error_code error;
        fs::rename(file.path, job.controlFile, error);
        if (error) {
            throw CannotWrite(job, error.message());
        }
    }
}

/// Does one step of a job, unless an earlier one failed.
void Attempt(Job& job, const std::function<void()>& step) {
    try {
        if (job.problems.empty()) {
            step();
        }
    } catch (const Problem& problem) {
        job.problems.push_back(problem);
    } catch (const std::exception& error) {
        job.problems.emplace_back(Place{}, error.what(), ExitCode::fileTrouble);
    }
    for (Problem& problem : job.problems) {
        problem.place.file = job.recipe.file;
    }
}

std::vector<Job> ReadJobs(const Surroundings& host) {
    std::vector<Job> jobs;
    for (const std::string& file : host.options.files) {
        Job& job = jobs.emplace_back();
        job.recipe.file = file;
        Attempt(job, [&] {
            job.recipe =
                ReadRecipe(file, host.options, host.names, host.scratch.Start(), job.problems);
            job.controlFile = job.problems.empty() ? ControlFilePath(job.recipe) : fs::path();
        });
    }
    return jobs;
}

void RefuseSameFile(std::vector<Job>& jobs) {
    const auto refuse = [](Job& job, const Job& other) {
        job.problems.emplace_back(
            Place{job.recipe.file},
            Utf8Of(other.controlFile) + ": " + other.recipe.file + " would write it too",
            ExitCode::badUsage);
    };
    std::map<std::string, Job*> writers;
    for (Job& job : jobs) {
        if (job.problems.empty()) {
            const auto [first, isFirst] = writers.emplace(FileIdentity(job.controlFile), &job);
            if (!isFirst) {
                refuse(job, *first->second);
                refuse(*first->second, job);
            }
        }
    }
}

/// The engine keeps the shot file of each run open until the process ends.
void CheckOpenFileLimit(std::size_t recipes) {
    const std::size_t possible = RaiseOpenFileLimit();
    if (recipes > possible) {
        throw Problem(Place{},
                      std::to_string(recipes) +
                          " recipes are too many for one call, because each "
                          "leaves a file open; nothing was written; possible are " +
                          std::to_string(possible),
                      ExitCode::fileTrouble);
    }
}

/// A line for each job, on a terminal one for all of them.
void Show(const Job& job, const std::string& counter, const Options& options, Terminal& terminal) {
    const bool isDone = job.problems.empty();
    const bool isSingle = options.files.size() == 1;
    const std::string file = Utf8Of(job.controlFile);
    if (isDone && options.dryRun) {
        terminal.out << (isSingle ? "" : "==> " + file + " <==\n") << job.text;
    } else if (terminal.isTerminal && !isSingle && !options.dryRun) {
        terminal.news << "\r[" << counter << "]" << std::flush;
    } else if (isDone) {
        terminal.news << "wrote    " << file << std::endl;
    } else if (!isSingle) {
        terminal.news << "failed   " << InOneLine(job.problems[0]) << std::endl;
    }
}

Json JsonOf(const Job& job, bool isDryRun) {
    const bool isDone = job.problems.empty();
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

}  // namespace

ExitCode RunWrite(const Surroundings& host) {
    const Options& options = host.options;
    std::vector<Job> jobs = ReadJobs(host);
    RefuseSameFile(jobs);
    CheckOpenFileLimit(jobs.size());
    std::signal(SIGINT, [](int) { isInterrupted = 1; });  // the files stay whole
    std::signal(SIGTERM, [](int) { isInterrupted = 1; });
    const std::string total = "/" + std::to_string(jobs.size());
    Problems all;
    std::size_t number = 0;
    std::size_t done = 0;
    Json list = Json::array();
    for (Job& job : jobs) {
        Attempt(job, [&] {
            if (isInterrupted != 0) {
                throw Problem(Place{}, "interrupted before its turn", ExitCode::fileTrouble);
            }
            WriteControlFile(host, job);
        });
        Show(job, std::to_string(++number) + total, options, host.terminal);
        done += job.problems.empty() ? 1 : 0;
        all.insert(all.end(), job.problems.begin(), job.problems.end());
        if (options.json) {
            list.push_back(JsonOf(job, options.dryRun));
        }
        job = Job();  // thousands of them need not stay
    }
    if (jobs.size() > 1) {
        host.terminal.news << (host.terminal.isTerminal ? "\r\033[K" : "") << done
                           << (options.dryRun ? " shown, " : " written, ") << jobs.size() - done
                           << " failed" << std::endl;
    }
    Json document = JsonDocument(options);
    document["recipes"] = std::move(list);
    return Report(all, options, std::move(document));
}

}  // namespace host
