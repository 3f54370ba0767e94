// Reads a Unix time (in four units), an ISO 8601 date and time or an RFC 2822 date into one exact instant,
// and says how it was read. All arithmetic is on whole seconds and nanoseconds.
#pragma once

#include "common/TimeZone.h"

#include <compare>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace tarnquill::Timestamp {

struct Instant {
    std::int64_t seconds = 0;     // since 1970-01-01T00:00:00Z
    std::int32_t nanoseconds = 0; // 0 to 999'999'999, added to the seconds

    friend constexpr auto operator<=>(const Instant&, const Instant&) = default;
};

// 0001-01-01T00:00:00Z and 9999-12-31T23:59:59Z: as far as ISO 8601 and RFC 2822 go.
inline constexpr std::int64_t kFirstSecond = -62'135'596'800;
inline constexpr std::int64_t kLastSecond = 253'402'300'799;

enum class Unit : std::uint8_t { seconds, milliseconds, microseconds, nanoseconds };

enum class UnitChoice : std::uint8_t { automatic, seconds, milliseconds, microseconds, nanoseconds };

// The text by which a choice is stored: "auto", "seconds", "milliseconds", "microseconds", "nanoseconds".
[[nodiscard]] std::string_view rawText(UnitChoice choice);
[[nodiscard]] std::optional<UnitChoice> unitChoice(std::string_view rawText);

struct Number {
    Unit unit;
    bool isGuessed; // by its size

    friend constexpr bool operator==(const Number&, const Number&) = default;
};

struct ISO8601 {
    bool isOffsetGiven;

    friend constexpr bool operator==(const ISO8601&, const ISO8601&) = default;
};

struct RFC2822 {
    bool isOffsetGiven;

    friend constexpr bool operator==(const RFC2822&, const RFC2822&) = default;
};

using Reading = std::variant<Number, ISO8601, RFC2822>;

struct Parsed {
    Instant instant;
    Reading reading;

    friend constexpr bool operator==(const Parsed&, const Parsed&) = default;
};

enum class Failure : std::uint8_t { empty, unrecognised, outOfRange };

// White space around the text is ignored. A text without an offset is local time in the zone; a Unix number
// is in the chosen unit, or in the one that its size suggests.
[[nodiscard]] std::expected<Parsed, Failure> parse(std::string_view text, UnitChoice choice,
                                                   const TimeZone& zone);

// The sentence for the user.
[[nodiscard]] std::string_view message(Failure failure);

// The name of the form: "Unix milliseconds", "ISO 8601" or "RFC 2822".
[[nodiscard]] std::string_view name(const Reading& reading);

// One or two sentences on how the text was read. `zoneName` is what parse()'s zone is called.
[[nodiscard]] std::string note(const Reading& reading, std::string_view zoneName);

} // namespace tarnquill::Timestamp
