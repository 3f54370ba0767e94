#include "common/RelativeTime.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarnquill {

constexpr std::int64_t kHour = 3'600;
constexpr std::int64_t kDay = 24 * kHour;

TEST(RelativeTime, TellsTheLargestUnitThatIsReached) {
    constexpr std::int64_t kNow = 1'790'380'800;
    const auto ago = [](std::int64_t seconds) { return relativeTimeText(kNow - seconds, kNow); };
    EXPECT_EQ(ago(0), "now");
    EXPECT_EQ(ago(1), "1 second ago");
    EXPECT_EQ(ago(59), "59 seconds ago");
    EXPECT_EQ(ago(60), "1 minute ago");
    EXPECT_EQ(ago(3 * kHour), "3 hours ago");
    EXPECT_EQ(ago(2 * kDay), "2 days ago");
    EXPECT_EQ(ago(30 * kDay), "30 days ago");
    EXPECT_EQ(ago(31 * kDay), "1 month ago");
    EXPECT_EQ(ago(-90), "in 2 minutes");
    EXPECT_EQ(ago(-1), "in 1 second");
}

TEST(RelativeTime, RoundsUpIntoTheNextUnit) {
    EXPECT_EQ(relativeTimeText(3'599, 0), "in 1 hour");
    EXPECT_EQ(relativeTimeText(86'399, 0), "in 1 day");
    EXPECT_EQ(relativeTimeText(360 * kDay, 0), "in 1 year");
    EXPECT_EQ(relativeTimeText(2'106'000'000, 1'790'553'600), "in 10 years");
}

TEST(RelativeTime, TakesAnyTwoInstants) {
    constexpr auto kFirst = std::numeric_limits<std::int64_t>::min();
    constexpr auto kLast = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(relativeTimeText(kLast, kFirst), "in 584554049254 years");
    EXPECT_EQ(relativeTimeText(kFirst, kLast), "584554049254 years ago");
}

} // namespace tarnquill
