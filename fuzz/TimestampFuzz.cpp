// Whatever is read as an instant, in any unit and zone, is in range, and its ISO 8601 and Unix rows read back
// to that instant.
#include "FuzzInput.h"
#include "common/ICUTimeZone.h"
#include "timestamp/TimestampRows.h"

#include <array>

namespace {

using namespace tarnquill;
using fuzz::require;
using Timestamp::UnitChoice;

void requireReadsBack(const Timestamp::Row& row, UnitChoice choice, const Timestamp::Instant& instant,
                      const TimeZone& zone) {
    const auto parsed = Timestamp::parse(row.value, choice, zone);
    require(parsed && parsed->instant == instant);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::array kZones{ICUTimeZone::find("Asia/Kathmandu"), ICUTimeZone::find("America/St_Johns"),
                                   ICUTimeZone::find("Australia/Lord_Howe"), ICUTimeZone::find("UTC")};
    if (size == 0) {
        return 0;
    }
    const auto choice = static_cast<UnitChoice>(data[0] % 5);
    const auto& zone = *kZones[data[0] / 5 % kZones.size()];
    const std::string text(data + 1, data + size);
    const auto parsed = Timestamp::parse(text, choice, zone);
    if (!parsed) {
        return 0;
    }
    const auto& instant = parsed->instant;
    require(Timestamp::kFirstSecond <= instant.seconds && instant.seconds <= Timestamp::kLastSecond);
    require(0 <= instant.nanoseconds && instant.nanoseconds < 1'000'000'000);

    const auto rows = Timestamp::rows(instant, zone);
    requireReadsBack(rows[0], UnitChoice::seconds, instant, zone);
    requireReadsBack(rows[1], UnitChoice::milliseconds, instant, zone);
    requireReadsBack(rows[2], UnitChoice::microseconds, instant, zone);
    requireReadsBack(rows[4], UnitChoice::automatic, instant, zone);
    return 0;
}
