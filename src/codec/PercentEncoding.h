// Percent-encoding of everything outside the unreserved characters (RFC 3986, section 2).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnquill::PercentEncoding {

// How a space is written: "%20", or "+" as forms and query strings do.
enum class Space : std::uint8_t { percent, plus };

[[nodiscard]] std::string encode(std::string_view bytes, Space space);

// Nothing when a "%" is not followed by two hex digits, or when the result is not well-formed UTF-8. White
// space at either end is dropped first; "+" is a space only with Space::plus.
[[nodiscard]] std::optional<std::string> decode(std::string_view text, Space space);

} // namespace tarnquill::PercentEncoding
