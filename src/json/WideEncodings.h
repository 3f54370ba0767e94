// The encodings of JSON whose characters are two or four bytes wide, without a byte-order mark.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnquill {

enum class WideEncoding : std::uint8_t {
    utf32BigEndian,
    utf32LittleEndian,
    utf16BigEndian,
    utf16LittleEndian
};

// In the order in which bytes of an unknown encoding are tried.
inline constexpr std::array kWideEncodings{WideEncoding::utf32BigEndian, WideEncoding::utf32LittleEndian,
                                           WideEncoding::utf16BigEndian, WideEncoding::utf16LittleEndian};

// Nothing when the bytes are not well-formed in the encoding.
[[nodiscard]] std::optional<std::string> utf8FromWide(std::string_view bytes, WideEncoding encoding);

} // namespace tarnquill
