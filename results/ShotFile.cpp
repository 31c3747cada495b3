#include "results/ShotFile.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <string>

#include "platform/Files.h"
#include "platform/Text.h"
#include "platform/Trace.h"
#include "results/RunFiles.h"

namespace results {

namespace {

/// A longer line is read in pieces, each treated as a line of its own.
using Line = std::array<char, 1024>;

bool ReadLine(std::FILE* file, Line& line) {
    return std::fgets(line.data(), static_cast<int>(line.size()), file) != nullptr;
}

bool Contains(const Line& line, const char* text) {
    return std::strstr(line.data(), text) != nullptr;
}

/// Splits like strtok on "=", without its hidden state: skips "=" characters, copies what follows
/// them into the field, and gives the place after it. No token leaves the field as it was.
const char* TakeToken(const char* text, std::string& field) {
    constexpr std::size_t longestField = 255;
    const char* token = text + std::strspn(text, "=");
    const std::size_t length = std::strcspn(token, "=");
    if (length > 0) {
        field.assign(token, std::min(length, longestField));
    }
    return token + length;
}

void TrimTrailingSpaces(std::string& text) {
    text.erase(text.find_last_not_of(' ') + 1);
}

/// A value without a number leaves the variable as it was.
void ParseInteger(const std::string& value, std::int32_t& variable) {
    std::sscanf(value.c_str(), "%d", &variable);
}

void ReadBlock(std::FILE* file, std::int32_t& flagPrevShot, std::int32_t& valueShotRunID) {
    // Not cleared between lines: a line without key or value applies what they still hold.
    std::string key;
    std::string value;
    Line line{};
    while (ReadLine(file, line) && !Contains(line, "</SOLID_MCM>")) {
        TakeToken(TakeToken(line.data(), key), value);
        TrimTrailingSpaces(key);
        if (platform::EqualIgnoringCase(key, "FlagPrevShot")) {
            ParseInteger(value, flagPrevShot);
        } else if (platform::EqualIgnoringCase(key, "ValueShotRunID")) {
            ParseInteger(value, valueShotRunID);
        }
    }
}

}  // namespace

void ReadShotFile(const CZorbFEAInformation& info, std::int32_t& flagPrevShot,
                  std::int32_t& valueShotRunID) {
    const std::string path = ResultBasePath(info) + ".cmx";
    platform::Trace(L"@@@ Engine read cmx file");
    platform::TraceNarrow(path);
    std::FILE* file = platform::OpenForReading(path);
    if (file == nullptr) {
        return;
    }
    Line line{};
    while (ReadLine(file, line)) {
        if (Contains(line, "<SOLID_MCM>")) {
            ReadBlock(file, flagPrevShot, valueShotRunID);
        }
    }
    // The stream stays open: deliberate, see docs/quirks.md.
}

}  // namespace results
