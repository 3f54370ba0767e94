#include "csv/CSVText.h"

#include "common/TextDecoding.h"
#include "common/UnicodeText.h"

#include <array>
#include <utility>

namespace tarnquill::CSVText {

namespace {

// What the bytes from 80 to 9F stand for (WHATWG Encoding Standard, index windows-1252); all others are
// Latin-1.
constexpr std::array<char16_t, 32> kWindowsCharacters{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void appendUTF8(std::string& text, char16_t character) {
    const auto append = [&text](unsigned byte) { text.push_back(static_cast<char>(byte)); };
    if (character < 0x800) {
        append(0xC0U | character >> 6);
    } else {
        append(0xE0U | character >> 12);
        append(0x80U | (character >> 6 & 0x3F));
    }
    append(0x80U | (character & 0x3F));
}

std::string utf8FromWindows1252(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const auto byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x80) {
            text.push_back(byte);
        } else {
            appendUTF8(text, code < 0xA0 ? kWindowsCharacters[code - 0x80U] : static_cast<char16_t>(code));
        }
    }
    return text;
}

} // namespace

std::string_view name(Encoding encoding) {
    switch (encoding) {
    case Encoding::utf8:
        return "UTF-8";
    case Encoding::utf8WithMark:
        return "UTF-8 with BOM";
    case Encoding::utf16:
        return "UTF-16";
    case Encoding::windows1252:
        return "Windows-1252";
    }
    std::unreachable();
}

Encoding encodingOf(std::string_view bytes) {
    const auto mark = encodingByMark(bytes);
    if (mark == TextEncoding::utf16LittleEndian || mark == TextEncoding::utf16BigEndian) {
        return Encoding::utf16;
    }
    if (!isWellFormedUTF8(bytes)) {
        return Encoding::windows1252;
    }
    return mark == TextEncoding::utf8WithMark ? Encoding::utf8WithMark : Encoding::utf8;
}

std::optional<std::string> utf8Text(std::string bytes, Encoding encoding) {
    switch (encoding) {
    case Encoding::utf8:
    case Encoding::utf8WithMark:
        return bytes;
    case Encoding::utf16:
        if (const auto decoded = decodeText(bytes)) {
            return utf8FromUTF16(decoded->text);
        }
        return std::nullopt;
    case Encoding::windows1252:
        return utf8FromWindows1252(bytes);
    }
    std::unreachable();
}

} // namespace tarnquill::CSVText
