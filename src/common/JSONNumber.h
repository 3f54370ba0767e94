// The written forms of JSON numbers (RFC 8259, section 6). Every function takes a literal that follows the
// grammar.
//
// A number with a fraction or an exponent counts as a double when the shortest form of its nearest double has
// the literal's own significant digits and power of ten; every other one is a decimal, which holds all of its
// digits.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tarnquill::JSONNumber {

// Numbers with more digits than this before the point are printed with an exponent.
inline constexpr std::size_t kMostPositionalDigits = 16;

// Whether the literal's nearest double is infinite.
[[nodiscard]] bool overflows(std::string_view literal);

// A quick test, true for nearly every number with a fraction and without an exponent in a machine-written
// document: whether it looks exactly as a double or decimal of its value is printed. Takes the digits before
// and behind its point.
[[nodiscard]] inline bool isPlain(std::string_view whole, std::string_view fraction) {
    const bool isSmall = whole.front() == '0' && fraction.starts_with("0000");
    return !isSmall && whole.size() <= kMostPositionalDigits &&
           (fraction.back() != '0' || fraction.size() == 1);
}

using Buffer = std::array<char, 32>;

// How the number is printed: a double with a fraction below 1e16 and from 1e-4 up, else with an exponent of
// at least two digits and a sign; an integer or a decimal as it is written. The result is the literal or lies
// in the buffer.
[[nodiscard]] std::string_view printed(std::string_view literal, Buffer& buffer);

} // namespace tarnquill::JSONNumber
