#include "common/JSONValue.h"

#include <charconv>
#include <system_error>

namespace tarnquill {

std::optional<std::int64_t> JSONValue::asInteger() const {
    if (!isNumber()) {
        return std::nullopt;
    }
    const auto digits = literal();
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return error == std::errc() && end == digits.data() + digits.size() ? std::optional(value) : std::nullopt;
}

std::optional<double> JSONValue::asDouble() const {
    if (!isNumber()) {
        return std::nullopt;
    }
    double value = 0; // stays for a number that is too small for a double
    std::from_chars(literal().data(), literal().data() + literal().size(), value);
    return value;
}

std::optional<JSONValue> JSONValue::find(std::string_view key) const {
    for (const auto& member : members()) {
        if (member.key.text() == key) {
            return member.value;
        }
    }
    return std::nullopt;
}

} // namespace tarnquill
