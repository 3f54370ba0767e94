#include "jwt/TimeClaimTexts.h"

#include "common/DateText.h"
#include "common/RelativeTime.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tarnquill {

namespace {

// The years 1 to 999,999: any date that is meant, also one in milliseconds.
constexpr double kFirstSecond = -62'135'596'800;
constexpr double kLastSecond = 31'494'784'780'799;

std::string_view titleOf(JWTDecoder::TimeClaim::Name name) {
    constexpr std::array<std::string_view, 3> kTitles{"Expires", "Not before", "Issued"};
    return kTitles.at(static_cast<std::size_t>(name));
}

// As short as it can be, and without an exponent where it is an integer that a double holds exactly.
std::string numberText(double number) {
    constexpr double kLargestExact = 9'007'199'254'740'992;
    std::array<char, 32> buffer{};
    auto* const end = buffer.data() + buffer.size();
    const auto isExact = std::trunc(number) == number && std::abs(number) <= kLargestExact;
    const auto result = isExact ? std::to_chars(buffer.data(), end, static_cast<std::int64_t>(number))
                                : std::to_chars(buffer.data(), end, number);
    return {buffer.data(), result.ptr};
}

} // namespace

TimeClaimTexts texts(const JWTDecoder::TimeClaim& claim, double now, const TimeZone& zone) {
    TimeClaimTexts texts{.title = titleOf(claim.name), .utc = "Not a number of seconds"};
    if (!claim.date) {
        texts.warning = "RFC 7519 wants a number of seconds since 1970 here.";
        return texts;
    }
    if (JWTDecoder::looksLikeMilliseconds(*claim.date)) {
        texts.warning = "This looks like milliseconds. RFC 7519 wants seconds since 1970.";
    }
    if (*claim.date < kFirstSecond || *claim.date > kLastSecond) {
        texts.utc = numberText(*claim.date) + " seconds";
        return texts;
    }
    const auto whole = std::floor(*claim.date);
    const auto seconds = static_cast<std::int64_t>(whole);
    // To milliseconds: a double has no more of a present-day date than that and some noise.
    const auto milliseconds = std::min(static_cast<std::int32_t>((*claim.date - whole) * 1'000), 999);
    const auto nanoseconds = milliseconds * 1'000'000;
    texts.utc = iso8601Text(seconds, nanoseconds, 0);
    texts.local = iso8601Text(seconds, nanoseconds, zone.offsetAt(seconds).seconds);
    texts.relative = relativeTimeText(seconds, static_cast<std::int64_t>(std::floor(now)));
    return texts;
}

std::string datesAsJSON(const std::vector<JWTDecoder::TimeClaim>& claims) {
    std::string text;
    for (const auto& claim : claims) {
        if (claim.date) {
            text.append(text.empty() ? "{\n  \"" : ",\n  \"")
                .append(rawText(claim.name))
                .append("\" : ")
                .append(numberText(*claim.date));
        }
    }
    return text.empty() ? text : text + "\n}";
}

} // namespace tarnquill
