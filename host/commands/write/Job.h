// One recipe on its way to the text of its control file. Nothing here writes outside the scratch
// folder.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "commands/Surroundings.h"
#include "commands/write/ControlFilePlace.h"
#include "console/Report.h"
#include "handover/Session.h"

namespace host {

struct Job {
    Recipe recipe;
    std::filesystem::path controlFile;
    std::string controlFileIdentity;  ///< its FileIdentity
    Problems problems;
    std::string text;              ///< of the file
    Change change = Change::none;  ///< that the text makes to the file
    std::string difference;        ///< from the old text, when it is to be shown
    bool isInTime = false;         ///< its file was looked at before any signal came

    /// Whether a file would be written.
    bool WouldChange() const { return change == Change::isNew || change == Change::isChanged; }
    /// Whether nothing has gone wrong so far.
    bool IsFine() const { return !HasErrors(problems); }
};

/// Does one step of a job, unless an earlier one failed. Keeps what goes wrong in the job.
void Attempt(Job& job, const GeneralOptions& options, const std::function<void()>& step);

/// Reads the recipes until a signal comes.
std::vector<Job> ReadJobs(Surroundings& host, const std::vector<std::string>& recipes,
                          const Overrides& overrides);

/// Gives each of the jobs that would write the same file a problem.
void RefuseSameFile(std::vector<Job>& jobs);

/// Has the engine write the control file, and keeps its text. Throws a Failure unless it says what
/// was asked for.
void MakeText(Job& job, const GeneralOptions& options);
/// The same with a session of the job's recipe, whose run's files have been checked.
void MakeText(Job& job, Session& session, const GeneralOptions& options);

/// The recipes of the call, and the mapped meshes that they name.
FilesRead FilesReadBy(const std::vector<Job>& jobs, const std::filesystem::path& start);

/// What the text makes of the file that is there, and how it differs from that file's.
Change ChangeTo(const ControlFilePlace& there, const std::string& text);
std::string DifferenceTo(const ControlFilePlace& there, const Job& job);

/// What the lines and the documents call it.
std::string WordFor(Change change);

/// The job as the documents show it. `whenDone` is its status when it went well.
Json JsonOf(const Job& job, const std::string& whenDone, bool hasText, bool hasDifference);

}  // namespace host
