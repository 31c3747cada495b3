#include "commands/check/Against.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "commands/write/Job.h"
#include "commands/write/TextDifference.h"
#include "control_files/TextLines.h"
#include "problems/VisibleText.h"
#include "system/HostPlatform.h"

namespace host {

namespace {

using Lines = std::vector<std::string_view>;

Lines LinesToCompare(std::string_view text) {
    constexpr std::size_t mostLines = 1000;  // the work grows with their square
    Lines lines;
    for (const std::string_view line : LinesOf(text, mostLines)) {
        lines.push_back(WithoutEnd(line));
    }
    return lines;
}

/// Lines of the one text and of the other that stand between two that both have.
struct Gap {
    Lines wanted;
    Lines found;
};

/// Either of the lines may be missing.
std::string DifferenceInWords(const std::string& wanted, const std::string& found) {
    if (wanted.empty()) {
        return "the recipe does not write " + found;
    }
    return "the recipe writes " + wanted + (found.empty() ? " before this line" : ", not " + found);
}

/// Tells of the lines in a gap that ends before a line of the file.
void TellGap(const Gap& gap, const std::string& name, std::size_t end, Problems& problems) {
    const std::size_t start = end - gap.found.size();
    for (std::size_t i = 0; i < std::max(gap.wanted.size(), gap.found.size()); ++i) {
        const std::size_t line = start + std::min(i, gap.found.size()) + 1;
        const std::string wanted = i < gap.wanted.size() ? QuotedLine(gap.wanted[i]) : "";
        const std::string found = i < gap.found.size() ? QuotedLine(gap.found[i]) : "";
        problems.emplace_back(Place{name, static_cast<std::uint32_t>(line)},
                              DifferenceInWords(wanted, found), ExitCode::notAvailable);
    }
}

}  // namespace

std::string TextOfRecipe(const std::string& recipe, Surroundings& host) {
    std::vector<Job> jobs = ReadJobs(host, {recipe}, {});
    if (jobs.empty()) {
        Fail({}, "interrupted", ExitCode::fileTrouble);
    }
    Job& job = jobs.front();
    const GeneralOptions& options = host.terminal.options;
    Attempt(job, options, [&] { MakeText(job, options); });
    ThrowErrors(job.problems);
    return FromEngineText(job.text);
}

Problems DifferencesFrom(std::string_view wanted, const std::string& name, std::string_view text) {
    Problems problems;
    Gap gap;
    std::size_t line = 0;
    for (const DifferenceLine& merged : MergedLines(LinesToCompare(wanted), LinesToCompare(text))) {
        line += merged.mark == '-' ? 0 : 1;
        if (merged.mark == ' ') {
            TellGap(std::exchange(gap, {}), name, line - 1, problems);
        } else {
            (merged.mark == '-' ? gap.wanted : gap.found).push_back(merged.text);
        }
    }
    TellGap(gap, name, line, problems);
    return problems;
}

}  // namespace host
