#include "common/ICUTimeZone.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tarnquill {

TEST(ICUTimeZone, GivesTheOffsetThatHeldAtTheInstant) {
    const auto berlin = ICUTimeZone::find("Europe/Berlin");
    ASSERT_TRUE(berlin);
    EXPECT_EQ(berlin->offsetAt(1'790'380'800), (ZoneOffset{.seconds = 7'200, .isSummerTime = true}));
    EXPECT_EQ(berlin->offsetAt(1'767'225'600), (ZoneOffset{.seconds = 3'600, .isSummerTime = false}));
    // 2026-03-29T01:00:00Z, to the second.
    EXPECT_EQ(berlin->offsetAt(1'774'745'999).seconds, 3'600);
    EXPECT_EQ(berlin->offsetAt(1'774'746'000).seconds, 7'200);
}

TEST(ICUTimeZone, KnowsOffsetsThatAreNoWholeHours) {
    EXPECT_EQ(ICUTimeZone::find("Asia/Kathmandu")->offsetAt(1'790'380'800).seconds, 20'700);
    EXPECT_EQ(ICUTimeZone::find("Europe/Dublin")->offsetAt(-2'000'000'000).seconds, -1'521);
    EXPECT_EQ(ICUTimeZone::find("Europe/Berlin")->offsetAt(-62'135'596'800).seconds, 3'208);
}

TEST(ICUTimeZone, FindsOnlyNamesOfTheDatabase) {
    EXPECT_TRUE(ICUTimeZone::find("UTC"));
    for (const auto* const name :
         {"", "Mars/Olympus", "GMT+3:30", "Etc/Unknown", "\xFF\xFE", "europe/berlin"}) {
        EXPECT_FALSE(ICUTimeZone::find(name)) << name;
    }
}

TEST(ICUTimeZone, TellsASystemZoneThatTheDataDoesNotHave) {
    ::setenv("TZ", "Asia/Tokyo", 1);
    EXPECT_EQ(ICUTimeZone::systemZoneName(), "Asia/Tokyo");
    ::setenv("TZ", "Mars/Olympus", 1);
    EXPECT_EQ(ICUTimeZone::systemZoneName(), std::nullopt);
    ::unsetenv("TZ");
}

} // namespace tarnquill
