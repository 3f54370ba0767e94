#include "common/ICUTimeZone.h"

#include <unicode/timezone.h>

namespace tarnquill {

std::shared_ptr<const ICUTimeZone> ICUTimeZone::find(std::string_view name) {
    const auto id = icu::UnicodeString::fromUTF8({name.data(), static_cast<std::int32_t>(name.size())});
    // ICU also makes up zones such as "GMT+3:30", and gives a zone without a name to a name that it does not
    // know.
    icu::UnicodeString canonical;
    UBool isInData = false;
    UErrorCode status = U_ZERO_ERROR;
    icu::TimeZone::getCanonicalID(id, canonical, isInData, status);
    if (U_FAILURE(status) || !isInData || canonical == icu::UnicodeString(UCAL_UNKNOWN_ZONE_ID)) {
        return nullptr;
    }
    return std::shared_ptr<const ICUTimeZone>(
        new ICUTimeZone(std::unique_ptr<const icu::TimeZone>(icu::TimeZone::createTimeZone(id))));
}

std::optional<std::string> ICUTimeZone::systemZoneName() {
    const std::unique_ptr<const icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
    std::string name;
    if (zone) {
        icu::UnicodeString id;
        zone->getID(id).toUTF8String(name);
    }
    return find(name) ? std::optional(name) : std::nullopt;
}

ICUTimeZone::ICUTimeZone(std::unique_ptr<const icu::TimeZone> zone) : m_zone(std::move(zone)) {}

ICUTimeZone::~ICUTimeZone() = default;

ZoneOffset ICUTimeZone::offsetAt(std::int64_t seconds) const {
    std::int32_t standard = 0;
    std::int32_t summer = 0;
    UErrorCode status = U_ZERO_ERROR;
    m_zone->getOffset(static_cast<double>(seconds) * 1'000.0, false, standard, summer, status);
    return {.seconds = (standard + summer) / 1'000, .isSummerTime = summer != 0};
}

} // namespace tarnquill
