// The zones that a user can choose, found by city, country, abbreviation, name or offset. Names are English,
// from ICU's data.
#pragma once

#include "common/TimeZone.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill::Timestamp {

// The city that a zone is known by: "São Paulo" for "America/Sao_Paulo". "UTC" stands for itself.
[[nodiscard]] std::string cityName(const std::string& zoneName);

class ZoneCatalogue {
public:
    struct Zone {
        std::string name; // as the IANA database has it today: "Europe/Kyiv"
        std::string city;
        std::string country;
        std::string abbreviations; // "CET, CEST"; empty when none are in use
        std::shared_ptr<const TimeZone> zone;
        std::vector<std::string> keywords; // what a search compares
    };

    // Takes some 50 ms, for it reads all zones and their names. Meta zones are those of the given instant.
    [[nodiscard]] static ZoneCatalogue load(std::int64_t seconds);

    [[nodiscard]] const std::vector<Zone>& zones() const { return m_zones; } // by city

    // The zones for which each word of the query begins one of their words, without regard to case and
    // accents, or is their offset at the instant: "+5:30", "-03", "UTC+2". Those whose city begins with the
    // query come first.
    [[nodiscard]] std::vector<const Zone*> search(std::string_view query, std::int64_t seconds) const;

private:
    std::vector<Zone> m_zones;
};

} // namespace tarnquill::Timestamp
