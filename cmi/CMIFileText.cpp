#include "cmi/CMIFileText.h"

#include <algorithm>
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

std::string NumberOf(const ControlFileLine& line, const Data& data) {
    const bool isItem = line.presence == ControlFilePresence::whenOffered;
    return std::to_string(isItem ? data.OutputFlags[line.itemId] : data.*line.number);
}

std::string DecimalOf(const ControlFileLine& line, const Data& data) {
    return platform::WithThreeDecimals(
        line.decimals != nullptr ? (data.*line.decimals)[line.element] : data.*line.decimal);
}

bool IsMapped(const Data& data) {
    return data.IsMappedMesh == 1 || data.Is3DMappingShell == 1;
}

/// printf's texts end at a NUL byte.
std::string UpToNul(const std::string& text) {
    return text.substr(0, text.find('\0'));
}

std::string ValueOf(const ControlFileLine& line, const Data& data) {
    switch (line.value) {
        case ControlFileValue::number:
            return NumberOf(line, data);
        case ControlFileValue::decimal:
            return DecimalOf(line, data);
        case ControlFileValue::textIfMapped:
            return IsMapped(data) ? UpToNul(data.*line.words) : " ";
        default:
            return UpToNul(data.*line.words);
    }
}

void AppendLine(std::string& text, const ControlFileLine& line, const Data& data) {
    const std::string_view format = line.text;
    if (line.value == ControlFileValue::none) {
        text += format;
    } else {
        const std::size_t conversion = format.find('%');
        text += format.substr(0, conversion);
        text += ValueOf(line, data);
        text += format.substr(format.find_first_of("dsf", conversion) + 1);
    }
    text += '\n';
}

/// How many times a line is in the file. An item that is offered in two groups is printed twice.
std::ptrdiff_t CountOf(const ControlFileLine& line, const Data& data,
                       const std::vector<std::int32_t>& itemIds) {
    switch (line.presence) {
        case ControlFilePresence::whenAnnealed:
            return data.IsAnnealingDeformedMesh == 1 ? 1 : 0;
        case ControlFilePresence::whenOffered:
            return std::ranges::count(itemIds, line.itemId);
        default:
            return 1;
    }
}

}  // namespace

std::string CMIFileText(const CZorbI2CMIData& data, const std::vector<std::int32_t>& itemIds) {
    std::string text;
    for (const ControlFileLine& line : kControlFileLines) {
        for (std::ptrdiff_t copies = CountOf(line, data, itemIds); copies > 0; --copies) {
            AppendLine(text, line, data);
        }
    }
    return text;
}

}  // namespace cmi
