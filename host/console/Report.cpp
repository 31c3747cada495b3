#include "console/Report.h"

#include <algorithm>
#include <iostream>

namespace host {

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

ExitCode Report(Problems problems, const GeneralOptions& options, const Json& content) {
    if (options.strict) {
        MakeStrict(problems);
    }
    ExitCode gravest = ExitCode::done;
    for (const Problem& problem : problems) {
        gravest = problem.isWarning ? gravest : std::max(gravest, problem.code);
        if (!options.json) {
            std::cerr << InOneLine(problem) << '\n';
        }
    }
    if (options.json) {
        Json document = {{"version", 1}, {"command", options.command}};
        document.update(content);
        document["problems"] = JsonOf(problems);
        // Bytes that are not UTF-8 become U+FFFD.
        std::cout << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    }
    return gravest;
}

}  // namespace host
