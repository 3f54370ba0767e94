#include "common/TextDecoding.h"

#include "common/UnicodeText.h"

#include <bit>
#include <cstring>

namespace tarnquill {

namespace {

constexpr std::string_view kUTF8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

// Nothing when the bytes end in half a unit or hold a surrogate without its partner.
std::optional<std::u16string> utf16FromBytes(std::string_view bytes, std::endian order) {
    if (bytes.size() % 2 != 0) {
        return std::nullopt;
    }
    std::u16string text(bytes.size() / 2, u'\0');
    std::memcpy(text.data(), bytes.data(), bytes.size());
    if (order != std::endian::native) {
        for (auto& unit : text) {
            unit = static_cast<char16_t>((unit << 8) | (unit >> 8));
        }
    }
    return isWellFormedUTF16(text) ? std::optional(std::move(text)) : std::nullopt;
}

} // namespace

TextEncoding encodingByMark(std::string_view bytes) {
    if (bytes.starts_with(kUTF8Mark)) {
        return TextEncoding::utf8WithMark;
    }
    if (bytes.starts_with(kLittleEndianMark)) {
        return TextEncoding::utf16LittleEndian;
    }
    return bytes.starts_with(kBigEndianMark) ? TextEncoding::utf16BigEndian : TextEncoding::utf8;
}

std::string_view withoutByteOrderMark(std::string_view text) {
    return text.starts_with(kUTF8Mark) ? text.substr(kUTF8Mark.size()) : text;
}

std::optional<DecodedText> decodeText(std::string_view bytes) {
    const auto encoding = encodingByMark(bytes);
    std::optional<std::u16string> text;
    switch (encoding) {
    case TextEncoding::utf8:
        text = utf16FromUTF8(bytes);
        break;
    case TextEncoding::utf8WithMark:
        text = utf16FromUTF8(withoutByteOrderMark(bytes));
        break;
    case TextEncoding::utf16LittleEndian:
        text = utf16FromBytes(bytes.substr(kLittleEndianMark.size()), std::endian::little);
        break;
    case TextEncoding::utf16BigEndian:
        text = utf16FromBytes(bytes.substr(kBigEndianMark.size()), std::endian::big);
        break;
    }
    if (!text) {
        return std::nullopt;
    }
    return DecodedText{.text = std::move(*text), .encoding = encoding};
}

} // namespace tarnquill
