// Dates of the proleptic Gregorian calendar, as ISO 8601 counts them, and the line of days since 1970-01-01.
#pragma once

#include <cstdint>

namespace tarnquill {

inline constexpr std::int64_t kSecondsPerDay = 86'400;

struct CivilDate {
    int year = 1970; // 0 is the year before 1
    int month = 1;   // 1 to 12
    int day = 1;     // 1 to 31

    friend constexpr bool operator==(const CivilDate&, const CivilDate&) = default;
};

// A date and a second of its day.
struct CivilTime {
    CivilDate date;
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend constexpr bool operator==(const CivilTime&, const CivilTime&) = default;
};

// The month is 1 to 12.
[[nodiscard]] int daysInMonth(int year, int month);

// Whether there is such a date in the years 1 to 9999, and such a time of day. There are no leap seconds.
[[nodiscard]] bool isValid(const CivilTime& time);

// Days since 1970-01-01, negative before it. The date must exist.
[[nodiscard]] std::int64_t daysFromCivil(const CivilDate& date);
[[nodiscard]] CivilDate civilFromDays(std::int64_t days);

// Seconds since 1970-01-01T00:00:00 on the same clock.
[[nodiscard]] std::int64_t secondsFromCivil(const CivilTime& time);
[[nodiscard]] CivilTime civilFromSeconds(std::int64_t seconds);

// The day that a second belongs to: rounded down, also before 1970.
[[nodiscard]] std::int64_t dayOfSeconds(std::int64_t seconds);

// 0 is Monday, 6 is Sunday.
[[nodiscard]] int weekdayOfDay(std::int64_t days);

// 1 to 366.
[[nodiscard]] int dayOfYear(const CivilDate& date);

} // namespace tarnquill
