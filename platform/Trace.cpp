#include "platform/Trace.h"

#include <cstdlib>

#include "platform/PlatformCalls.h"

namespace platform {

namespace {

std::wstring Widened(const std::string& text) {
    constexpr auto notConvertible = static_cast<std::size_t>(-1);
    std::wstring wide(text.size(), L'\0');
    const std::size_t length = std::mbstowcs(wide.data(), text.c_str(), wide.size());
    if (length != notConvertible) {
        wide.resize(length);
        return wide;
    }
    wide.clear();
    for (const char byte : text) {
        wide.push_back(static_cast<unsigned char>(byte));
    }
    return wide;
}

}  // namespace

void Trace(const wchar_t* line) {
    if (const auto traceLine = CurrentCalls().traceLine) {
        traceLine(line);
    }
}

void TraceNarrow(const std::string& text) {
    if (const auto traceLine = CurrentCalls().traceLine) {
        traceLine(Widened(text).c_str());
    }
}

}  // namespace platform
