// Integers as a locale writes them, with its digits and grouping: "1,204".
#pragma once

#include <cstdint>
#include <string>

namespace tarnquill {

// The locale is an ICU name such as "de_DE"; an empty one is the user's.
[[nodiscard]] std::string localizedInteger(std::int64_t value, const std::string& locale = {});

} // namespace tarnquill
