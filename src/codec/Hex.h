// Bytes as pairs of hex digits: plain writing, and reading of the ways in which people separate and prefix
// them.
#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

namespace tarnquill::Hex {

inline constexpr std::string_view kDigits = "0123456789abcdef";

enum class Failure : std::uint8_t { notHex, oddLength };

// Two lowercase digits a byte, without separators.
[[nodiscard]] std::string encode(std::string_view bytes);

// Digits of either case. "0x" is deleted wherever it stands, then "\x", then white space, colons, commas and
// dashes; what is left has to be digits, an even number of them. The digits are checked before their number.
[[nodiscard]] std::expected<std::string, Failure> decode(std::string_view text);

// The two digits of a byte.
[[nodiscard]] const char* digitsOf(char byte);

// The byte that two digits stand for, or nothing when one is no digit.
[[nodiscard]] std::optional<char> byteOf(char high, char low);

} // namespace tarnquill::Hex
