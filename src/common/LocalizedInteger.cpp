#include "common/LocalizedInteger.h"

#include "common/UserLocale.h"

#include <unicode/numberformatter.h>

namespace tarnquill {

std::string localizedInteger(std::int64_t value, const std::string& locale) {
    auto error = U_ZERO_ERROR;
    const auto formatted =
        icu::number::NumberFormatter::withLocale(userLocale(locale)).formatInt(value, error);
    std::string text;
    if (U_SUCCESS(error)) {
        formatted.toString(error).toUTF8String(text);
    }
    return U_SUCCESS(error) ? text : std::to_string(value);
}

} // namespace tarnquill
