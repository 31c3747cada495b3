// Runs a part of a test in a locale that a host may have set. The names differ from system to
// system; a locale that is not installed fails the test.
#pragma once

#include <clocale>
#include <stdexcept>
#include <string>

namespace support {

#ifdef _WIN32
constexpr const char* kGermanLocale = "German_Germany.1252";   ///< decimal comma
constexpr const char* kTurkishLocale = "Turkish_Turkey.1254";  ///< "i" is not the small "I"
constexpr const char* kMultiByteLocale = "Japanese_Japan.932";
constexpr const char* kGermanSmallA = "\xe4";  ///< a umlaut in the German locale's encoding
#else
constexpr const char* kGermanLocale = "de_DE.UTF-8";
constexpr const char* kTurkishLocale = "tr_TR.UTF-8";
constexpr const char* kMultiByteLocale = "C.UTF-8";
constexpr const char* kGermanSmallA = "\xc3\xa4";
#endif

/// A lead byte without its second byte in the one multi-byte encoding, a stray byte in the other.
constexpr const char* kNotInMultiByteLocale = "\x81";

/// The locale of the process for the length of a scope.
class HostLocale {
public:
    explicit HostLocale(const char* name) : previous_(std::setlocale(LC_ALL, nullptr)) {
        if (std::setlocale(LC_ALL, name) == nullptr) {
            throw std::runtime_error(std::string("the locale is not installed: ") + name);
        }
    }
    ~HostLocale() { std::setlocale(LC_ALL, previous_.c_str()); }
    HostLocale(const HostLocale&) = delete;
    HostLocale& operator=(const HostLocale&) = delete;

private:
    std::string previous_;
};

}  // namespace support
