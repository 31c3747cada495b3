#include "tests/fuzz/Problems.h"

#include <algorithm>
#include <string>

#include "problems/VisibleText.h"
#include "tests/fuzz/MemoryPlatform.h"

namespace fuzz {

void ExpectGoodProblems(const host::Problems& problems, std::string_view text) {
    const auto lines = static_cast<std::uint32_t>(std::ranges::count(text, '\n') + 1);
    for (const host::Problem& problem : problems) {
        Expect(problem.place.line <= lines, "a problem stands in the text");
        Expect(!problem.message.empty(), "a problem has words");
        const std::string line = host::InOneLine(problem);
        if (std::ranges::any_of(line, host::IsControl)) {
            Break("no control characters in: " + line);
        }
        Expect(problem.code != host::ExitCode::done, "a problem leads to an exit code");
    }
}

}  // namespace fuzz
