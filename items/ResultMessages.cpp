#include "items/ResultMessages.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

struct ResultMessage {
    ResultCode code;
    const char* text;
};

// Texts as hosts know them: case and full stops are uneven on purpose, 15 repeats -1, and -4 and
// -5 are answered by no check.
constexpr auto resultMessages = std::to_array<ResultMessage>({
    {-24, "No meeting angle information."},
    {-23, "No digimat information"},
    {-19, "No part insert fiber results."},
    {-18, "No file *.k5c"},
    {-17, "No moldbase nor file *.k5c."},
    {-16, "No moldbase nor file *.k5f"},
    {-15, "No moldbase"},
    {-14, "No inserted-part"},
    {-13, "No inserted-part nor file *.k5f"},
    {-10, "No file *_medi.crp"},
    {-9, "No file *.k5p"},
    {-8, "No file *.k5f"},
    {-7, "No file *.RSF"},
    {-6, "No file *.k5w"},
    {-5, "Ostra mesh exists"},
    {-4, "Ostra mesh exists and no file *.k5w"},
    {-3, "No runners"},
    {-2, "No file *.o2w"},
    {-1, "No fiber results."},
    {0, "No fiber results nor file *.o2w"},
    {15, "No fiber results."},
});

}  // namespace

void GetResultMessage(ResultCode code, std::string& text) {
    const auto row = std::ranges::find(resultMessages, code, &ResultMessage::code);
    text = row != resultMessages.end() ? row->text : "Unknown messages";
}
