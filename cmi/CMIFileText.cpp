#include "cmi/CMIFileText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <limits>
#include <string_view>

#include <zorbi2/ControlFileFormat.h>

#include "platform/Text.h"

namespace cmi {

namespace {

using Data = CZorbI2CMIData;

/// Each item but the one without an on/off line; in the order of the ids, which is the file's.
constexpr bool EachItemHasItsLine() {
    std::int32_t expected = 0;
    for (const ControlFileLine& line : kControlFileLines) {
        if (line.presence == ControlFilePresence::whenOffered) {
            expected += expected == kItemMicroMechanics ? 1 : 0;
            if (line.itemId != expected++) {
                return false;
            }
        }
    }
    return expected == kItemCount;
}
static_assert(EachItemHasItsLine());

/// The texts of a line before and after its value.
struct FixedTexts {
    std::string_view before;
    std::string_view after;
};

constexpr FixedTexts FixedTextsOf(const ControlFileLine& line) {
    const std::string_view format = line.text;
    if (line.value == ControlFileValue::none) {
        return {format, {}};
    }
    const std::size_t conversion = format.find('%');
    return {format.substr(0, conversion),
            format.substr(format.find_first_of("dsf", conversion) + 1)};
}

/// By line.
constexpr auto fixedTexts = [] {
    std::array<FixedTexts, std::size(kControlFileLines)> texts;
    std::ranges::transform(kControlFileLines, texts.begin(), FixedTextsOf);
    return texts;
}();

void AppendNumber(std::string& text, std::int32_t number) {
    std::array<char, std::numeric_limits<std::int32_t>::digits10 + 2> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    text.append(digits.data(), end.ptr);
}

bool IsMapped(const Data& data) {
    return data.IsMappedMesh == 1 || data.Is3DMappingShell == 1;
}

/// printf's texts end at a NUL byte.
std::string_view UpToNul(const std::string& text) {
    return text.c_str();
}

void AppendValue(std::string& text, const ControlFileLine& line, const Data& data) {
    switch (line.value) {
        case ControlFileValue::none:
            break;
        case ControlFileValue::number:
            AppendNumber(text,
                         line.itemId >= 0 ? data.OutputFlags[line.itemId] : data.*line.number);
            break;
        case ControlFileValue::decimal:
            text += platform::WithThreeDecimals(line.decimals != nullptr
                                                    ? (data.*line.decimals)[line.element]
                                                    : data.*line.decimal);
            break;
        case ControlFileValue::textIfMapped:
            text += IsMapped(data) ? UpToNul(data.*line.words) : " ";
            break;
        case ControlFileValue::text:
            text += UpToNul(data.*line.words);
            break;
    }
}

/// By item: in how many groups it is offered, for each of which its line is printed.
using Offers = std::array<std::int32_t, kItemCount>;

Offers CountOffers(const std::vector<std::int32_t>& itemIds) {
    Offers offers{};
    for (const std::int32_t itemId : itemIds) {
        if (static_cast<std::uint32_t>(itemId) < offers.size()) {
            ++offers[itemId];
        }
    }
    return offers;
}

/// How many times a line is in the file.
std::int32_t CountOf(const ControlFileLine& line, const Data& data, const Offers& offers) {
    switch (line.presence) {
        case ControlFilePresence::whenAnnealed:
            return data.IsAnnealingDeformedMesh == 1 ? 1 : 0;
        case ControlFilePresence::whenOffered:
            return offers[line.itemId];
        default:
            return 1;
    }
}

}  // namespace

std::string CMIFileText(const CZorbI2CMIData& data, const std::vector<std::int32_t>& itemIds) {
    constexpr std::size_t usualSize = 4000;  // one allocation
    const Offers offers = CountOffers(itemIds);
    std::string text;
    text.reserve(usualSize);
    for (std::size_t row = 0; row < fixedTexts.size(); ++row) {
        const ControlFileLine& line = kControlFileLines[row];
        for (std::int32_t copies = CountOf(line, data, offers); copies > 0; --copies) {
            text += fixedTexts[row].before;
            AppendValue(text, line, data);
            text += fixedTexts[row].after;
            text += '\n';
        }
    }
    return text;
}

}  // namespace cmi
