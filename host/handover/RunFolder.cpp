#include "handover/RunFolder.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <limits>
#include <map>
#include <optional>
#include <string_view>

#include "problems/VisibleText.h"
#include "system/InputFiles.h"
#include "system/Paths.h"
#include "system/SystemFiles.h"

namespace host {

namespace {

namespace fs = std::filesystem;

/// What follows the number in the names of a run's files.
constexpr auto knownEndings = std::to_array<std::string_view>({
    "_medi.crp",
    "_vox.k5o",
    ".cmx",
    ".k5c",
    ".k5f",
    ".k5o",
    ".k5p",
    ".k5s",  //
    ".k5w",
    ".o2w",
    ".rsc",
    ".rsf",
    ".rsg",
    ".rso",
    ".rsp",
    ".rsr",
});

bool IsDigit(char character) {
    return std::isdigit(static_cast<unsigned char>(character)) != 0;
}

/// The digits in which a text ends.
std::string DigitsAtEnd(const std::string& text) {
    const auto last = std::find_if_not(text.rbegin(), text.rend(), IsDigit);
    return {last.base(), text.end()};
}

/// The numbers that digits can end in. Numbers from 100 on have no leading zero.
std::vector<std::string> NumbersAtEndOf(const std::string& digits) {
    constexpr std::size_t longest = 9;
    std::vector<std::string> numbers;
    for (std::size_t length = 2; length <= std::min(longest, digits.size()); ++length) {
        const std::string number = digits.substr(digits.size() - length);
        if (length == 2 || number[0] != '0') {
            numbers.push_back(number);
        }
    }
    return numbers;
}

/// The ending of a result file's name, if it is one.
std::optional<std::string> EndingOf(const std::string& file) {
    for (const std::string_view ending : knownEndings) {
        if (file.ends_with(ending)) {
            return std::string(ending);
        }
    }
    return std::nullopt;
}

using RunsByName = std::map<std::pair<std::string, std::string>, Run>;

void AddReadings(const std::string& file, const std::string& folderNumber, RunsByName& runs) {
    if (file.find('\\') != std::string::npos) {
        return;  // a separator in the engine's paths, and in those of recipes
    }
    const std::optional<std::string> ending = EndingOf(file);
    const std::string base = file.substr(0, file.size() - (ending ? ending->size() : 0));
    std::vector<std::string> numbers =
        ending ? NumbersAtEndOf(DigitsAtEnd(base)) : std::vector<std::string>();
    if (std::ranges::count(numbers, folderNumber) != 0) {
        numbers = {folderNumber};
    }
    for (const std::string& number : numbers) {
        const std::string name = base.substr(0, base.size() - number.size());
        if (!name.empty()) {
            Run& run = runs[{name, number}];
            run.name = name;
            run.number = number;
            run.endings.insert(*ending);
        }
    }
}

std::string InLowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

fs::path ShotFileOf(const CZorbFEAInformation& project) {
    return StartOfPaths(project) += ".cmx";
}

/// Looks at all of them: the engine takes one that it cannot test for missing.
bool HasFileOf(const CZorbFEAInformation& project, const Place& place) {
    const fs::path start = StartOfPaths(project);
    bool hasFile = false;
    for (const std::string_view ending : knownEndings) {
        std::error_code error;
        hasFile = fs::exists(fs::path(start) += ending, error) || hasFile;
        if (error) {
            Fail(place,
                 project.projectFolder + ": " + StartOfNames(project) + std::string(ending) + ": " +
                     ReasonOf(error),
                 ExitCode::fileTrouble);
        }
    }
    return hasFile;
}

/// Whether a file is named as those of a run, the recipe's or an earlier one, and stands with them.
bool IsOfRun(const fs::path& file, const Recipe& recipe) {
    const fs::path folder = PathOf(recipe.project.projectFolder);
    const std::string start = FileIdentity(folder / PathOf(recipe.project.projectName));
    const std::string name = FileIdentity(file);
    return name.starts_with(start) && name.size() > start.size() && name[start.size()] >= '0' &&
           name[start.size()] <= '9';
}

[[noreturn]] void FailAsOfRun(const FilePlace& file, const Place& place) {
    const char* const text =
        file.isTaken ? "is named like a file of a run, so it is not replaced; choose another name"
                     : "would be taken for a result file of a run; choose another name";
    Fail(place, text, ExitCode::fileTrouble);
}

/// What is in a folder, in any order. Throws a Failure at a place with the system's reason.
std::vector<std::string> NamesOfEntries(const fs::path& folder, const Place& place) {
    std::vector<std::string> names;
    if (const std::error_code error = AddNamesIn(folder, "", names)) {
        Fail(place, Utf8Of(folder) + ": " + ReasonOf(error), ExitCode::fileTrouble);
    }
    return names;
}

}  // namespace

std::vector<fs::path> EntriesOf(const fs::path& folder, const Place& place) {
    std::vector<fs::path> entries;
    for (const std::string& name : NamesOfEntries(folder, place)) {
        entries.push_back(folder / PathOf(name));
    }
    std::ranges::sort(entries);
    return entries;
}

std::vector<Run> RunsAmong(const std::vector<fs::path>& entries) {
    RunsByName found;
    for (const fs::path& entry : entries) {
        const std::string folder = Utf8Of(entry.parent_path().filename());
        AddReadings(Utf8Of(entry.filename()), DigitsAtEnd(folder), found);
    }
    std::vector<Run> runs;
    for (auto& [key, run] : found) {
        runs.push_back(std::move(run));
    }
    return runs;
}

void RefuseNameOfRun(const FilePlace& file, const Place& place) {
    // In upper case, too: it is the same file for Windows.
    if (!RunsAmong({PathOf(InLowerCase(Utf8Of(file.file)))}).empty()) {
        FailAsOfRun(file, place);
    }
}

void RefuseNameOfRun(const FilePlace& file, const Recipe& recipe, const Place& place) {
    if (file.isTaken && IsOfRun(file.file, recipe)) {
        FailAsOfRun(file, place);
    }
    RefuseNameOfRun(file, place);
}

std::string Listed(const std::vector<Run>& runs) {
    constexpr std::size_t longest = 10;
    std::string list;
    for (std::size_t i = 0; i < std::min(longest, runs.size()); ++i) {
        list += (i == 0 ? "" : "; ") + runs[i].name + ", run " + std::to_string(runs[i].Number());
    }
    const std::size_t others = runs.size() - std::min(longest, runs.size());
    return runs.empty()  ? "none"
           : others == 0 ? list
                         : list + "; " + std::to_string(others) + " more";
}

std::string StartOfNames(const CZorbFEAInformation& project) {
    return project.projectName + (project.runNumber < 10 ? "0" : "") +
           std::to_string(project.runNumber);
}

fs::path StartOfPaths(const CZorbFEAInformation& project) {
    return PathOf(project.projectFolder) / PathOf(StartOfNames(project));
}

void CheckRun(const Recipe& recipe) {
    const CZorbFEAInformation& project = recipe.project;
    const Place place = recipe.PlaceOf("project.folder");
    CheckFolder(project.projectFolder, place);
    const fs::path folder = PathOf(project.projectFolder);
    NamesOfEntries(folder, place);  // whether it can be read
    if (!HasFileOf(project, place) && !recipe.emptyRun) {
        Fail(place,
             project.projectFolder + " has no result file of " + StartOfNames(project) +
                 "; runs found: " + Listed(RunsAmong(EntriesOf(folder, place))) +
                 "; set project.empty_run = true if the run is empty on purpose",
             ExitCode::fileTrouble);
    }
}

void CheckFilesOfRun(const Recipe& recipe) {
    struct Row {
        const char* ending;
        std::uintmax_t largest;  ///< bytes
    };
    constexpr std::uintmax_t any = std::numeric_limits<std::uintmax_t>::max();
    constexpr Row opened[] = {{".cmx", 1 << 20}, {".k5o", any}};
    const fs::path start = StartOfPaths(recipe.project);
    for (const auto& [ending, largest] : opened) {
        CheckRegularFile(fs::path(start) += ending, largest, recipe.PlaceOf("project.folder"));
    }
}

void CheckShotFileWasRead(const Recipe& recipe, int number) {
    const fs::path file = ShotFileOf(recipe.project);
    std::error_code error;
    if (fs::exists(file, error) && !IsReadToItsEnd(number, file)) {
        Fail(recipe.PlaceOf("project.folder"),
             Utf8Of(file) + ": the engine could not read all of it", ExitCode::fileTrouble);
    }
}

void WarnOfClosedRuns(const Recipe& recipe, Problems& problems) {
    // As the engine finds them: by the last "Run" in the folder's path.
    const std::string folder = recipe.project.projectFolder + '/';
    const fs::path front = PathOf(folder.substr(0, folder.rfind("Run")));
    const fs::path root = front.parent_path();
    const std::string start = Utf8Of(front.filename()) + "Run";
    std::error_code error;
    std::vector<std::string> runs;
    if (fs::exists(ShotFileOf(recipe.project), error)) {
        AddNamesIn(root, start, runs);
    }
    std::erase_if(runs, [&start](const std::string& name) {
        return !std::all_of(name.begin() + static_cast<std::ptrdiff_t>(start.size()), name.end(),
                            IsDigit);
    });
    for (const std::string& name : runs) {
        const fs::path file =
            root / PathOf(name) /
            PathOf(recipe.project.projectName + name.substr(start.size()) + ".k5o");
        if (!fs::status_known(fs::status(file, error))) {
            problems.push_back(
                Warning(recipe.PlaceOf("project.folder"),
                        Utf8Of(file) + ": " + ReasonOf(error) +
                            "; if it belongs to an earlier shot, it counts as missing",
                        ExitCode::fileTrouble));
        }
    }
}

void WarnOfCase(const Recipe& recipe, Problems& problems) {
    const fs::path folder = PathOf(recipe.project.projectFolder);
    const std::string start = StartOfNames(recipe.project);
    const Place place = recipe.PlaceOf("project.folder");
    std::map<std::string, std::string> notFound;  // with the names that they would need
    for (const std::string& file : NamesOfEntries(folder, place)) {
        const std::optional<std::string> ending = EndingOf(InLowerCase(file));
        const std::string name = start + ending.value_or("");
        std::error_code error;
        if (ending && file != name && InLowerCase(file) == InLowerCase(name) &&
            !fs::exists(folder / PathOf(name), error)) {
            notFound[file] = name;
        }
    }
    for (const auto& [file, name] : notFound) {
        problems.push_back(Warning(
            place, Quoted(file) + " is ignored: its name differs only in case from " + Quoted(name),
            ExitCode::notAvailable));
    }
}

}  // namespace host
