// Shot files of any bytes: the reader must find what the runtime's own line and token functions
// find, with the state that those keep between lines.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "platform/Text.h"
#include "results/ShotFile.h"
#include "tests/fuzz/MemoryPlatform.h"
#include "tests/support/TemporaryStream.h"

namespace {

struct Values {
    std::int32_t flagPrevShot;
    std::int32_t valueShotRunID;
};

/// The C way: fixed fields, strtok, and a scan for each known key.
void ReadBlockWithStrtok(std::FILE* file, Values& values) {
    char line[1024];
    char key[1024] = "";
    char value[1024] = "";
    while (std::fgets(line, sizeof line, file) != nullptr) {
        if (std::strstr(line, "</SOLID_MCM>") != nullptr) {
            return;
        }
        if (const char* first = std::strtok(line, "=")) {
            std::snprintf(key, 256, "%s", first);
            if (const char* second = std::strtok(nullptr, "=")) {
                std::snprintf(value, 256, "%s", second);
            }
        }
        for (std::size_t end = std::strlen(key); end > 0 && key[end - 1] == ' '; --end) {
            key[end - 1] = '\0';
        }
        if (platform::EqualIgnoringCase(key, "FlagPrevShot")) {
            std::sscanf(value, "%d", &values.flagPrevShot);
        } else if (platform::EqualIgnoringCase(key, "ValueShotRunID")) {
            std::sscanf(value, "%d", &values.valueShotRunID);
        }
    }
}

Values ReadWithStrtok(const std::string& bytes, Values values) {
    std::FILE* file = support::OpenTemporaryStream(bytes);
    char line[1024];
    while (std::fgets(line, sizeof line, file) != nullptr) {
        if (std::strstr(line, "<SOLID_MCM>") != nullptr) {
            ReadBlockWithStrtok(file, values);
        }
    }
    std::fclose(file);
    return values;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    fuzz::MemoryPlatform files;
    files.readable = &bytes;
    Values found{7, 8};
    results::ReadShotFile(CZorbFEAInformation(), found.flagPrevShot, found.valueShotRunID);
    const Values expected = ReadWithStrtok(bytes, {7, 8});
    if (found.flagPrevShot != expected.flagPrevShot ||
        found.valueShotRunID != expected.valueShotRunID) {
        std::fprintf(stderr, "found %d %d, expected %d %d\n", found.flagPrevShot,
                     found.valueShotRunID, expected.flagPrevShot, expected.valueShotRunID);
        fuzz::Break("the reader finds what strtok finds");
    }
    return 0;
}
