// Tells the encoding of a file's bytes and decodes them: UTF-8 (RFC 3629), or UTF-16 (RFC 2781) with a
// byte-order mark.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnquill {

enum class TextEncoding : std::uint8_t { utf8, utf8WithMark, utf16LittleEndian, utf16BigEndian };

// What the byte-order mark says, and UTF-8 when there is none. The bytes after it need not be well-formed.
[[nodiscard]] TextEncoding encodingByMark(std::string_view bytes);

// The text without the UTF-8 byte-order mark that it may begin with.
[[nodiscard]] std::string_view withoutByteOrderMark(std::string_view text);

struct DecodedText {
    std::u16string text; // without the byte-order mark
    TextEncoding encoding;
};

// Nothing when the bytes are not well-formed in the encoding that encodingByMark() gives.
[[nodiscard]] std::optional<DecodedText> decodeText(std::string_view bytes);

} // namespace tarnquill
