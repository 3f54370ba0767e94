#include "common/DateText.h"

#include "common/CivilDate.h"

#include <array>
#include <charconv>
#include <string_view>

namespace tarnquill {

namespace {

void append(std::string& text, int value, std::size_t width) {
    std::array<char, 12> digits{};
    const auto* const end = std::to_chars(digits.begin(), digits.end(), value).ptr;
    const auto length = static_cast<std::size_t>(end - digits.data());
    text.append(length < width ? width - length : 0, '0').append(digits.data(), length);
}

void appendClock(std::string& text, const CivilTime& time) {
    append(text, time.hour, 2);
    text += ':';
    append(text, time.minute, 2);
    text += ':';
    append(text, time.second, 2);
}

void appendFraction(std::string& text, std::int32_t nanoseconds) {
    if (nanoseconds == 0) {
        return;
    }
    text += '.';
    if (nanoseconds % 1'000'000 == 0) {
        append(text, nanoseconds / 1'000'000, 3);
    } else if (nanoseconds % 1'000 == 0) {
        append(text, nanoseconds / 1'000, 6);
    } else {
        append(text, nanoseconds, 9);
    }
}

void appendOffset(std::string& text, std::int32_t offset) {
    const int magnitude = offset < 0 ? -offset : offset;
    text += offset < 0 ? '-' : '+';
    append(text, magnitude / 3'600, 2);
    text += ':';
    append(text, magnitude / 60 % 60, 2);
    if (magnitude % 60 != 0) {
        text += ':';
        append(text, magnitude % 60, 2);
    }
}

} // namespace

std::string iso8601Text(std::int64_t seconds, std::int32_t nanoseconds, std::int32_t offset) {
    const CivilTime time = civilFromSeconds(seconds + offset);
    std::string text;
    text.reserve(sizeof "2026-09-26T02:00:00.000000000+02:00:00");
    append(text, time.date.year, 4);
    text += '-';
    append(text, time.date.month, 2);
    text += '-';
    append(text, time.date.day, 2);
    text += 'T';
    appendClock(text, time);
    appendFraction(text, nanoseconds);
    if (offset == 0) {
        text += 'Z';
    } else {
        appendOffset(text, offset);
    }
    return text;
}

std::string offsetText(std::int32_t offset) {
    std::string text;
    appendOffset(text, offset);
    return text;
}

std::string rfcDateText(std::int64_t seconds) {
    static constexpr std::array<std::string_view, 7> kWeekdays{"Mon", "Tue", "Wed", "Thu",
                                                               "Fri", "Sat", "Sun"};
    static constexpr std::array<std::string_view, 12> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::int64_t days = dayOfSeconds(seconds);
    const CivilDate date = civilFromDays(days);
    std::string text;
    text.reserve(sizeof "Sat, 26 Sep 2026 00:00:00 +0000"); // room for what callers put behind it
    text.append(kWeekdays[static_cast<std::size_t>(weekdayOfDay(days))]).append(", ");
    append(text, date.day, 2);
    text += ' ';
    text.append(kMonths[static_cast<std::size_t>(date.month - 1)]) += ' ';
    append(text, date.year, 4);
    return text;
}

std::string clockText(std::int64_t seconds) {
    std::string text;
    appendClock(text, civilFromSeconds(seconds));
    return text;
}

} // namespace tarnquill
