#include "items/ResultMessages.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace items {

namespace {

struct ResultMessage {
    ResultCode code;
    const char* text;
};

constexpr const char* unknown = "Unknown messages";

// Texts as hosts know them; uneven case and periods are deliberate.
constexpr auto resultMessages = std::to_array<ResultMessage>({
    {kResultNoK5s, unknown},
    {kResultNeitherK5pNorK5c, unknown},
    {kResultNeitherRsfNorK5w, unknown},
    {kResultNoMeetingAngle, "No meeting angle information."},
    {kResultNoDigimatInformation, "No digimat information"},
    {-22, unknown},
    {-21, unknown},
    {-20, unknown},
    {kResultNoInsertFiberResults, "No part insert fiber results."},
    {kResultNoK5c, "No file *.k5c"},
    {kResultNoMoldbaseNorK5c, "No moldbase nor file *.k5c."},
    {kResultNoMoldbaseNorK5f, "No moldbase nor file *.k5f"},
    {kResultNoMoldbase, "No moldbase"},
    {kResultNoInsert, "No inserted-part"},
    {kResultNoInsertNorK5f, "No inserted-part nor file *.k5f"},
    {-12, unknown},
    {kResultNoCheck, unknown},
    {kResultNoMediCrp, "No file *_medi.crp"},
    {kResultNoK5p, "No file *.k5p"},
    {kResultNoK5f, "No file *.k5f"},
    {kResultNoRsf, "No file *.RSF"},
    {kResultNoK5w, "No file *.k5w"},
    {kResultOstraMesh, "Ostra mesh exists"},
    {kResultOstraMeshAndNoK5w, "Ostra mesh exists and no file *.k5w"},
    {kResultNoRunners, "No runners"},
    {kResultNoO2w, "No file *.o2w"},
    {kResultNoFiberResults, "No fiber results."},
    {kResultNoFiberResultsNorO2w, "No fiber results nor file *.o2w"},
    {kResultAvailable, unknown},
    {kResultNoFiberResultsEither, "No fiber results."},
});

constexpr bool EachCodeHasItsRow() {
    for (ResultCode code = kResultLowest; code <= kResultAvailable; ++code) {
        if (resultMessages[code - kResultLowest].code != code) {
            return false;
        }
    }
    return true;
}
static_assert(EachCodeHasItsRow());

}  // namespace

void GetResultMessage(ResultCode code, std::string& text) {
    const auto row = std::ranges::find(resultMessages, code, &ResultMessage::code);
    text = row != resultMessages.end() ? row->text : unknown;
}

}  // namespace items
