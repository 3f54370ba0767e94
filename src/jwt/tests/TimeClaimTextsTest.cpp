#include "jwt/TimeClaimTexts.h"

#include "common/testing/FixedZone.h"

#include <gtest/gtest.h>

namespace tarnquill {

namespace {

using Name = JWTDecoder::TimeClaim::Name;

constexpr std::string_view kMilliseconds = "This looks like milliseconds. RFC 7519 wants seconds since 1970.";

TimeClaimTexts shown(std::optional<double> date) {
    return texts({.name = Name::exp, .date = date}, 1'790'380'800, FixedZone(7'200));
}

} // namespace

TEST(TimeClaimTexts, TellADateInUTCAndOnTheLocalClock) {
    EXPECT_EQ(shown(2'106'000'000), (TimeClaimTexts{.title = "Expires",
                                                    .utc = "2036-09-26T00:00:00Z",
                                                    .local = "2036-09-26T02:00:00+02:00",
                                                    .relative = "in 10 years"}));
    EXPECT_EQ(shown(-0.5).utc, "1969-12-31T23:59:59.500Z");
    EXPECT_EQ(shown(1'790'380'799.9).relative, "1 second ago");
}

TEST(TimeClaimTexts, SayWhatIsWrongWithAClaim) {
    EXPECT_EQ(shown({}), (TimeClaimTexts{.title = "Expires",
                                         .utc = "Not a number of seconds",
                                         .warning = "RFC 7519 wants a number of seconds since 1970 here."}));
    EXPECT_EQ(shown(1.7e12).utc, "55840-11-08T22:13:20Z");
    EXPECT_EQ(shown(1.7e12).warning, kMilliseconds);
    EXPECT_EQ(shown(99'999'999'999).warning, "");
}

TEST(TimeClaimTexts, TellADateThatNoCalendarReachesAsItsSeconds) {
    EXPECT_EQ(shown(1e300),
              (TimeClaimTexts{.title = "Expires", .utc = "1e+300 seconds", .warning = kMilliseconds}));
    EXPECT_EQ(shown(-1e300).utc, "-1e+300 seconds");
    EXPECT_EQ(shown(-62'135'596'801).utc, "-62135596801 seconds");
    EXPECT_EQ(shown(-62'135'596'800).utc, "0001-01-01T00:00:00Z");
}

TEST(TimeClaimTexts, WriteTheDatesAsJSON) {
    EXPECT_EQ(datesAsJSON({{Name::exp, 2'106'000'000.0}, {Name::nbf, {}}, {Name::iat, 0.5}}),
              "{\n  \"exp\" : 2106000000,\n  \"iat\" : 0.5\n}");
    EXPECT_EQ(datesAsJSON({{Name::exp, {}}}), "");
}

} // namespace tarnquill
