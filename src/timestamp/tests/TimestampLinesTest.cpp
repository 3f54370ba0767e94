#include "timestamp/TimestampLines.h"

#include "common/testing/FixedZone.h"

#include <gtest/gtest.h>

namespace tarnquill::Timestamp {

TEST(TimestampLines, ReadsEachLineByItself) {
    const FixedZone zone(3'600);
    const auto lines = Lines::read("1790380800\r\n\n  2026-09-26 01:00 \rnonsense\n9999999999999999999\n",
                                   UnitChoice::automatic, zone);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines.text(1), "2026-09-26 01:00");
    EXPECT_EQ(lines.parsed(0)->instant, lines.parsed(1)->instant);
    EXPECT_EQ(lines.parsed(2).error(), Failure::unrecognised);
    EXPECT_EQ(lines.failureCount(), 2U);
    EXPECT_EQ(Lines::read(" \n\t\r\n", UnitChoice::automatic, zone).size(), 0U);
}

TEST(TimestampLines, WritesItsTableWithTabs) {
    const FixedZone zone(3'600);
    const auto lines = Lines::read("0.5\nno\ttime", UnitChoice::automatic, zone);
    EXPECT_EQ(tabSeparated(lines, {.first = 0, .count = 2}, zone),
              "Input\tRead as\tISO 8601, UTC\tISO 8601, local\tUnix seconds\n"
              "0.5\tUnix seconds\t1970-01-01T00:00:00.500Z\t1970-01-01T01:00:00.500+01:00\t0.5\n"
              "no time\t" +
                  std::string(message(Failure::unrecognised)) + "\t\t\t\n");
}

TEST(TimestampLines, StopsWhenAskedTo) {
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(Lines::read("1\n2\n", UnitChoice::automatic, FixedZone(0), stop.get_token()).size(), 0U);
}

} // namespace tarnquill::Timestamp
