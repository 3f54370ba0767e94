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

// Whether the literal's nearest double is infinite.
[[nodiscard]] bool overflows(std::string_view literal);

// A quick test, true for nearly every number of a machine-written document: the literal has a fraction and no
// exponent, and looks exactly as a double or decimal of its value is printed.
[[nodiscard]] bool isPlain(std::string_view literal);

using Buffer = std::array<char, 32>;

// How the number is printed: a double with a fraction below 1e16 and from 1e-4 up, else with an exponent of
// at least two digits and a sign; an integer or a decimal as it is written. The result is the literal or lies
// in the buffer.
[[nodiscard]] std::string_view printed(std::string_view literal, Buffer& buffer);

} // namespace tarnquill::JSONNumber
