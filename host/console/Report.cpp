#include "console/Report.h"

#include <algorithm>
#include <iostream>
#include <string_view>

namespace host {

namespace {

/// In pieces that a pipe takes whole or not at all: a signal ends the wait for its reader then.
void Print(std::string_view text) {
    constexpr std::size_t longest = 4096;
    for (; !text.empty() && std::cout; text.remove_prefix(std::min(longest, text.size()))) {
        std::cout << text.substr(0, longest);
    }
}

}  // namespace

Json JsonOf(const Problems& problems) {
    Json list = Json::array();
    for (const Problem& problem : problems) {
        list.push_back({{"file", problem.place.file},
                        {"line", problem.place.line},
                        {"column", problem.place.column},
                        {"severity", problem.isWarning ? "warning" : "error"},
                        {"message", problem.message},
                        {"exitCode", static_cast<int>(problem.code)}});
    }
    return list;
}

void Tell(const Problem& problem) {
    constexpr std::size_t indent = 4;
    const Screen screen(Stream::errors);
    const std::string line = InOneLine(problem);
    const std::string text = screen.isTerminal ? Wrapped(line, screen.columns, indent, 0) : line;
    std::cerr << screen.Colored(text, problem.isWarning ? Color::odd : Color::bad) << '\n';
}

ExitCode Report(Problems problems, const GeneralOptions& options, const Json& content) {
    if (options.strict) {
        MakeStrict(problems);
    }
    ExitCode gravest = ExitCode::done;
    for (const Problem& problem : problems) {
        gravest = problem.isWarning ? gravest : std::max(gravest, problem.code);
        if (!options.json) {
            Tell(problem);
        }
    }
    if (options.json) {
        Json document = {{"version", 1}, {"command", options.command}};
        document.update(content);
        document["problems"] = JsonOf(problems);
        // In ASCII, of which a terminal obeys nothing here; bytes that are not UTF-8 become U+FFFD.
        Print(document.dump(2, ' ', true, Json::error_handler_t::replace) + '\n');
    }
    return gravest;
}

}  // namespace host
