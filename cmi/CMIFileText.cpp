#include "cmi/CMIFileText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <iterator>
#include <limits>
#include <string_view>
#include <utility>

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

/// What a line prints before or after its value. The number of bytes is fixed, so that copying them
/// takes a few moves and no call.
template <std::size_t longest>
struct Piece {
    constexpr Piece() = default;
    constexpr Piece(std::string_view text, std::string_view end) {
        for (const std::string_view part : {text, end}) {
            for (const char character : part) {
                bytes.at(size++) = character;
            }
        }
    }

    std::array<char, longest> bytes{};
    std::uint8_t size = 0;
};

struct alignas(64) FixedTexts {  // a line of the cache
    Piece<41> before;
    Piece<21> after;  ///< with the line end
};
static_assert(sizeof(FixedTexts) == 64);

constexpr FixedTexts FixedTextsOf(const ControlFileLine& line) {
    const std::string_view format = line.text;
    if (line.value == ControlFileValue::none) {
        return {{format, ""}, {"", "\n"}};
    }
    const std::size_t conversion = format.find('%');
    const std::size_t end = format.find_first_of("dsf", conversion) + 1;
    return {{format.substr(0, conversion), ""}, {format.substr(end), "\n"}};
}

/// By line.
constexpr auto fixedTexts = [] {
    std::array<FixedTexts, std::size(kControlFileLines)> texts;
    std::ranges::transform(kControlFileLines, texts.begin(), FixedTextsOf);
    return texts;
}();

/// The file's text as it grows. Room is made for a whole line, so that its pieces need no check.
class GrowingText {
public:
    void MakeRoom(std::size_t size) {
        if (bytes_.size() - size_ < size) {
            bytes_.resize(size_ + size + usualSize);
        }
    }

    template <std::size_t longest>
    void Append(const Piece<longest>& piece) {
        std::memcpy(End(), piece.bytes.data(), longest);
        size_ += piece.size;
    }
    void Append(std::string_view text) {
        text.copy(End(), text.size());
        size_ += text.size();
    }
    void Append(std::int32_t number) {
        size_ = std::to_chars(End(), End() + longestNumber, number).ptr - bytes_.data();
    }
    void Append(double decimal) {
        size_ = platform::PrintThreeDecimals(End(), decimal) - bytes_.data();
    }

    std::string Text() && {
        bytes_.resize(size_);
        return std::move(bytes_);
    }

    static constexpr std::size_t longestNumber = std::numeric_limits<std::int32_t>::digits10 + 2;

private:
    char* End() { return bytes_.data() + size_; }

    static constexpr std::size_t usualSize = 3500;  // one allocation
    std::string bytes_ = std::string(usualSize, '\0');
    std::size_t size_ = 0;
};

bool IsMapped(const Data& data) {
    return data.IsMappedMesh == 1 || data.Is3DMappingShell == 1;
}

/// printf's texts end at a NUL byte.
std::string_view UpToNul(const std::string& text) {
    return text.c_str();
}

/// Room for a line with any value but a text, which makes its own.
constexpr std::size_t roomForLine = sizeof(FixedTexts) + platform::kLongestDecimal;
static_assert(platform::kLongestDecimal > GrowingText::longestNumber);

void AppendText(GrowingText& text, std::string_view value) {
    text.MakeRoom(value.size() + roomForLine);
    text.Append(value);
}

void AppendValue(GrowingText& text, const ControlFileLine& line, const Data& data) {
    switch (line.value) {
        case ControlFileValue::none:
            break;
        case ControlFileValue::number:
            text.Append(line.itemId >= 0 ? data.OutputFlags[line.itemId] : data.*line.number);
            break;
        case ControlFileValue::decimal:
            text.Append(line.decimals != nullptr ? (data.*line.decimals)[line.element]
                                                 : data.*line.decimal);
            break;
        case ControlFileValue::textIfMapped:
            AppendText(text, IsMapped(data) ? UpToNul(data.*line.words) : " ");
            break;
        case ControlFileValue::text:
            AppendText(text, UpToNul(data.*line.words));
            break;
    }
}

/// By item: in how many groups it is offered, for each of which its line is printed.
using Offers = std::array<std::int32_t, kItemCount>;

Offers CountOffers(std::initializer_list<ItemGroup> groups) {
    Offers offers{};
    for (const ItemGroup group : groups) {
        for (const std::int32_t itemId : group) {
            if (static_cast<std::uint32_t>(itemId) < offers.size()) {
                ++offers[itemId];
            }
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

std::string CMIFileText(const CZorbI2CMIData& data, std::initializer_list<ItemGroup> groups) {
    const Offers offers = CountOffers(groups);
    GrowingText text;
    for (std::size_t row = 0; row < fixedTexts.size(); ++row) {
        const ControlFileLine& line = kControlFileLines[row];
        for (std::int32_t copies = CountOf(line, data, offers); copies > 0; --copies) {
            text.MakeRoom(roomForLine);
            text.Append(fixedTexts[row].before);
            AppendValue(text, line, data);
            text.Append(fixedTexts[row].after);
        }
    }
    return std::move(text).Text();
}

}  // namespace cmi
