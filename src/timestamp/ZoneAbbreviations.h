// The abbreviations that people use for zones' times, such as "CET" and "CEST". ICU's data names them in part
// only, and differently by locale.
#pragma once

#include <string_view>

namespace tarnquill::Timestamp {

struct ZoneAbbreviations {
    // A zone's name, or the name of a group of zones that share their names (a CLDR meta zone).
    std::string_view area;
    std::string_view standard;
    std::string_view summer; // empty when none is in use
};

// Those of the zone itself or else of its group. Null when neither has any.
[[nodiscard]] const ZoneAbbreviations* findAbbreviations(std::string_view zoneName, std::string_view group);

} // namespace tarnquill::Timestamp
