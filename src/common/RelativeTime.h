// Says how far an instant is from now, in the words that fit a glance.
#pragma once

#include <cstdint>
#include <string>

namespace tarnquill {

// "3 hours ago", "in 1 day" or "now": the largest unit that is reached, rounded to the nearest count. Months
// and years have the calendar's mean length. Both are seconds since 1970-01-01T00:00:00Z; any two values will
// do.
[[nodiscard]] std::string relativeTimeText(std::int64_t seconds, std::int64_t now);

} // namespace tarnquill
