// Strict conversion between UTF-8 and UTF-16 (RFC 3629, RFC 2781).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnquill {

[[nodiscard]] bool isWellFormedUTF8(std::string_view text);

// Nothing when the bytes are not well-formed UTF-8. A byte-order mark is kept as U+FEFF.
[[nodiscard]] std::optional<std::u16string> utf16FromUTF8(std::string_view text);

// Nothing when the text holds a surrogate without its partner.
[[nodiscard]] std::optional<std::string> utf8FromUTF16(std::u16string_view text);

// Whether every surrogate has its partner.
[[nodiscard]] bool isWellFormedUTF16(std::u16string_view text);

// For texts that are only shown: each ill-formed sequence becomes U+FFFD.
[[nodiscard]] std::string lossyUTF8FromUTF16(std::u16string_view text);

// The number of bytes that the text takes as UTF-8; a lone surrogate counts as the three of U+FFFD.
[[nodiscard]] std::size_t utf8Length(std::u16string_view text);

} // namespace tarnquill
