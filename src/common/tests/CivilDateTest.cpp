#include "common/CivilDate.h"
#include "common/DateText.h"

#include <gtest/gtest.h>

namespace tarnquill {

namespace {

bool hasLeapDay(int year) {
    return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
}

// Day by day from 1 January of the year 1, which was a Monday: the slow calendar that needs no formula.
class CountedCalendar {
public:
    CivilDate date{.year = 1, .month = 1, .day = 1};
    std::int64_t days = -719'162;
    int weekday = 0;
    int dayOfTheYear = 1;

    void step() {
        ++days;
        ++dayOfTheYear;
        weekday = (weekday + 1) % 7;
        if (date.day < length()) {
            ++date.day;
            return;
        }
        date.day = 1;
        if (++date.month == 13) {
            date.month = 1;
            ++date.year;
            dayOfTheYear = 1;
        }
    }

private:
    [[nodiscard]] int length() const {
        switch (date.month) {
        case 2:
            return hasLeapDay(date.year) ? 29 : 28;
        case 4:
        case 6:
        case 9:
        case 11:
            return 30;
        default:
            return 31;
        }
    }
};

} // namespace

TEST(CivilDate, AgreesWithACalendarCountedDayByDayInEveryYearTo9999) {
    CountedCalendar counted;
    for (; counted.date.year < 10'000; counted.step()) {
        ASSERT_EQ(daysFromCivil(counted.date), counted.days);
        ASSERT_EQ(civilFromDays(counted.days), counted.date) << counted.days;
        ASSERT_EQ(weekdayOfDay(counted.days), counted.weekday);
        ASSERT_EQ(dayOfYear(counted.date), counted.dayOfTheYear);
        ASSERT_TRUE(isValid({.date = counted.date}));
    }
    EXPECT_EQ(counted.days * kSecondsPerDay, 253'402'300'800);
}

TEST(CivilDate, RoundsDownToTheDayBefore1970) {
    const CivilTime lastSecond{
        .date = {.year = 1969, .month = 12, .day = 31}, .hour = 23, .minute = 59, .second = 59};
    EXPECT_EQ(civilFromSeconds(-1), lastSecond);
    EXPECT_EQ(secondsFromCivil(lastSecond), -1);
    EXPECT_EQ(dayOfSeconds(-kSecondsPerDay), -1);
}

TEST(CivilDate, RefusesWhatNoCalendarOrClockHas) {
    const CivilTime valid{
        .date = {.year = 2024, .month = 2, .day = 29}, .hour = 23, .minute = 59, .second = 59};
    ASSERT_TRUE(isValid(valid));
    const auto isValidWith = [&valid](auto change) {
        CivilTime changed = valid;
        change(changed);
        return isValid(changed);
    };
    EXPECT_FALSE(isValidWith([](CivilTime& time) { time.date.year = 2023; }));
    EXPECT_FALSE(isValidWith([](CivilTime& time) { time.date.year = 1900; }));
    EXPECT_TRUE(isValidWith([](CivilTime& time) { time.date.year = 2000; }));
    EXPECT_FALSE(isValidWith([](CivilTime& time) { time.date.year = 0; }));
    EXPECT_FALSE(isValidWith([](CivilTime& time) { time.date.year = 10'000; }));
    EXPECT_FALSE(isValidWith([](CivilTime& time) { time.date.month = 0; }));
    EXPECT_FALSE(isValidWith([](CivilTime& time) { time.date.month = 13; }));
    EXPECT_FALSE(isValidWith([](CivilTime& time) { time.date.day = 0; }));
    EXPECT_FALSE(isValidWith([](CivilTime& time) { time.hour = 24; }));
    EXPECT_FALSE(isValidWith([](CivilTime& time) { time.minute = 60; }));
    EXPECT_FALSE(isValidWith([](CivilTime& time) { time.second = 60; }));
}

TEST(DateText, WritesTheShortestFractionThatIsExact) {
    EXPECT_EQ(iso8601Text(1'790'380'800, 0, 0), "2026-09-26T00:00:00Z");
    EXPECT_EQ(iso8601Text(0, 120'000'000, 0), "1970-01-01T00:00:00.120Z");
    EXPECT_EQ(iso8601Text(0, 123'400'000, 0), "1970-01-01T00:00:00.123400Z");
    EXPECT_EQ(iso8601Text(0, 1'500, 0), "1970-01-01T00:00:00.000001500Z");
    EXPECT_EQ(iso8601Text(-62'135'596'800, 1, 0), "0001-01-01T00:00:00.000000001Z");
}

TEST(DateText, WritesTheOffsetOnTheLocalClock) {
    EXPECT_EQ(iso8601Text(0, 0, 19'800), "1970-01-01T05:30:00+05:30");
    EXPECT_EQ(iso8601Text(0, 0, -1'521), "1969-12-31T23:34:39-00:25:21");
    EXPECT_EQ(iso8601Text(253'402'300'799, 0, 3'600), "10000-01-01T00:59:59+01:00");
    EXPECT_EQ(iso8601Text(-62'135'596'800, 0, -3'600), "0000-12-31T23:00:00-01:00");
    EXPECT_EQ(offsetText(0), "+00:00");
}

TEST(DateText, WritesRFCDatesAndClocks) {
    EXPECT_EQ(rfcDateText(1'790'380'800), "Sat, 26 Sep 2026");
    EXPECT_EQ(rfcDateText(-1), "Wed, 31 Dec 1969");
    EXPECT_EQ(clockText(-1), "23:59:59");
}

} // namespace tarnquill
