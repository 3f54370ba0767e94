// Exact reading of decimal digits (ASCII only).
#pragma once

#include <cstdint>
#include <string_view>

namespace tarnquill::Timestamp {

inline constexpr int kNanosecondDigits = 9;

[[nodiscard]] constexpr bool isDigit(char character) {
    return '0' <= character && character <= '9';
}

// The first `width` digits of a fraction, as if zeros followed it: "5" with the width 3 is 500, "1239" is
// 123. The text holds digits only; the width is at most 9.
[[nodiscard]] constexpr std::int32_t fractionValue(std::string_view digits, int width) {
    std::int32_t value = 0;
    for (std::size_t i = 0; i < static_cast<std::size_t>(width); ++i) {
        value = value * 10 + (i < digits.size() ? digits[i] - '0' : 0);
    }
    return value;
}

} // namespace tarnquill::Timestamp
