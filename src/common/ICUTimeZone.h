// A zone of the IANA time zone database, as ICU's data has it.
#pragma once

#include "common/TimeZone.h"

#include <unicode/uversion.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

U_NAMESPACE_BEGIN
class TimeZone;
U_NAMESPACE_END

namespace tarnquill {

class ICUTimeZone final : public TimeZone {
public:
    // The zone with an IANA name such as "Europe/Berlin"; null when the data has none of that name.
    [[nodiscard]] static std::shared_ptr<const ICUTimeZone> find(std::string_view name);

    // The name of the zone that the system is set to, unless the data has none of that name.
    [[nodiscard]] static std::optional<std::string> systemZoneName();
    // The zone to take then.
    static constexpr auto kFallbackName = "UTC";

    ~ICUTimeZone() override;

    [[nodiscard]] ZoneOffset offsetAt(std::int64_t seconds) const override;

private:
    explicit ICUTimeZone(std::unique_ptr<const icu::TimeZone> zone);

    std::unique_ptr<const icu::TimeZone> m_zone;
};

} // namespace tarnquill
