#include "common/UserLocale.h"

#include <string_view>

namespace tarnquill {

icu::Locale userLocale(const std::string& name) {
    const icu::Locale locale(name.empty() ? nullptr : name.c_str());
    return std::string_view(locale.getName()) == "en_US_POSIX" ? icu::Locale::getEnglish() : locale;
}

} // namespace tarnquill
