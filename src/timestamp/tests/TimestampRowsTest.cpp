#include "timestamp/TimestampRows.h"

#include "common/ICUTimeZone.h"
#include "common/testing/FixedZone.h"

#include <gtest/gtest.h>

namespace tarnquill::Timestamp {

namespace {

std::string value(const Instant& instant, std::string_view label, const TimeZone& zone = FixedZone(0)) {
    for (const Row& row : rows(instant, zone)) {
        if (row.label == label) {
            return row.value;
        }
    }
    return "no such row";
}

} // namespace

TEST(TimestampRows, ShowsAnInstantInElevenForms) {
    const std::vector<std::pair<std::string, std::string>> expected{
        {"Unix seconds", "1790380800"},
        {"Unix milliseconds", "1790380800000"},
        {"Unix microseconds", "1790380800000000"},
        {"Unix nanoseconds", "1790380800000000000"},
        {"ISO 8601, UTC", "2026-09-26T00:00:00Z"},
        {"ISO 8601, local", "2026-09-25T17:00:00-07:00"},
        {"RFC 2822", "Sat, 26 Sep 2026 00:00:00 +0000"},
        {"HTTP date", "Sat, 26 Sep 2026 00:00:00 GMT"},
        {"Weekday", "Friday"},
        {"Day of year", "268"},
        {"ISO week", "2026-W39"},
    };
    std::vector<std::pair<std::string, std::string>> shown;
    for (const Row& row : rows({.seconds = 1'790'380'800}, FixedZone(-25'200))) {
        shown.emplace_back(row.label, row.value);
    }
    EXPECT_EQ(shown, expected);
}

TEST(TimestampRows, KeepsEveryDigitOfAFraction) {
    const Instant instant{.seconds = 12, .nanoseconds = 345'600'001};
    EXPECT_EQ(value(instant, "Unix seconds"), "12.345600001");
    EXPECT_EQ(value(instant, "Unix milliseconds"), "12345.600001");
    EXPECT_EQ(value(instant, "Unix microseconds"), "12345600.001");
    EXPECT_EQ(value(instant, "Unix nanoseconds"), "12345600001");
    const Instant half{.seconds = 0, .nanoseconds = 500'000'000};
    EXPECT_EQ(value(half, "Unix seconds"), "0.5");
    EXPECT_EQ(value(half, "Unix milliseconds"), "500");
    EXPECT_EQ(value({.nanoseconds = 7}, "Unix milliseconds"), "0.000007");
    EXPECT_EQ(value({}, "Unix nanoseconds"), "0");
}

TEST(TimestampRows, CountsFractionsBefore1970TowardsIt) {
    const Instant instant{.seconds = -2, .nanoseconds = 500'000'000};
    EXPECT_EQ(value(instant, "Unix seconds"), "-1.5");
    EXPECT_EQ(value(instant, "Unix nanoseconds"), "-1500000000");
    EXPECT_EQ(value({.seconds = -1, .nanoseconds = 999'999'999}, "Unix milliseconds"), "-0.000001");
    EXPECT_EQ(value(instant, "ISO 8601, UTC"), "1969-12-31T23:59:58.500Z");
}

TEST(TimestampRows, HoldsTheEndsOfTheRange) {
    const Instant first{.seconds = kFirstSecond, .nanoseconds = 1};
    EXPECT_EQ(value(first, "Unix nanoseconds"), "-62135596799999999999");
    EXPECT_EQ(value(first, "ISO week"), "0001-W01");
    EXPECT_EQ(value({.seconds = kFirstSecond}, "ISO 8601, local", FixedZone(-3'600)),
              "0000-12-31T23:00:00-01:00");
    const Instant last{.seconds = kLastSecond, .nanoseconds = 999'999'999};
    EXPECT_EQ(value(last, "Unix nanoseconds"), "253402300799999999999");
    EXPECT_EQ(value(last, "HTTP date"), "Fri, 31 Dec 9999 23:59:59 GMT");
}

TEST(TimestampRows, CountsWeeksByTheirThursday) {
    const auto isoWeek = [](std::string_view date) {
        const auto parsed = parse(date, UnitChoice::automatic, FixedZone(0));
        return value(parsed.value().instant, "ISO week");
    };
    EXPECT_EQ(isoWeek("2021-01-03"), "2020-W53");
    EXPECT_EQ(isoWeek("2021-01-04"), "2021-W01");
    EXPECT_EQ(isoWeek("2018-12-31"), "2019-W01");
    EXPECT_EQ(isoWeek("2020-12-31"), "2020-W53");
    EXPECT_EQ(isoWeek("2022-01-01"), "2021-W52");
}

TEST(TimestampRows, ShowsAnotherZoneBesideTheLocalOne) {
    const auto newYork = ICUTimeZone::find("America/New_York");
    const ZoneTime time = zoneTime({.seconds = 1'790'380'800}, *newYork, FixedZone(7'200));
    EXPECT_EQ(time.clock, "20:00:00");
    EXPECT_EQ(time.date, "Fri, 25 Sep 2026");
    EXPECT_EQ(time.dayDifference, -1);
    EXPECT_EQ(time.offset, (ZoneOffset{.seconds = -14'400, .isSummerTime = true}));
    EXPECT_EQ(zoneTime({}, FixedZone(50'400), FixedZone(-43'200)).dayDifference, 1);
}

} // namespace tarnquill::Timestamp
