// Command lines of any words, one on each line of the input: each is understood, done at once, or
// refused with two lines on standard error. No command runs.
#include <algorithm>
#include <cstdint>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "commands/CommandLine.h"
#include "problems/VisibleText.h"
#include "tests/fuzz/MemoryPlatform.h"

namespace {

using Words = std::vector<std::string>;

/// The words as a system hands them over: none has a NUL.
Words WordsOf(std::string_view text) {
    Words words;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        words.emplace_back(text.substr(0, std::min(end, text.find('\0'))));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

/// Takes what goes to a stream while it lives.
class Taken {
public:
    explicit Taken(std::ostream& stream) : stream_(stream), old_(stream.rdbuf(text_.rdbuf())) {}
    ~Taken() { stream_.rdbuf(old_); }
    Taken(const Taken&) = delete;
    Taken& operator=(const Taken&) = delete;

    std::string Text() const { return text_.str(); }

private:
    std::ostringstream text_;
    std::ostream& stream_;
    std::streambuf* old_;
};

struct Answer {
    std::string output;
    std::string errors;
};

void ExpectUnderstood(const Words& words, const host::CommandCall& call, const Answer& answer) {
    fuzz::Expect(answer.output.empty() && answer.errors.empty(), "what is understood is silent");
    fuzz::Expect(static_cast<bool>(call.run), "a command runs");
    const std::string& command = call.options.command;
    fuzz::Expect(std::ranges::count(host::Commands(), command, &host::Command::name) == 1 &&
                     std::ranges::count(words, command) > 0,
                 "the command is one of the words");
    const auto isSaid = [&words](const char* flag) {
        return std::ranges::any_of(words, [flag](const auto& w) { return w.starts_with(flag); });
    };
    fuzz::Expect((!call.options.json || isSaid("--json")) &&
                     (!call.options.trace || isSaid("--trace")) &&
                     (!call.options.quiet || isSaid("--quiet")) &&
                     (!call.options.strict || isSaid("--strict")),
                 "a flag is on when it is said");
}

void ExpectRefused(const Answer& answer) {
    fuzz::Expect(answer.output.empty(), "a refusal prints nothing on standard output");
    fuzz::Expect(answer.errors.starts_with("zorbi2: ") &&
                     answer.errors.find("\nfor usage, run zorbi2 ") != std::string::npos &&
                     answer.errors.ends_with("--help\n"),
                 "a refusal says why, and where help is");
    if (std::ranges::count_if(answer.errors, host::IsControl) != 2) {
        fuzz::Break("two lines, and no control characters, in: " + answer.errors);
    }
}

void ExpectDone(const Words& words, const Answer& answer) {
    fuzz::Expect(answer.errors.empty(), "what is done prints no errors");
    fuzz::Expect(words.front() == "complete" || answer.output.ends_with('\n'),
                 "help and version are printed");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Words words = WordsOf({reinterpret_cast<const char*>(data), size});
    host::CommandCall call;
    const Taken output(std::cout);
    const Taken errors(std::cerr);
    const auto early = host::ParseCommandLine(words, call);
    const Answer answer{output.Text(), errors.Text()};
    if (!early) {
        ExpectUnderstood(words, call, answer);
    } else if (*early == host::ExitCode::badUsage) {
        ExpectRefused(answer);
    } else {
        fuzz::Expect(*early == host::ExitCode::done, "what is done is done or bad usage");
        ExpectDone(words, answer);
    }
    return 0;
}
