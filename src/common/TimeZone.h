// Says how far a zone's local time is ahead of UTC.
#pragma once

#include <cstdint>

namespace tarnquill {

struct ZoneOffset {
    std::int32_t seconds = 0; // positive east of Greenwich, less than a day
    bool isSummerTime = false;

    friend constexpr bool operator==(const ZoneOffset&, const ZoneOffset&) = default;
};

class TimeZone {
public:
    TimeZone() = default;
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
    virtual ~TimeZone() = default;

    // The offset at an instant, given in seconds since 1970-01-01T00:00:00Z. Safe to call from several
    // threads.
    [[nodiscard]] virtual ZoneOffset offsetAt(std::int64_t seconds) const = 0;
};

} // namespace tarnquill
