#include "common/JSONNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <system_error>

namespace tarnquill::JSONNumber {

namespace {

constexpr std::size_t kMostDoubleDigits = std::numeric_limits<double>::max_digits10;
constexpr std::size_t kAlwaysDoubleDigits = std::numeric_limits<double>::digits10;
// A number of at most kAlwaysDoubleDigits significant digits within these bounds is a normal double, whose
// shortest form has those digits again.
constexpr std::int64_t kAlwaysDoubleExponent = 300;
constexpr std::int64_t kFirstExponentWritten = kMostPositionalDigits;
constexpr std::int64_t kLeastExponentNotWritten = -4;

// Stops growing far beyond every exponent that matters, so that no literal overflows it.
std::int64_t exponentValue(std::string_view exponent) {
    const bool negative = exponent.starts_with('-');
    if (negative || exponent.starts_with('+')) {
        exponent.remove_prefix(1);
    }
    std::int64_t value = 0;
    for (const auto digit : exponent) {
        value = std::min(value * 10 + (digit - '0'), std::int64_t{1} << 48);
    }
    return negative ? -value : value;
}

// The number as 0 or as ±d.ddd × 10^power, d not 0.
struct Scientific {
    bool isNegative = false;
    std::size_t digitCount = 0; // significant ones: without leading and trailing zeros; 0 for zero
    std::array<char, kMostDoubleDigits> digits{}; // valid when there are no more than it holds
    std::int64_t power = 0;                       // of the first significant digit

    void add(char digit) {
        if (digitCount < digits.size()) {
            digits[digitCount] = digit;
        }
        ++digitCount;
    }

    [[nodiscard]] std::string_view shownDigits() const { return {digits.data(), digitCount}; }
};

Scientific scientific(std::string_view literal) {
    Scientific number;
    number.isNegative = literal.starts_with('-');
    if (number.isNegative) {
        literal.remove_prefix(1);
    }
    const auto exponent = std::min(literal.find_first_of("eE"), literal.size());
    const auto mantissa = literal.substr(0, exponent);
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    std::size_t zeros = 0; // seen since the last digit that was added, and not yet known to be significant
    bool started = false;
    for (std::size_t i = 0; i < mantissa.size(); ++i) {
        const auto digit = mantissa[i];
        if (digit == '.') {
            continue;
        }
        if (digit == '0') {
            ++zeros;
            continue;
        }
        if (!started) {
            started = true;
            zeros = 0;
            // Digits before the point have the powers point - 1 … 0, those after it -1 and below.
            number.power =
                static_cast<std::int64_t>(point) - static_cast<std::int64_t>(i) - (i < point ? 1 : 0);
        }
        for (; zeros > 0; --zeros) {
            number.add('0');
        }
        number.add(digit);
    }
    if (exponent < literal.size() && started) {
        number.power += exponentValue(literal.substr(exponent + 1));
    }
    return number;
}

std::optional<double> toDouble(std::string_view literal) {
    double value = 0;
    const auto result = std::from_chars(literal.data(), literal.data() + literal.size(), value);
    return result.ec == std::errc() && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

// Whether the nearest double prints with the number's own digits and power.
bool isDouble(const Scientific& number, std::string_view literal) {
    if (number.digitCount <= kAlwaysDoubleDigits && std::abs(number.power) < kAlwaysDoubleExponent) {
        return true;
    }
    if (number.digitCount > kMostDoubleDigits) {
        return false;
    }
    const auto value = toDouble(literal);
    if (!value) {
        return false;
    }
    Buffer buffer;
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), *value, std::chars_format::scientific);
    const auto shortest = scientific({buffer.data(), end.ptr});
    return shortest.power == number.power && shortest.shownDigits() == number.shownDigits();
}

class Printer {
public:
    explicit Printer(Buffer& buffer) : m_buffer(buffer) {}

    void put(char character) { m_buffer[m_size++] = character; }
    void put(std::string_view characters) {
        std::ranges::copy(characters, m_buffer.begin() + static_cast<std::ptrdiff_t>(m_size));
        m_size += characters.size();
    }
    void putZeros(std::size_t count) {
        for (; count > 0; --count) {
            put('0');
        }
    }
    [[nodiscard]] std::string_view result() const { return {m_buffer.data(), m_size}; }

private:
    Buffer& m_buffer;
    std::size_t m_size = 0;
};

void putPositional(Printer& printer, std::string_view digits, std::int64_t power) {
    if (power < 0) {
        printer.put("0.");
        printer.putZeros(static_cast<std::size_t>(-power - 1));
        printer.put(digits);
        return;
    }
    const auto whole = static_cast<std::size_t>(power) + 1;
    printer.put(digits.substr(0, whole));
    printer.putZeros(whole - std::min(whole, digits.size()));
    printer.put('.');
    printer.put(whole < digits.size() ? digits.substr(whole) : "0");
}

void putWithExponent(Printer& printer, std::string_view digits, std::int64_t power) {
    printer.put(digits.front());
    if (digits.size() > 1) {
        printer.put('.');
        printer.put(digits.substr(1));
    }
    printer.put(power < 0 ? "e-" : "e+");
    const auto magnitude = std::abs(power);
    if (magnitude < 10) {
        printer.put('0');
    }
    Buffer buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude);
    printer.put({buffer.data(), end.ptr});
}

} // namespace

bool overflows(std::string_view literal) {
    constexpr std::int64_t kLargestPower = std::numeric_limits<double>::max_exponent10;
    const auto number = scientific(literal);
    return number.power > kLargestPower || (number.power == kLargestPower && !toDouble(literal));
}

std::string_view printed(std::string_view literal, Buffer& buffer) {
    if (std::ranges::all_of(literal, [](char character) { return character <= '9'; })) { // no exponent
        const auto point = literal.find('.');
        if (point == std::string_view::npos) {
            return literal;
        }
        // Of few digits, which a double keeps, nothing but zeros at the end goes.
        const auto fraction = point + 1;
        const bool isSmall = literal.substr(fraction).starts_with("0000");
        if (literal.size() <= kAlwaysDoubleDigits && !isSmall) {
            return literal.substr(0, std::max(literal.find_last_not_of('0'), fraction) + 1);
        }
    }
    const auto number = scientific(literal);
    if (!isDouble(number, literal)) {
        return literal;
    }
    Printer printer(buffer);
    if (number.isNegative) {
        printer.put('-');
    }
    if (number.digitCount == 0) {
        printer.put("0.0");
    } else if (number.power < kFirstExponentWritten && number.power >= kLeastExponentNotWritten) {
        putPositional(printer, number.shownDigits(), number.power);
    } else {
        putWithExponent(printer, number.shownDigits(), number.power);
    }
    return printer.result();
}

} // namespace tarnquill::JSONNumber
