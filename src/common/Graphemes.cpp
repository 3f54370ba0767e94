#include "common/Graphemes.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace tarnquill::Graphemes {

namespace {

constexpr bool isLead(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}

constexpr bool isTrail(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

// Characters that neither join nor are joined.
constexpr bool isPlain(char16_t unit) {
    return unit >= 0x20 && unit < 0x7F;
}

constexpr std::size_t unitsOf(char32_t character) {
    return character > 0xFFFF ? 2 : 1;
}

UGraphemeClusterBreak breakProperty(char32_t character) {
    return static_cast<UGraphemeClusterBreak>(
        u_getIntPropertyValue(static_cast<UChar32>(character), UCHAR_GRAPHEME_CLUSTER_BREAK));
}

bool isPictographic(char32_t character) {
    return u_hasBinaryProperty(static_cast<UChar32>(character), UCHAR_EXTENDED_PICTOGRAPHIC) != 0;
}

bool isControl(UGraphemeClusterBreak property) {
    return property == U_GCB_CONTROL || property == U_GCB_CR || property == U_GCB_LF;
}

// Rules GB3 to GB9b, which need no more than the two characters.
bool joins(UGraphemeClusterBreak before, UGraphemeClusterBreak after) {
    if (before == U_GCB_CR && after == U_GCB_LF) {
        return true;
    }
    if (isControl(before) || isControl(after)) {
        return false;
    }
    switch (after) {
    case U_GCB_EXTEND:
    case U_GCB_ZWJ:
    case U_GCB_SPACING_MARK:
        return true;
    case U_GCB_L:
    case U_GCB_LV:
    case U_GCB_LVT:
        return before == U_GCB_L || before == U_GCB_PREPEND;
    case U_GCB_V:
        return before == U_GCB_L || before == U_GCB_V || before == U_GCB_LV || before == U_GCB_PREPEND;
    case U_GCB_T:
        return before == U_GCB_V || before == U_GCB_T || before == U_GCB_LV || before == U_GCB_LVT ||
               before == U_GCB_PREPEND;
    default:
        return before == U_GCB_PREPEND;
    }
}

// Whether two characters may belong together at all, in whatever they stand.
bool mayJoin(char32_t before, char32_t after) {
    const auto left = breakProperty(before);
    const auto right = breakProperty(after);
    return joins(left, right) || (left == U_GCB_REGIONAL_INDICATOR && right == U_GCB_REGIONAL_INDICATOR) ||
           (left == U_GCB_ZWJ && isPictographic(after));
}

} // namespace

char32_t codePoint(std::u16string_view text, std::size_t at) {
    const auto unit = text[at];
    if (isLead(unit) && at + 1 < text.size() && isTrail(text[at + 1])) {
        return 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{text[at + 1]} - 0xDC00);
    }
    return unit;
}

std::size_t end(std::u16string_view text, std::size_t at) {
    if (isPlain(text[at]) && (at + 1 == text.size() || isPlain(text[at + 1]))) {
        return at + 1;
    }
    auto character = codePoint(text, at);
    auto property = breakProperty(character);
    auto pictographic = isPictographic(character);
    auto flags = property == U_GCB_REGIONAL_INDICATOR ? 1 : 0;
    auto position = at + unitsOf(character);
    while (position < text.size() && position < at + kLongest) {
        const auto next = codePoint(text, position);
        const auto nextProperty = breakProperty(next);
        const auto nextPictographic = isPictographic(next);
        const auto pair = flags == 1 && nextProperty == U_GCB_REGIONAL_INDICATOR;
        const auto sequence = pictographic && property == U_GCB_ZWJ && nextPictographic;
        if (!joins(property, nextProperty) && !pair && !sequence) {
            break;
        }
        flags = pair ? 2 : flags;
        // Marks and joiners after a pictograph leave it open for the next one.
        pictographic =
            nextPictographic || (pictographic && (nextProperty == U_GCB_EXTEND || nextProperty == U_GCB_ZWJ));
        property = nextProperty;
        position += unitsOf(next);
    }
    return position;
}

std::size_t start(std::u16string_view text, std::size_t at) {
    if (at == 0 || at >= text.size() || (isPlain(text[at]) && isPlain(text[at - 1]))) {
        return std::min(at, text.size());
    }
    // Back to a place where a cluster begins for certain, then forward again.
    const auto earliest = at > 2 * kLongest ? at - 2 * kLongest : 0;
    auto position = at;
    while (position > earliest) {
        const auto inPair = isTrail(text[position]) && isLead(text[position - 1]);
        if (!inPair) {
            const auto previous = isTrail(text[position - 1]) && position > 1 && isLead(text[position - 2])
                                      ? position - 2
                                      : position - 1;
            if (!mayJoin(codePoint(text, previous), codePoint(text, position))) {
                break;
            }
        }
        --position;
    }
    if (position > 0 && isTrail(text[position]) && isLead(text[position - 1])) {
        --position;
    }
    for (auto next = end(text, position); next <= at; next = end(text, position)) {
        position = next;
    }
    return position;
}

} // namespace tarnquill::Graphemes
