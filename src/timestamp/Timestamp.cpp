#include "timestamp/Timestamp.h"

#include "common/WhiteSpace.h"
#include "timestamp/Readers.h"

#include <algorithm>
#include <array>
#include <type_traits>
#include <utility>

namespace tarnquill::Timestamp {

namespace {

constexpr std::array<std::string_view, 5> kRawTexts{"auto", "seconds", "milliseconds", "microseconds",
                                                    "nanoseconds"};

std::string dateNote(std::string_view form, std::string_view missing, std::string_view zoneName) {
    std::string text("Read as ");
    text.append(form) += '.';
    if (!missing.empty()) {
        text.append(" It gives no ").append(missing).append(", so it is read as local time in ");
        text.append(zoneName) += '.';
    }
    return text;
}

} // namespace

std::string_view rawText(UnitChoice choice) {
    return kRawTexts[std::to_underlying(choice)];
}

std::optional<UnitChoice> unitChoice(std::string_view rawText) {
    const auto* const found = std::ranges::find(kRawTexts, rawText);
    if (found == kRawTexts.end()) {
        return std::nullopt;
    }
    return static_cast<UnitChoice>(found - kRawTexts.begin());
}

std::expected<Parsed, Failure> parse(std::string_view text, UnitChoice choice, const TimeZone& zone) {
    const std::string_view content = trimmed(text);
    if (content.empty()) {
        return std::unexpected(Failure::empty);
    }
    if (const auto number = readUnixNumber(content, choice)) {
        return *number;
    }
    if (const auto date = readISO8601(content, zone)) {
        return *date;
    }
    if (const auto date = readRFC2822(content, zone)) {
        return *date;
    }
    return std::unexpected(Failure::unrecognised);
}

std::string_view message(Failure failure) {
    switch (failure) {
    case Failure::empty:
        return "Paste a Unix timestamp or a date, or choose Now.";
    case Failure::unrecognised:
        return "Not a timestamp or a date this tool reads. Try Unix time (1790380800), ISO 8601 "
               "(2026-09-26T12:00:00Z) or RFC 2822 (Sat, 26 Sep 2026 12:00:00 GMT).";
    case Failure::outOfRange:
        return "Outside the years 1 to 9999, which is as far as ISO 8601 and RFC 2822 go.";
    }
    std::unreachable();
}

std::string_view name(const Reading& reading) {
    static constexpr std::array<std::string_view, 4> kUnits{"Unix seconds", "Unix milliseconds",
                                                            "Unix microseconds", "Unix nanoseconds"};
    if (const auto* const number = std::get_if<Number>(&reading)) {
        return kUnits[std::to_underlying(number->unit)];
    }
    return std::holds_alternative<ISO8601>(reading) ? "ISO 8601" : "RFC 2822";
}

std::string note(const Reading& reading, std::string_view zoneName) {
    if (const auto* const number = std::get_if<Number>(&reading)) {
        std::string text(name(reading));
        return text.append(number->isGuessed
                               ? " since 1970, judged by its size. Choose a unit to read it otherwise."
                               : " since 1970, as chosen.");
    }
    if (const auto* const date = std::get_if<ISO8601>(&reading)) {
        return dateNote(name(reading), date->isOffsetGiven ? "" : "offset", zoneName);
    }
    return dateNote(name(reading), std::get<RFC2822>(reading).isOffsetGiven ? "" : "zone", zoneName);
}

} // namespace tarnquill::Timestamp
