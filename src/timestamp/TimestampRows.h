// Shows an instant as labelled texts: Unix time in four units, ISO 8601, RFC 2822 and HTTP dates, and
// calendar facts. The texts are made by exact arithmetic, so every digit of the instant survives.
#pragma once

#include "timestamp/Timestamp.h"

#include <array>
#include <string>
#include <string_view>

#undef unix // a macro to compilers in GNU mode, and so to moc

namespace tarnquill::Timestamp {

enum class Family : std::uint8_t { unix, dates, calendar };

struct Row {
    Family family;
    std::string_view label;
    std::string value;
};

using Rows = std::array<Row, 11>;

// "ISO 8601, local" and the calendar facts are those of the zone. The instant is in range, as parse() leaves
// it.
[[nodiscard]] Rows rows(const Instant& instant, const TimeZone& zone);

// The count of units since 1970, with the digits of its fraction that are not zero.
[[nodiscard]] std::string unixText(const Instant& instant, Unit unit);

struct CalendarFacts {
    std::string_view weekday; // the English name in full
    int dayOfYear = 0;
    int isoWeekYear = 0;
    int isoWeek = 0;
};

// The facts about the day that it is, at an instant, `offset` seconds east of UTC.
[[nodiscard]] CalendarFacts calendarFacts(const Instant& instant, std::int32_t offset);

// The instant on the clock of another zone, beside the local one.
struct ZoneTime {
    ZoneOffset offset;
    std::string clock; // "20:00:00"
    std::string date;  // "Fri, 25 Sep 2026"
    int dayDifference; // calendar days from the local date to this one, -2 to 2
};

[[nodiscard]] ZoneTime zoneTime(const Instant& instant, const TimeZone& zone, const TimeZone& localZone);

} // namespace tarnquill::Timestamp
