// Preloaded into zorbi2: an engine that writes another text than it should. Where its file has the
// text of ZORBI2_WRONG_FROM it gets that of ZORBI2_WRONG_TO.
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <string>

extern "C" [[gnu::visibility("default")]] int fputs(const char* text, std::FILE* stream) {
    using Function = int (*)(const char*, std::FILE*);
    static const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "fputs"));
    const char* const from = std::getenv("ZORBI2_WRONG_FROM");
    std::string wrong = text;
    const std::size_t place = from == nullptr ? std::string::npos : wrong.find(from);
    if (place != std::string::npos) {
        wrong.replace(place, std::string(from).size(), std::getenv("ZORBI2_WRONG_TO"));
    }
    return original(wrong.c_str(), stream);
}
