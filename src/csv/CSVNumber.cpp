#include "csv/CSVNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

namespace tarnquill::CSVNumber {

namespace {

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool isSign(char c) {
    return c == '+' || c == '-';
}

std::size_t digitsEnd(std::string_view text, std::size_t start) {
    while (start < text.size() && isDigit(text[start])) {
        ++start;
    }
    return start;
}

// Whether a number that is out of a double's range is too large rather than too small.
bool isHuge(std::string_view unsignedText) {
    const auto mantissaEnd = std::min(unsignedText.find_first_of("eE"), unsignedText.size());
    const auto mantissa = unsignedText.substr(0, mantissaEnd);
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto firstDigit = static_cast<std::int64_t>(mantissa.find_first_not_of("0."));
    auto exponentText = unsignedText.substr(std::min(mantissaEnd + 1, unsignedText.size()));
    const auto isNegative = exponentText.starts_with('-');
    if (exponentText.starts_with('+')) {
        exponentText.remove_prefix(1);
    }
    std::int64_t exponent = 0;
    const auto [end, error] =
        std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    if (error == std::errc::result_out_of_range) {
        return !isNegative;
    }
    return exponent > firstDigit - point;
}

} // namespace

bool isNumber(std::string_view text) {
    std::size_t i = !text.empty() && isSign(text[0]) ? 1 : 0;
    const auto wholeEnd = digitsEnd(text, i);
    auto digits = wholeEnd - i;
    i = wholeEnd;
    if (i < text.size() && text[i] == '.') {
        const auto fractionEnd = digitsEnd(text, i + 1);
        digits += fractionEnd - (i + 1);
        i = fractionEnd;
    }
    if (digits == 0) {
        return false;
    }
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < text.size() && isSign(text[i])) {
            ++i;
        }
        const auto exponentEnd = digitsEnd(text, i);
        if (exponentEnd == i) {
            return false;
        }
        i = exponentEnd;
    }
    return i == text.size();
}

std::optional<double> read(std::string_view text) {
    if (!isNumber(text)) {
        return std::nullopt;
    }
    const auto isNegative = text[0] == '-';
    text.remove_prefix(isSign(text[0]) ? 1 : 0);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        value = isHuge(text) ? std::numeric_limits<double>::infinity() : 0;
    }
    return isNegative ? -value : value;
}

} // namespace tarnquill::CSVNumber
