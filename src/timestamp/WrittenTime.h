// A date and time as a text gives it, and the instant that it means.
#pragma once

#include "common/CivilDate.h"
#include "timestamp/Timestamp.h"

namespace tarnquill::Timestamp {

struct WrittenTime {
    CivilTime time;
    std::int32_t nanoseconds = 0;
    std::optional<std::int32_t> offset; // seconds east of UTC, when the text gives it
};

// The offset that "+0530" or "-00:25:21" means. Nothing when it has more than 23 hours or 59 minutes or
// seconds.
[[nodiscard]] std::optional<std::int32_t> offsetOf(char sign, int hours, int minutes, int seconds = 0);

// What the text means, read as that form. A time without an offset is on the zone's clock. The time must be
// valid; fails with `outOfRange` only.
[[nodiscard]] std::expected<Parsed, Failure> parsedAs(const Reading& reading, const WrittenTime& written,
                                                      const TimeZone& zone);

} // namespace tarnquill::Timestamp
