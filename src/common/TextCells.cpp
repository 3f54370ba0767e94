#include "common/TextCells.h"

#include "common/Graphemes.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace tarnquill::TextCells {

namespace {

constexpr char16_t kReplacement = u'\uFFFD';
constexpr char16_t kInvisible = u'\u25C7';
constexpr char16_t kControlPictures = u'\u2400';
constexpr char16_t kDeletePicture = u'\u2421';
constexpr char16_t kEmojiStyle = u'\uFE0F';

// Joiners and variation selectors are format characters too, but scripts and emoji are written with them.
bool isHarmlessFormat(char16_t unit) {
    return unit == u'\u200C' || unit == u'\u200D' || (unit >= u'\u0600' && unit <= u'\u0605') ||
           unit == u'\u06DD' || unit == u'\u070F';
}

} // namespace

std::size_t width(std::u16string_view cluster) {
    const auto first = Graphemes::codePoint(cluster, 0);
    if (first < 0x300) {
        return cluster.find(kEmojiStyle) == std::u16string_view::npos ? 1 : 2;
    }
    const auto character = static_cast<UChar32>(first);
    switch (u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH)) {
    case U_EA_WIDE:
    case U_EA_FULLWIDTH:
        return 2;
    default:
        break;
    }
    const auto emoji = cluster.find(kEmojiStyle) != std::u16string_view::npos;
    const auto flag = cluster.size() >= 4 && u_hasBinaryProperty(character, UCHAR_REGIONAL_INDICATOR) != 0;
    return emoji || flag ? 2 : 1;
}

char16_t drawn(std::u16string_view text, std::size_t at) {
    const auto unit = text[at];
    if (unit < 0x20) {
        return unit == u'\t' ? unit : static_cast<char16_t>(kControlPictures + unit);
    }
    if (unit < 0x7F) {
        return unit;
    }
    if (unit == 0x7F) {
        return kDeletePicture;
    }
    if (U16_IS_SURROGATE(unit)) {
        const auto paired = U16_IS_SURROGATE_LEAD(unit) ? at + 1 < text.size() && U16_IS_TRAIL(text[at + 1])
                                                        : at > 0 && U16_IS_LEAD(text[at - 1]);
        return paired ? unit : kReplacement;
    }
    switch (u_charType(unit)) {
    case U_CONTROL_CHAR:
    case U_UNASSIGNED:
        return kReplacement;
    case U_FORMAT_CHAR:
        return isHarmlessFormat(unit) ? unit : kInvisible;
    case U_LINE_SEPARATOR:
    case U_PARAGRAPH_SEPARATOR:
        return kInvisible;
    default:
        return unit;
    }
}

} // namespace tarnquill::TextCells
