#include "problems/Problem.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <system_error>
#include <tuple>

#include "problems/VisibleText.h"

namespace host {

namespace {

/// What the standard library reports, in words for users.
std::string TextFor(const std::exception& error) {
    if (const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&error)) {
        const std::u8string path = file->path1().u8string();
        return std::string(path.begin(), path.end()) + ": " + ReasonOf(file->code());
    }
    if (const auto* system = dynamic_cast<const std::system_error*>(&error)) {
        return ReasonOf(system->code());
    }
    const bool lacksMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr ||
                             dynamic_cast<const std::length_error*>(&error) != nullptr;
    return lacksMemory ? "out of memory" : "internal error";
}

}  // namespace

Problem Warning(Place where, const std::string& text, ExitCode whenStrict) {
    Problem warning(std::move(where), text, whenStrict);
    warning.isWarning = true;
    return warning;
}

bool HasErrors(const Problems& problems) {
    return !std::ranges::all_of(problems, &Problem::isWarning);
}

void AddTo(Problems& problems, const Problems& more) {
    problems.insert(problems.end(), more.begin(), more.end());
}

void SortByLine(Problems& problems) {
    std::ranges::stable_sort(problems, {}, [](const Problem& problem) {
        return std::tuple(problem.place.line, problem.place.column);
    });
}

void MakeStrict(Problems& problems) {
    for (Problem& problem : problems) {
        problem.isWarning = false;
    }
}

Failure::Failure(Problems problems)
    : std::runtime_error(InOneLine(problems.at(0))),
      problems_(std::make_shared<const Problems>(std::move(problems))) {}

Problems ProblemsOf(const std::exception& error) {
    if (const auto* failure = dynamic_cast<const Failure*>(&error)) {
        return failure->List();
    }
    return {{Place{}, TextFor(error), ExitCode::fileTrouble}};
}

void Collect(Problems& problems, const std::function<void()>& step) {
    try {
        step();
    } catch (const std::exception& error) {
        AddTo(problems, ProblemsOf(error));
    }
}

void Fail(const Place& place, const std::string& text, ExitCode code) {
    throw Failure({{place, text, code}});
}

void ThrowErrors(const Problems& problems) {
    if (HasErrors(problems)) {
        throw Failure(problems);
    }
}

std::string ReasonOf(const std::error_code& error) {
    const std::error_condition condition = error.default_error_condition();
    return condition.category() == std::generic_category() ? std::strerror(condition.value())
                                                           : error.message();
}

void FailFor(int reason, const Place& place, const std::string& text) {
    Fail(place, text + ": " + std::strerror(reason), ExitCode::fileTrouble);
}

std::string InOneLine(const Problem& problem) {
    const auto& [file, line, column, name] = problem.place;
    std::string place = file.empty() ? "zorbi2" : file;
    for (const std::uint32_t position : {line, column}) {
        place += position > 0 ? ":" + std::to_string(position) : "";
    }
    return Visible(place + (problem.isWarning ? ": warning: " : ": ") + problem.message);
}

}  // namespace host
