// Reads a cell as a decimal number: an optional sign, digits with an optional fraction on either side of the
// point, and an optional exponent. Neither hexadecimal nor "inf" nor "nan" is one.
#pragma once

#include <optional>
#include <string_view>

namespace tarnquill::CSVNumber {

// Whether the whole text is a number.
[[nodiscard]] bool isNumber(std::string_view text);

// The nearest double; an infinity or a zero where the number is beyond a double's range.
[[nodiscard]] std::optional<double> read(std::string_view text);

} // namespace tarnquill::CSVNumber
