// How a time claim is shown.
#pragma once

#include "common/TimeZone.h"
#include "jwt/JWTDecoder.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarnquill {

struct TimeClaimTexts {
    std::string_view title;     // "Expires"
    std::string utc;            // "2036-09-26T00:00:00Z", or that it is no number
    std::string local{};        // on the zone's clock; empty without a date, as is what follows
    std::string relative{};     // "in 10 years"
    std::string_view warning{}; // what is wrong with the claim

    friend bool operator==(const TimeClaimTexts&, const TimeClaimTexts&) = default;
};

// `now` is in seconds since 1970-01-01T00:00:00Z. A date that no calendar reaches is shown as its seconds.
[[nodiscard]] TimeClaimTexts texts(const JWTDecoder::TimeClaim& claim, double now, const TimeZone& zone);

// The dates that there are, as a JSON object of seconds; empty when there are none.
[[nodiscard]] std::string datesAsJSON(const std::vector<JWTDecoder::TimeClaim>& claims);

} // namespace tarnquill
