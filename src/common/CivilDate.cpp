#include "common/CivilDate.h"

#include <array>

namespace tarnquill {

namespace {

// The calendar repeats itself after 400 years. Counting years from 1 March puts the leap day at the end of a
// year.
constexpr std::int64_t kDaysPerEra = 146'097;
constexpr std::int64_t kDaysFromMarchOfYear0 = 719'468;

constexpr std::int64_t floorDivide(std::int64_t dividend, std::int64_t divisor) {
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

constexpr bool isLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// Days from 1 March to the first day of a month, 0 being March: the months run 31, 30, 31, 30, 31 from March
// and again from August.
constexpr std::int64_t daysBeforeMonth(std::int64_t monthFromMarch) {
    return (153 * monthFromMarch + 2) / 5;
}

} // namespace

int daysInMonth(int year, int month) {
    static constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return kDays[static_cast<std::size_t>(month - 1)] + (month == 2 && isLeapYear(year) ? 1 : 0);
}

bool isValid(const CivilTime& time) {
    const auto isWithin = [](int value, int lowest, int highest) {
        return lowest <= value && value <= highest;
    };
    return isWithin(time.date.year, 1, 9999) && isWithin(time.date.month, 1, 12) &&
           isWithin(time.date.day, 1, daysInMonth(time.date.year, time.date.month)) &&
           isWithin(time.hour, 0, 23) && isWithin(time.minute, 0, 59) && isWithin(time.second, 0, 59);
}

std::int64_t daysFromCivil(const CivilDate& date) {
    const int yearFromMarch = date.month > 2 ? date.year : date.year - 1;
    const std::int64_t era = floorDivide(yearFromMarch, 400);
    const std::int64_t yearOfEra = yearFromMarch - era * 400;
    const std::int64_t monthFromMarch = date.month > 2 ? date.month - 3 : date.month + 9;
    const std::int64_t dayOfEra =
        yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + daysBeforeMonth(monthFromMarch) + date.day - 1;
    return era * kDaysPerEra + dayOfEra - kDaysFromMarchOfYear0;
}

CivilDate civilFromDays(std::int64_t days) {
    const std::int64_t shifted = days + kDaysFromMarchOfYear0;
    const std::int64_t era = floorDivide(shifted, kDaysPerEra);
    const std::int64_t dayOfEra = shifted - era * kDaysPerEra;
    // Taking out the leap days of 4, 100 and 400 years leaves years of 365 days.
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1'460 + dayOfEra / 36'524 - dayOfEra / (kDaysPerEra - 1)) / 365;
    const std::int64_t dayFromMarch = dayOfEra - (yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t monthFromMarch = (5 * dayFromMarch + 2) / 153;
    const bool isNextYear = monthFromMarch >= 10;
    return {.year = static_cast<int>(yearOfEra + era * 400 + (isNextYear ? 1 : 0)),
            .month = static_cast<int>(monthFromMarch + (isNextYear ? -9 : 3)),
            .day = static_cast<int>(dayFromMarch - daysBeforeMonth(monthFromMarch) + 1)};
}

std::int64_t secondsFromCivil(const CivilTime& time) {
    return daysFromCivil(time.date) * kSecondsPerDay + std::int64_t{time.hour} * 3'600 +
           std::int64_t{time.minute} * 60 + time.second;
}

CivilTime civilFromSeconds(std::int64_t seconds) {
    const std::int64_t days = dayOfSeconds(seconds);
    const int secondOfDay = static_cast<int>(seconds - days * kSecondsPerDay);
    return {.date = civilFromDays(days),
            .hour = secondOfDay / 3'600,
            .minute = secondOfDay / 60 % 60,
            .second = secondOfDay % 60};
}

std::int64_t dayOfSeconds(std::int64_t seconds) {
    return floorDivide(seconds, kSecondsPerDay);
}

int weekdayOfDay(std::int64_t days) {
    constexpr std::int64_t kThursday = 3; // 1970-01-01
    return static_cast<int>(((days + kThursday) % 7 + 7) % 7);
}

int dayOfYear(const CivilDate& date) {
    return static_cast<int>(daysFromCivil(date) - daysFromCivil({.year = date.year, .month = 1, .day = 1})) +
           1;
}

} // namespace tarnquill
