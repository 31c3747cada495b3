// A program of its own, since it must not define a debugger output: on POSIX, trace lines then go
// nowhere.
#include <gtest/gtest.h>

#include "platform/PlatformCalls.h"
#include "platform/Trace.h"

extern "C" [[gnu::weak]] void OutputDebugStringW(const wchar_t* line);

TEST(SilentTrace, HostWithoutDebuggerOutputHearsNothing) {
    ASSERT_TRUE(OutputDebugStringW == nullptr) << "this program brings a debugger output";
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    platform::Trace(L"@@@ Engine read cmx file");
    platform::TraceNarrow("D:\\Proj\\Run03\\Cover03.cmx");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
