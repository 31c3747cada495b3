#include "platform/Trace.h"

#include <gtest/gtest.h>

#include "platform/PlatformCalls.h"
#include "tests/support/HostLocale.h"

namespace {

/// Takes the trace lines as they are, in wide text.
class CaughtTrace {
public:
    CaughtTrace() : systemCalls_(platform::CurrentCalls()) {
        lines_.clear();
        platform::CurrentCalls().traceLine = [](const wchar_t* line) { lines_.push_back(line); };
    }
    ~CaughtTrace() { platform::CurrentCalls() = systemCalls_; }
    CaughtTrace(const CaughtTrace&) = delete;
    CaughtTrace& operator=(const CaughtTrace&) = delete;

    const std::vector<std::wstring>& Lines() const { return lines_; }

private:
    static inline std::vector<std::wstring> lines_;
    platform::Calls systemCalls_;
};

using WideLines = std::vector<std::wstring>;

}  // namespace

TEST(Trace, SendsEachLineAsItIs) {
    const CaughtTrace trace;
    platform::Trace(L"@@@ first");
    platform::Trace(L"");
    platform::Trace(L"100%s \x20ac");
    EXPECT_EQ(trace.Lines(), (WideLines{L"@@@ first", L"", L"100%s \x20ac"}));
}

TEST(Trace, WidensAsciiTextInEveryLocale) {
    for (const char* name :
         {"C", support::kGermanLocale, support::kTurkishLocale, support::kMultiByteLocale}) {
        const support::HostLocale locale(name);
        const CaughtTrace trace;
        platform::TraceNarrow("D:\\Proj\\Run03\\Cover03.cmx");
        EXPECT_EQ(trace.Lines(), WideLines{L"D:\\Proj\\Run03\\Cover03.cmx"}) << name;
    }
}

TEST(Trace, EmptyNarrowTextIsAnEmptyLine) {
    const CaughtTrace trace;
    platform::TraceNarrow("");
    EXPECT_EQ(trace.Lines(), WideLines{L""});
}

TEST(Trace, ConvertsNarrowTextFromTheLocalesEncoding) {
    const support::HostLocale locale(support::kGermanLocale);
    const CaughtTrace trace;
    platform::TraceNarrow(std::string("Geh") + support::kGermanSmallA + "use");
    EXPECT_EQ(trace.Lines(), WideLines{L"Geh\x00e4"
                                       L"use"});
}

TEST(Trace, TextThatDoesNotConvertIsTracedByteByByte) {
    const support::HostLocale locale(support::kMultiByteLocale);
    const CaughtTrace trace;
    platform::TraceNarrow(std::string("Geh") + support::kNotInMultiByteLocale);
    EXPECT_EQ(trace.Lines(), WideLines{L"Geh\x0081"});
}

TEST(Trace, BytesBeyondAsciiGiveALineInTheCLocale) {
    const support::HostLocale locale("C");
    for (int byte = 0x80; byte <= 0xff; ++byte) {
        const CaughtTrace trace;
        platform::TraceNarrow(std::string("Geh") + static_cast<char>(byte) + "use");
        ASSERT_EQ(trace.Lines().size(), 1U) << byte;
        const std::wstring line = trace.Lines()[0];
        EXPECT_EQ(line.size(), 7U) << byte;
        EXPECT_EQ(line.substr(0, 3), L"Geh") << byte;
        EXPECT_EQ(line.substr(4), L"use") << byte;
    }
}
