#include "timestamp/Digits.h"
#include "timestamp/Readers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace tarnquill::Timestamp {

namespace {

struct Scale {
    std::int64_t unitsPerSecond;
    std::int32_t nanosecondsPerUnit;
    int fractionDigits; // how many decimals of the unit make up nanoseconds
};

constexpr std::array kScales{Scale{1, 1'000'000'000, 9}, Scale{1'000, 1'000'000, 6},
                             Scale{1'000'000, 1'000, 3}, Scale{1'000'000'000, 1, 0}};

// Today is about 1.8e9 seconds; each unit takes over where the one before would reach beyond the year 5138.
Unit unitBySize(std::int64_t magnitude) {
    if (magnitude < 100'000'000'000) {
        return Unit::seconds;
    }
    if (magnitude < 100'000'000'000'000) {
        return Unit::milliseconds;
    }
    return magnitude < 100'000'000'000'000'000 ? Unit::microseconds : Unit::nanoseconds;
}

Unit chosenUnit(UnitChoice choice, std::int64_t magnitude) {
    return choice == UnitChoice::automatic ? unitBySize(magnitude)
                                           : static_cast<Unit>(std::to_underlying(choice) - 1);
}

bool isDigits(std::string_view text) {
    return std::ranges::all_of(text, isDigit);
}

} // namespace

Answer readUnixNumber(std::string_view text, UnitChoice choice) {
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const std::size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction = point == std::string_view::npos ? "" : text.substr(point + 1);
    std::int64_t magnitude = 0;
    if (whole.empty() || !isDigits(whole) || !isDigits(fraction) ||
        std::from_chars(whole.data(), whole.data() + whole.size(), magnitude).ec != std::errc()) {
        return std::nullopt;
    }

    const Unit unit = chosenUnit(choice, magnitude);
    const Scale& scale = kScales[std::to_underlying(unit)];
    Instant instant{.seconds = magnitude / scale.unitsPerSecond,
                    .nanoseconds = static_cast<std::int32_t>(magnitude % scale.unitsPerSecond) *
                                       scale.nanosecondsPerUnit +
                                   fractionValue(fraction, scale.fractionDigits)};
    if (isNegative) {
        instant.seconds = -instant.seconds;
        if (instant.nanoseconds > 0) {
            --instant.seconds;
            instant.nanoseconds = 1'000'000'000 - instant.nanoseconds;
        }
    }
    if (instant.seconds < kFirstSecond || kLastSecond < instant.seconds) {
        return std::unexpected(Failure::outOfRange);
    }
    return Parsed{.instant = instant,
                  .reading = Number{.unit = unit, .isGuessed = choice == UnitChoice::automatic}};
}

} // namespace tarnquill::Timestamp
