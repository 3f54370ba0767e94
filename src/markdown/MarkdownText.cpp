#include "markdown/MarkdownText.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <array>
#include <cstdint>
#include <utility>

namespace tarnquill::Markdown {

namespace {

UChar32 characterAt(std::string_view text, std::size_t position) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    UChar32 character = 0;
    // NOLINTNEXTLINE(bugprone-inc-dec-in-conditions): the macro is written so
    U8_NEXT(bytes, position, text.size(), character);
    return character;
}

// The character that ends at the position, which moves to where the character starts.
UChar32 characterBefore(std::string_view text, std::size_t& position) {
    const auto end = position;
    do {
        --position;
    } while (position > 0 && end - position < U8_MAX_LENGTH &&
             (static_cast<unsigned char>(text[position]) & 0xC0) == 0x80);
    return characterAt(text.substr(0, end), position);
}

bool isWordCharacter(UChar32 character) {
    if (character < 0x80) {
        return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
               (character >= '0' && character <= '9') || character == '_';
    }
    constexpr std::uint32_t kMarksDigitsConnectors = U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK;
    constexpr UChar32 kZeroWidthNonJoiner = 0x200C;
    constexpr UChar32 kZeroWidthJoiner = 0x200D;
    return u_isUAlphabetic(character) != 0 || (U_GET_GC_MASK(character) & kMarksDigitsConnectors) != 0 ||
           character == kZeroWidthNonJoiner || character == kZeroWidthJoiner;
}

} // namespace

bool wordEndsBefore(std::string_view text, std::size_t position) {
    return position > 0 && isWordCharacter(characterBefore(text, position));
}

bool wordBeginsAt(std::string_view text, std::size_t position) {
    return position < text.size() && isWordCharacter(characterAt(text, position));
}

bool isWordStart(std::string_view text, std::size_t position) {
    while (position > 0) {
        const auto character = characterBefore(text, position);
        if (character < 0x80 || (u_hasBinaryProperty(character, UCHAR_GRAPHEME_EXTEND) == 0 &&
                                 u_charType(character) != U_FORMAT_CHAR)) {
            return !isWordCharacter(character);
        }
    }
    return true;
}

std::string_view withoutOuterBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

void appendEscaped(std::string& output, std::string_view text, Quotes quotes) {
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string_view entity;
        switch (text[i]) {
        case '&':
            entity = "&amp;";
            break;
        case '<':
            entity = "&lt;";
            break;
        case '>':
            entity = "&gt;";
            break;
        case '"':
            if (quotes == Quotes::escape) {
                entity = "&quot;";
            }
            break;
        default:
            break;
        }
        if (!entity.empty()) {
            output.append(text, start, i - start);
            output += entity;
            start = i + 1;
        }
    }
    output.append(text, start);
}

void appendUnescaped(std::string& output, std::string_view html) {
    constexpr std::array<std::pair<std::string_view, char>, 4> kEntities{
        {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}}};
    while (!html.empty()) {
        std::size_t length = 1;
        char character = html.front();
        for (const auto& [entity, meant] : kEntities) {
            if (html.starts_with(entity)) {
                length = entity.size();
                character = meant;
            }
        }
        output += character;
        html.remove_prefix(length);
    }
}

} // namespace tarnquill::Markdown
