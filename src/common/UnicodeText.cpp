#include "common/UnicodeText.h"

#include "common/UnitBlock.h"

#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>

namespace tarnquill {

namespace {

// ICU counts in 32-bit integers, so long texts go through it in pieces that end between characters.
constexpr std::size_t kPiece = std::size_t{1} << 28;

constexpr bool isLeadSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}
constexpr bool isTrailSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

std::size_t utf8PieceEnd(std::string_view text, std::size_t start) {
    if (text.size() - start <= kPiece) {
        return text.size();
    }
    auto end = start + kPiece;
    while (end > start + kPiece - 4 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
        --end;
    }
    return end;
}

std::size_t utf16PieceEnd(std::u16string_view text, std::size_t start) {
    if (text.size() - start <= kPiece) {
        return text.size();
    }
    const auto end = start + kPiece;
    return isLeadSurrogate(text[end - 1]) ? end - 1 : end;
}

constexpr bool isBetween(char byte, unsigned first, unsigned last) {
    return static_cast<unsigned char>(byte) - first <= last - first;
}

constexpr bool isContinuation(char byte) {
    return isBetween(byte, 0x80, 0xBF);
}

// The length of the well-formed sequence for one character outside ASCII at the text's start, or 0. The
// second byte's range excludes overlong forms, surrogates and what lies beyond U+10FFFF.
std::size_t sequenceLength(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0xC2 || text.size() < 2) {
        return 0;
    }
    if (lead < 0xE0) {
        return isContinuation(text[1]) ? 2 : 0;
    }
    if (lead < 0xF0) {
        return text.size() >= 3 &&
                       isBetween(text[1], lead == 0xE0 ? 0xA0 : 0x80, lead == 0xED ? 0x9F : 0xBF) &&
                       isContinuation(text[2])
                   ? 3
                   : 0;
    }
    return lead <= 0xF4 && text.size() >= 4 &&
                   isBetween(text[1], lead == 0xF0 ? 0x90 : 0x80, lead == 0xF4 ? 0x8F : 0xBF) &&
                   isContinuation(text[2]) && isContinuation(text[3])
               ? 4
               : 0;
}

// Eight bytes at a time, because most text is ASCII.
std::size_t asciiEnd(std::string_view text, std::size_t start) {
    for (std::uint64_t block = 0; start + sizeof block <= text.size(); start += sizeof block) {
        std::memcpy(&block, text.data() + start, sizeof block);
        if ((block & 0x8080'8080'8080'8080) != 0) {
            break;
        }
    }
    while (start < text.size() && static_cast<unsigned char>(text[start]) < 0x80) {
        ++start;
    }
    return start;
}

} // namespace

bool isWellFormedUTF8(std::string_view text) {
    for (auto position = asciiEnd(text, 0); position < text.size();) {
        const auto length = sequenceLength(text.substr(position));
        if (length == 0) {
            return false;
        }
        position = asciiEnd(text, position + length);
    }
    return true;
}

std::optional<std::u16string> utf16FromUTF8(std::string_view text) {
    std::u16string result(text.size(), u'\0');
    std::size_t written = 0;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = utf8PieceEnd(text, start);
        const auto room =
            static_cast<std::int32_t>(std::min<std::size_t>(result.size() - written, INT32_MAX));
        std::int32_t length = 0;
        auto error = U_ZERO_ERROR;
        u_strFromUTF8(result.data() + written, room, &length, text.data() + start,
                      static_cast<std::int32_t>(end - start), &error);
        if (U_FAILURE(error)) {
            return std::nullopt;
        }
        written += static_cast<std::size_t>(length);
        start = end;
    }
    result.resize(written);
    return result;
}

bool isWellFormedUTF16(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isLeadSurrogate(text[i]) && i + 1 < text.size() && isTrailSurrogate(text[i + 1])) {
            ++i;
        } else if (U16_IS_SURROGATE(text[i])) {
            return false;
        }
    }
    return true;
}

namespace {

// How many bytes a block takes beyond one for each unit, and how many surrogates in it follow their partner.
// Counters as narrow as the units, and no branches, let the compiler look at several units at once.
struct BlockCounts {
    std::uint16_t moreBytes = 0;
    std::uint16_t pairs = 0;
};

constexpr std::size_t kBlock = 16'384;

BlockCounts countBlock(std::u16string_view text, std::size_t start) {
    const auto end = std::min(start + kBlock, text.size());
    BlockCounts counts;
    for (auto i = start; i < end; ++i) {
        counts.moreBytes =
            static_cast<std::uint16_t>(counts.moreBytes + (text[i] >= 0x80) + (text[i] >= 0x800));
    }
    for (auto i = std::max<std::size_t>(start, 1); i < end; ++i) {
        const auto isPair = (isLeadSurrogate(text[i - 1]) ? 1U : 0U) & (isTrailSurrogate(text[i]) ? 1U : 0U);
        counts.pairs = static_cast<std::uint16_t>(counts.pairs + isPair);
    }
    return counts;
}

} // namespace

// A surrogate counts as three bytes, like any unit of its size, and a pair takes two less than two of them.
std::size_t utf8Length(std::u16string_view text) {
    auto length = text.size();
    const auto ascii = findUnit(text, 0, [](auto unit) { return unit >= u'\x80'; });
    for (auto start = ascii; start < text.size(); start += kBlock) {
        const auto counts = countBlock(text, start);
        length += counts.moreBytes;
        length -= std::size_t{2} * counts.pairs;
    }
    return length;
}

namespace {

// Writes the text's UTF-8 and tells how many surrogates had to be replaced.
std::string convertToUTF8(std::u16string_view text, std::size_t& replaced) {
    std::string result(utf8Length(text), '\0');
    std::size_t written = 0;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = utf16PieceEnd(text, start);
        const auto room =
            static_cast<std::int32_t>(std::min<std::size_t>(result.size() - written, INT32_MAX));
        std::int32_t length = 0;
        std::int32_t substitutions = 0;
        auto error = U_ZERO_ERROR;
        u_strToUTF8WithSub(result.data() + written, room, &length, text.data() + start,
                           static_cast<std::int32_t>(end - start), 0xFFFD, &substitutions, &error);
        written += static_cast<std::size_t>(length);
        replaced += static_cast<std::size_t>(substitutions);
        start = end;
    }
    result.resize(written);
    return result;
}

} // namespace

std::optional<std::string> utf8FromUTF16(std::u16string_view text) {
    std::size_t replaced = 0;
    auto result = convertToUTF8(text, replaced);
    return replaced == 0 ? std::optional(std::move(result)) : std::nullopt;
}

std::string lossyUTF8FromUTF16(std::u16string_view text) {
    std::size_t replaced = 0;
    return convertToUTF8(text, replaced);
}

} // namespace tarnquill
