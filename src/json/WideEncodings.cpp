#include "json/WideEncodings.h"

#include "common/UnicodeText.h"

#include <cstddef>

namespace tarnquill {

namespace {

std::optional<std::u16string> utf16FromWide(std::string_view bytes, std::size_t width, bool isBigEndian) {
    if (bytes.size() % width != 0) {
        return std::nullopt;
    }
    std::u16string text;
    text.reserve(bytes.size() / width);
    for (std::size_t i = 0; i < bytes.size(); i += width) {
        char32_t code = 0;
        for (std::size_t k = 0; k < width; ++k) {
            const auto byte = bytes[i + (isBigEndian ? k : width - 1 - k)];
            code = (code << 8) | static_cast<unsigned char>(byte);
        }
        const bool isSurrogate = code >= 0xD800 && code < 0xE000;
        if (code > 0x10FFFF || (isSurrogate && width > 2)) {
            return std::nullopt;
        }
        if (code > 0xFFFF) {
            text += static_cast<char16_t>(0xD7C0 + (code >> 10));
            text += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
        } else {
            text += static_cast<char16_t>(code);
        }
    }
    return text;
}

} // namespace

std::optional<std::string> utf8FromWide(std::string_view bytes, WideEncoding encoding) {
    const bool isWidest =
        encoding == WideEncoding::utf32BigEndian || encoding == WideEncoding::utf32LittleEndian;
    const bool isBigEndian =
        encoding == WideEncoding::utf32BigEndian || encoding == WideEncoding::utf16BigEndian;
    const auto text = utf16FromWide(bytes, isWidest ? 4 : 2, isBigEndian);
    return text ? utf8FromUTF16(*text) : std::nullopt;
}

} // namespace tarnquill
