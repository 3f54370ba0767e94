#include "timestamp/Timestamp.h"

#include "common/CivilDate.h"
#include "common/DateText.h"
#include "common/ICUTimeZone.h"
#include "common/testing/FixedZone.h"
#include "timestamp/TimestampRows.h"

#include <gtest/gtest.h>

#include <random>

namespace tarnquill::Timestamp {

namespace {

const FixedZone kUTC(0);

std::expected<Parsed, Failure> read(std::string_view text, UnitChoice choice = UnitChoice::automatic,
                                    const TimeZone& zone = kUTC) {
    return parse(text, choice, zone);
}

// The instant as one comparable text, or the failure's sentence.
std::string instant(std::string_view text, const TimeZone& zone = kUTC) {
    const auto parsed = read(text, UnitChoice::automatic, zone);
    if (!parsed) {
        return std::string(message(parsed.error()));
    }
    return iso8601Text(parsed->instant.seconds, parsed->instant.nanoseconds, 0);
}

void expectAll(Failure failure, std::initializer_list<std::string_view> texts) {
    for (const auto text : texts) {
        const auto parsed = read(text);
        ASSERT_FALSE(parsed) << text;
        EXPECT_EQ(parsed.error(), failure) << text;
    }
}

} // namespace

TEST(UnixNumberReader, JudgesTheUnitByTheSize) {
    const std::vector<std::pair<std::string, Unit>> cases{
        {"1790380800", Unit::seconds},
        {"99999999999", Unit::seconds},
        {"100000000000", Unit::milliseconds},
        {"99999999999999", Unit::milliseconds},
        {"100000000000000", Unit::microseconds},
        {"99999999999999999", Unit::microseconds},
        {"100000000000000000", Unit::nanoseconds},
        {"-100000000000", Unit::milliseconds},
        {"0000000000000000000000001", Unit::seconds},
    };
    for (const auto& [text, unit] : cases) {
        const auto parsed = read(text);
        ASSERT_TRUE(parsed) << text;
        EXPECT_EQ(parsed->reading, Reading(Number{.unit = unit, .isGuessed = true})) << text;
    }
    EXPECT_EQ(instant("1790380800"), "2026-09-26T00:00:00Z");
    EXPECT_EQ(instant("1790380800123"), "2026-09-26T00:00:00.123Z");
    EXPECT_EQ(instant("1790380800123456"), "2026-09-26T00:00:00.123456Z");
    EXPECT_EQ(instant("1790380800123456789"), "2026-09-26T00:00:00.123456789Z");
}

TEST(UnixNumberReader, TakesTheChosenUnitAtAnySize) {
    const auto parsed = read("1790380800", UnitChoice::milliseconds);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->reading, Reading(Number{.unit = Unit::milliseconds, .isGuessed = false}));
    EXPECT_EQ(parsed->instant, (Instant{.seconds = 1'790'380, .nanoseconds = 800'000'000}));
    EXPECT_EQ(read("-5", UnitChoice::nanoseconds)->instant,
              (Instant{.seconds = -1, .nanoseconds = 999'999'995}));
    EXPECT_EQ(read("9223372036854775807", UnitChoice::seconds).error(), Failure::outOfRange);
}

TEST(UnixNumberReader, IsExactInEveryFraction) {
    EXPECT_EQ(read("-1.5")->instant, (Instant{.seconds = -2, .nanoseconds = 500'000'000}));
    EXPECT_EQ(read("-0.0000000001")->instant, Instant());
    EXPECT_EQ(read("1.0000000001")->instant, Instant{.seconds = 1});
    EXPECT_EQ(read("+123.")->instant, Instant{.seconds = 123});
    EXPECT_EQ(read("1.5", UnitChoice::microseconds)->instant, Instant{.nanoseconds = 1'500});
    EXPECT_EQ(read("-1.9", UnitChoice::nanoseconds)->instant,
              (Instant{.seconds = -1, .nanoseconds = 999'999'999}));
    EXPECT_EQ(read("1." + std::string(100'000, '9'))->instant,
              (Instant{.seconds = 1, .nanoseconds = 999'999'999}));
}

TEST(UnixNumberReader, RefusesWhatIsNoPlainDecimal) {
    expectAll(Failure::unrecognised, {"--1", "+-1", "- 1", ".5", "-", "+", ".", "1e9", "0x10", "1,5", "1.2.3",
                                      "1_000", "9223372036854775808", "-9223372036854775808",
                                      "99999999999999999999", "١٢٣", "12a", std::string_view("1\0002", 3)});
}

TEST(UnixNumberReader, EndsAtTheYears1And9999) {
    EXPECT_EQ(instant("-62135596800"), "0001-01-01T00:00:00Z");
    EXPECT_EQ(read("253402300799.999999999", UnitChoice::seconds)->instant.seconds, kLastSecond);
    for (const auto* const text : {"-62135596800.000000001", "-62135596801", "253402300800"}) {
        EXPECT_EQ(read(text, UnitChoice::seconds).error(), Failure::outOfRange) << text;
    }
}

TEST(ISO8601Reader, ReadsEveryFormOfTheOffset) {
    for (const auto* const text :
         {"2026-09-26T12:00:00Z", "2026-09-26t12:00z", "2026-09-26 12:00:00 Z", "2026-09-26T17:30:00+05:30",
          "2026-09-26T17:30:00+0530", "2026-09-26T17:00   +05", "2026-09-26T11:34:39-00:25:21",
          "2026-09-26T17:30:15+0530:15", "\n 2026-09-26T12:00:00,000Z \u3000"}) {
        EXPECT_EQ(instant(text), "2026-09-26T12:00:00Z") << text;
        EXPECT_EQ(read(text)->reading, Reading(ISO8601{.isOffsetGiven = true})) << text;
    }
}

TEST(ISO8601Reader, ReadsDatesAloneAndFractionsToTheNanosecond) {
    EXPECT_EQ(instant("2026-09-26"), "2026-09-26T00:00:00Z");
    EXPECT_EQ(read("2026-09-26")->reading, Reading(ISO8601{.isOffsetGiven = false}));
    EXPECT_EQ(instant("2026-09-26T12:00:00.123456789123Z"), "2026-09-26T12:00:00.123456789Z");
    EXPECT_EQ(instant("1969-12-31T23:59:59,5Z"), "1969-12-31T23:59:59.500Z");
    EXPECT_EQ(instant("2024-02-29"), "2024-02-29T00:00:00Z");
    EXPECT_EQ(instant("2000-02-29"), "2000-02-29T00:00:00Z");
}

TEST(ISO8601Reader, RefusesWhatNoCalendarHasAndWhatIsWrittenOtherwise) {
    expectAll(Failure::unrecognised, {"2023-02-29",
                                      "1900-02-29",
                                      "2026-13-01",
                                      "2026-00-10",
                                      "2026-09-31",
                                      "0000-01-01",
                                      "2026-9-26",
                                      "2026-09-26T",
                                      "2026-09-26T12",
                                      "2026-09-26T1:00",
                                      "2026-09-26T24:00",
                                      "2026-09-26T12:60",
                                      "2026-09-26T12:00:60Z",
                                      "2026-09-26T12:00:00.Z",
                                      "2026-09-26T12:00.5Z",
                                      "2026-09-26Z",
                                      "2026-09-26+05",
                                      "2026-09-26T12:00+5",
                                      "2026-09-26T12:00+24:00",
                                      "2026-09-26T12:00+05:60",
                                      "2026-09-26T12:00+05:30:60",
                                      "2026-09-26T12:00+05:",
                                      "2026-09-26T12:00Zx",
                                      "2026-09-26T12:00 UTC",
                                      "2026-09-26\t12:00",
                                      "+2026-09-26",
                                      "12026-09-26",
                                      "2026-09-26T12:00:00+05:30:15.5"});
}

TEST(ISO8601Reader, MovesNothingOutOfTheRangeUnseen) {
    expectAll(Failure::outOfRange, {"0001-01-01T00:00:00+00:01", "9999-12-31T23:59:59-00:00:01"});
    EXPECT_EQ(read("0001-01-01", UnitChoice::automatic, FixedZone(1)).error(), Failure::outOfRange);
    EXPECT_EQ(instant("0001-01-01T00:00:00-00:01"), "0001-01-01T00:01:00Z");
}

TEST(RFC2822Reader, ReadsDatesAsMailAndTheWebWriteThem) {
    for (const auto* const text :
         {"Sat, 26 Sep 2026 12:00:00 GMT", "26 Sep 2026 12:00 +0000", "Sat,26 sep 2026 08:00:00 edt",
          "Mon 26 SEP 2026 12:0:0 ut", "Samstag ,\t26\r\n Sep  2026 7:00:00 EST",
          "26 Sep 002026 04:00:00 PST", "26 Sep 2026 17:30:00 +0530", "Sáb, 26 Sep 2026 12:00 Z"}) {
        EXPECT_EQ(instant(text), "2026-09-26T12:00:00Z") << text;
        EXPECT_EQ(read(text)->reading, Reading(RFC2822{.isOffsetGiven = true})) << text;
    }
    EXPECT_EQ(instant("6 Jan 26 00:00 GMT"), "0026-01-06T00:00:00Z");
    EXPECT_EQ(read("26 Sep 2026 12:00")->reading, Reading(RFC2822{.isOffsetGiven = false}));
}

TEST(RFC2822Reader, RefusesWhatHasTooMuchOrTooLittle) {
    expectAll(Failure::unrecognised, {"Sat, 26 Sep 2026",
                                      "Sat",
                                      "Sat,",
                                      ", 26 Sep 2026 12:00",
                                      "Sat, Sat, 26 Sep 2026 12:00",
                                      "Sat, 26 Sep 2026 12:00 GMT now",
                                      "26, Sep 2026 12:00",
                                      "026 Sep 2026 12:00",
                                      "26 Sept 2026 12:00",
                                      "26 Sep 0 12:00",
                                      "26 Sep 10000 12:00",
                                      "26 Sep 99999999999999999999 12:00",
                                      "31 Sep 2026 12:00",
                                      "26 Sep 2026 12",
                                      "26 Sep 2026 12:",
                                      "26 Sep 2026 12:00:00:00",
                                      "26 Sep 2026 24:00",
                                      "26 Sep 2026 12:60",
                                      "26 Sep 2026 12:00:60",
                                      "26 Sep 2026 12:00 CET",
                                      "26 Sep 2026 12:00 +05:30",
                                      "26 Sep 2026 12:00 +2400",
                                      "26 Sep 2026 12:00 +0560",
                                      "26 Sep 2026 12:00 +053",
                                      "Sat26 Sep 2026 12:00",
                                      "Sat. 26 Sep 2026 12:00"});
    expectAll(Failure::outOfRange, {"1 Jan 1 00:00 +0001", "31 Dec 9999 23:59 EST"});
}

TEST(Timestamp, SaysWhenThereIsNothing) {
    expectAll(Failure::empty, {"", " ", "\r\n\t", "\u00A0\u2028"});
}

// The offset of the clock's time taken for UTC points to an instant; the offset that holds there is the one
// taken.
TEST(Timestamp, SettlesLocalTimesNearAChangeOfTheOffset) {
    const auto berlin = ICUTimeZone::find("Europe/Berlin");
    EXPECT_EQ(instant("2026-09-26 12:00", *berlin), "2026-09-26T10:00:00Z");
    EXPECT_EQ(instant("2026-03-29 01:59:59", *berlin), "2026-03-29T00:59:59Z");
    EXPECT_EQ(instant("2026-03-29 02:30", *berlin), "2026-03-29T01:30:00Z"); // the clock skips this hour
    EXPECT_EQ(instant("2026-03-29 03:00", *berlin), "2026-03-29T01:00:00Z");
    EXPECT_EQ(instant("2026-10-25 02:30", *berlin),
              "2026-10-25T01:30:00Z"); // the clock shows this hour twice
    EXPECT_EQ(instant("2026-10-25 01:59:59", *berlin), "2026-10-24T23:59:59Z");

    const auto newYork = ICUTimeZone::find("America/New_York");
    EXPECT_EQ(instant("2026-03-08 02:30", *newYork), "2026-03-08T06:30:00Z");
    EXPECT_EQ(instant("2026-11-01 01:30", *newYork), "2026-11-01T05:30:00Z");

    const auto lordHowe = ICUTimeZone::find("Australia/Lord_Howe"); // half an hour of summer time
    EXPECT_EQ(instant("2026-04-05 01:29:59", *lordHowe), "2026-04-04T14:29:59Z");
    EXPECT_EQ(instant("2026-04-05 02:00", *lordHowe), "2026-04-04T15:30:00Z");
    EXPECT_EQ(instant("2026-10-04 02:30", *lordHowe), "2026-10-03T15:30:00Z");

    const auto apia = ICUTimeZone::find("Pacific/Apia"); // left 30 December 2011 out
    EXPECT_EQ(instant("2011-12-29 23:59", *apia), "2011-12-30T09:59:00Z");
    EXPECT_EQ(instant("2011-12-31 00:00", *apia), "2011-12-30T10:00:00Z");
}

TEST(Timestamp, AsksTheZoneOnlyAboutTheTwoInstantsOfItsRule) {
    const ChangingZone forward(10'000, 1'521, 5'121);
    EXPECT_EQ(parse("1970-01-01 03:12:00", UnitChoice::automatic, forward)->instant.seconds, 11'520 - 1'521);
    EXPECT_EQ(parse("1970-01-01 04:12:02", UnitChoice::automatic, forward)->instant.seconds, 15'122 - 5'121);
    const ChangingZone back(10'000, -19'800, -23'400);
    EXPECT_EQ(parse("1969-12-31 21:16:39", UnitChoice::automatic, back)->instant.seconds, -9'801 + 19'800);
    EXPECT_EQ(parse("1969-12-31 21:16:40", UnitChoice::automatic, back)->instant.seconds, -9'800 + 23'400);
}

TEST(Timestamp, ReadsEveryDayOfTheRangeBackFromItsOwnText) {
    for (std::int64_t seconds = kFirstSecond; seconds < kLastSecond; seconds += kSecondsPerDay) {
        const std::int64_t inDay =
            seconds + (seconds / kSecondsPerDay * 7'919 % kSecondsPerDay + kSecondsPerDay) % kSecondsPerDay;
        const auto fromISO = read(iso8601Text(inDay, 0, 0));
        ASSERT_TRUE(fromISO && fromISO->instant.seconds == inDay) << inDay;
        const auto fromRFC = read(rfcDateText(inDay) + ' ' + clockText(inDay) + " GMT");
        ASSERT_TRUE(fromRFC && fromRFC->instant.seconds == inDay) << inDay;
    }
}

TEST(Timestamp, ReadsRandomInstantsBackFromEveryRow) {
    std::mt19937_64 random(8);
    std::uniform_int_distribution<std::int64_t> anySecond(kFirstSecond, kLastSecond);
    std::uniform_int_distribution<std::int32_t> anyNanosecond(0, 999'999'999);
    const auto kathmandu = ICUTimeZone::find("Asia/Kathmandu");
    for (int i = 0; i < 20'000; ++i) {
        const Instant expected{.seconds = anySecond(random),
                               .nanoseconds = i % 3 == 0 ? 0 : anyNanosecond(random)};
        const Rows shown = rows(expected, *kathmandu);
        for (const std::size_t row : {0U, 1U, 2U}) {
            const auto parsed = read(shown[row].value, static_cast<UnitChoice>(row + 1));
            ASSERT_TRUE(parsed && parsed->instant == expected) << shown[row].value;
        }
        for (const std::size_t row : {4U, 5U}) {
            // Local time may lie in a year that cannot be written.
            const auto parsed = read(shown[row].value);
            ASSERT_TRUE((parsed && parsed->instant == expected) || shown[row].value.size() > 35)
                << shown[row].value;
        }
    }
}

TEST(Timestamp, SaysHowItReadTheText) {
    const auto noteOf = [](std::string_view text, UnitChoice choice = UnitChoice::automatic) {
        return note(read(text, choice).value().reading, "Europe/Berlin");
    };
    EXPECT_EQ(noteOf("1790380800"),
              "Unix seconds since 1970, judged by its size. Choose a unit to read it otherwise.");
    EXPECT_EQ(noteOf("5", UnitChoice::nanoseconds), "Unix nanoseconds since 1970, as chosen.");
    EXPECT_EQ(noteOf("2026-09-26T12:00Z"), "Read as ISO 8601.");
    EXPECT_EQ(noteOf("2026-09-26"),
              "Read as ISO 8601. It gives no offset, so it is read as local time in Europe/Berlin.");
    EXPECT_EQ(noteOf("26 Sep 2026 12:00 GMT"), "Read as RFC 2822.");
    EXPECT_EQ(noteOf("26 Sep 2026 12:00"),
              "Read as RFC 2822. It gives no zone, so it is read as local time in Europe/Berlin.");
}

TEST(Timestamp, StoresTheUnitChoiceAsText) {
    for (const auto choice : {UnitChoice::automatic, UnitChoice::seconds, UnitChoice::milliseconds,
                              UnitChoice::microseconds, UnitChoice::nanoseconds}) {
        EXPECT_EQ(unitChoice(rawText(choice)), choice);
    }
    EXPECT_EQ(rawText(UnitChoice::automatic), "auto");
    EXPECT_EQ(unitChoice("fortnights"), std::nullopt);
}

} // namespace tarnquill::Timestamp
