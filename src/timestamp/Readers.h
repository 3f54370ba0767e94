// The readers that parse() tries in turn, one a written form. Each answers nothing when the text, which has
// no white space at its ends, is not of its form, and `outOfRange` when it is but lies outside the years 1 to
// 9999.
#pragma once

#include "timestamp/Timestamp.h"

namespace tarnquill::Timestamp {

using Answer = std::optional<std::expected<Parsed, Failure>>;

[[nodiscard]] Answer readUnixNumber(std::string_view text, UnitChoice choice);
[[nodiscard]] Answer readISO8601(std::string_view text, const TimeZone& zone);
[[nodiscard]] Answer readRFC2822(std::string_view text, const TimeZone& zone);

} // namespace tarnquill::Timestamp
