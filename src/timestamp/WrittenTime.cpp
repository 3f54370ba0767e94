#include "timestamp/WrittenTime.h"

namespace tarnquill::Timestamp {

std::optional<std::int32_t> offsetOf(char sign, int hours, int minutes, int seconds) {
    if (hours > 23 || minutes > 59 || seconds > 59) {
        return std::nullopt;
    }
    const int magnitude = hours * 3'600 + minutes * 60 + seconds;
    return sign == '-' ? -magnitude : magnitude;
}

std::expected<Parsed, Failure> parsedAs(const Reading& reading, const WrittenTime& written,
                                        const TimeZone& zone) {
    const std::int64_t onClock = secondsFromCivil(written.time);
    std::int64_t seconds = onClock;
    if (written.offset) {
        seconds -= *written.offset;
    } else {
        // The offset that holds at the instant is only known once the instant is. A first guess takes the
        // clock for UTC, and the second looks where that guess points: exact except within a change of the
        // offset itself.
        const std::int32_t guess = zone.offsetAt(onClock).seconds;
        seconds -= zone.offsetAt(onClock - guess).seconds;
    }
    if (seconds < kFirstSecond || kLastSecond < seconds) {
        return std::unexpected(Failure::outOfRange);
    }
    return Parsed{.instant = {.seconds = seconds, .nanoseconds = written.nanoseconds}, .reading = reading};
}

} // namespace tarnquill::Timestamp
