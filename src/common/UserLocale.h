// The locale by whose customs texts are ordered, compared and written.
#pragma once

#include <unicode/locid.h>

#include <string>

namespace tarnquill {

// By an ICU name such as "de_DE"; an empty name is the user's locale. The C locale says nothing about its
// user, orders by code and groups no digits: it gives English, the program's own language.
[[nodiscard]] icu::Locale userLocale(const std::string& name = {});

} // namespace tarnquill
