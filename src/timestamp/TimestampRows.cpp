#include "timestamp/TimestampRows.h"

#include "common/CivilDate.h"
#include "common/DateText.h"

#include <utility>

namespace tarnquill::Timestamp {

namespace {

std::string padded(std::string digits, std::size_t width) {
    digits.insert(0, digits.size() < width ? width - digits.size() : 0, '0');
    return digits;
}

std::string isoWeekText(const CalendarFacts& facts) {
    return padded(std::to_string(facts.isoWeekYear), 4) + "-W" + padded(std::to_string(facts.isoWeek), 2);
}

} // namespace

Rows rows(const Instant& instant, const TimeZone& zone) {
    const std::int32_t offset = zone.offsetAt(instant.seconds).seconds;
    const CalendarFacts facts = calendarFacts(instant, offset);
    const std::string dateAndClock = rfcDateText(instant.seconds) + ' ' + clockText(instant.seconds);
    return {{
        {Family::unix, "Unix seconds", unixText(instant, Unit::seconds)},
        {Family::unix, "Unix milliseconds", unixText(instant, Unit::milliseconds)},
        {Family::unix, "Unix microseconds", unixText(instant, Unit::microseconds)},
        {Family::unix, "Unix nanoseconds", unixText(instant, Unit::nanoseconds)},
        {Family::dates, "ISO 8601, UTC", iso8601Text(instant.seconds, instant.nanoseconds, 0)},
        {Family::dates, "ISO 8601, local", iso8601Text(instant.seconds, instant.nanoseconds, offset)},
        {Family::dates, "RFC 2822", dateAndClock + " +0000"},
        {Family::dates, "HTTP date", dateAndClock + " GMT"},
        {Family::calendar, "Weekday", std::string(facts.weekday)},
        {Family::calendar, "Day of year", std::to_string(facts.dayOfYear)},
        {Family::calendar, "ISO week", isoWeekText(facts)},
    }};
}

// The digits of the seconds and the nine of the nanoseconds, side by side, are the count of nanoseconds; the
// unit only says where the point goes.
std::string unixText(const Instant& instant, Unit unit) {
    const std::size_t decimals = std::to_underlying(unit) * std::size_t{3};
    const bool isNegative = instant.seconds < 0;
    // Below zero the nanoseconds count upwards from the second before.
    const bool borrows = isNegative && instant.nanoseconds > 0;
    const std::int64_t seconds = isNegative ? -(instant.seconds + (borrows ? 1 : 0)) : instant.seconds;
    const std::int32_t nanoseconds = borrows ? 1'000'000'000 - instant.nanoseconds : instant.nanoseconds;

    const std::string fraction = padded(std::to_string(nanoseconds), 9);
    std::string text = (seconds == 0 ? "" : std::to_string(seconds)) + fraction.substr(0, decimals);
    text.erase(0, text.find_first_not_of('0'));
    if (text.empty()) {
        text = "0";
    }
    if (const std::size_t last = fraction.find_last_not_of('0');
        last != std::string::npos && last >= decimals) {
        text.append(".").append(fraction, decimals, last + 1 - decimals);
    }
    return isNegative ? "-" + text : text;
}

CalendarFacts calendarFacts(const Instant& instant, std::int32_t offset) {
    static constexpr std::array<std::string_view, 7> kWeekdays{"Monday", "Tuesday",  "Wednesday", "Thursday",
                                                               "Friday", "Saturday", "Sunday"};
    const std::int64_t days = dayOfSeconds(instant.seconds + offset);
    const int weekday = weekdayOfDay(days);
    // A week belongs to the year that its Thursday is in.
    const CivilDate thursday = civilFromDays(days - weekday + 3);
    return {.weekday = kWeekdays[static_cast<std::size_t>(weekday)],
            .dayOfYear = dayOfYear(civilFromDays(days)),
            .isoWeekYear = thursday.year,
            .isoWeek = (dayOfYear(thursday) - 1) / 7 + 1};
}

ZoneTime zoneTime(const Instant& instant, const TimeZone& zone, const TimeZone& localZone) {
    const ZoneOffset offset = zone.offsetAt(instant.seconds);
    const std::int64_t onClock = instant.seconds + offset.seconds;
    const std::int64_t onLocalClock = instant.seconds + localZone.offsetAt(instant.seconds).seconds;
    return {.offset = offset,
            .clock = clockText(onClock),
            .date = rfcDateText(onClock),
            .dayDifference = static_cast<int>(dayOfSeconds(onClock) - dayOfSeconds(onLocalClock))};
}

} // namespace tarnquill::Timestamp
