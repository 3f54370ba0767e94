// Writes instants as ISO 8601 and RFC 2822 texts. Seconds count from 1970-01-01T00:00:00Z; years below 0 are
// not written, and a year above 9999 takes the digits it needs.
#pragma once

#include <cstdint>
#include <string>

namespace tarnquill {

// "2026-09-26T02:00:00.500+02:00": local time `offset` seconds east of UTC. The fraction (0 to 999'999'999
// nanoseconds) takes 0, 3, 6 or 9 digits, the fewest that hold it exactly; the offset 0 is "Z".
[[nodiscard]] std::string iso8601Text(std::int64_t seconds, std::int32_t nanoseconds, std::int32_t offset);

// "+02:00", with ":15" after it when the offset has seconds.
[[nodiscard]] std::string offsetText(std::int32_t offset);

// "Sat, 26 Sep 2026" and "02:00:00" for seconds on the clock that is shown.
[[nodiscard]] std::string rfcDateText(std::int64_t seconds);
[[nodiscard]] std::string clockText(std::int64_t seconds);

} // namespace tarnquill
