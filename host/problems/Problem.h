// What went wrong, where it was asked for, and the exit code that it leads to.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace host {

enum class ExitCode {
    done = 0,
    notAvailable = 1,  ///< something requested is not available, or a check failed
    badUsage = 2,      ///< a wrong command line or recipe
    fileTrouble = 3,   ///< a file or folder that cannot be used
};

/// Where a value comes from. Line 0: not from a line; no file: not from a recipe.
struct Place {
    std::string file;
    std::uint32_t line = 0;
    std::uint32_t column = 0;
    std::string name = {};  ///< of the value there: "target.solver", "--set 4=on"
};

struct Problem {
    Problem(Place where, const std::string& text, ExitCode leadsTo)
        : place(std::move(where)),
          message(place.name.empty() ? text : place.name + ": " + text),
          code(leadsTo) {}

    Place place;
    std::string message;
    ExitCode code;           ///< of a warning: the one that --strict leads to
    bool isWarning = false;  ///< odd, but it can be meant: told, and nothing stops
};

using Problems = std::vector<Problem>;

Problem Warning(Place where, const std::string& text, ExitCode whenStrict);

bool HasErrors(const Problems& problems);

void AddTo(Problems& problems, const Problems& more);

/// In the order of the lines.
void SortByLine(Problems& problems);

/// Makes errors of the warnings.
void MakeStrict(Problems& problems);

/// Thrown where nobody nearer can report the problems. what() is the first of them, in one line.
class Failure : public std::runtime_error {
public:
    /// Requires: at least one problem.
    explicit Failure(Problems problems);

    const Problems& List() const { return *problems_; }

private:
    std::shared_ptr<const Problems> problems_;  // copying an exception must not throw
};

/// The problems that any exception stands for.
Problems ProblemsOf(const std::exception& error);

/// Takes a step, and adds the problems of the exception that ends it.
void Collect(Problems& problems, const std::function<void()>& step);

[[noreturn]] void Fail(const Place& place, const std::string& text, ExitCode code);

/// Throws a Failure with all problems when there are errors among them.
void ThrowErrors(const Problems& problems);

/// What the system reports, in the same words with every compiler's library.
std::string ReasonOf(const std::error_code& error);

/// The system's reason, an errno, why a file or folder cannot be used.
[[noreturn]] void FailFor(int reason, const Place& place, const std::string& text);

/// "RECIPE:LINE:COLUMN: warning: message", as far as the place is known. All of it can be seen:
/// files and words of the command line can have other characters in their names.
std::string InOneLine(const Problem& problem);

}  // namespace host
