#include "common/WhiteSpace.h"
#include "timestamp/Digits.h"
#include "timestamp/Readers.h"
#include "timestamp/WrittenTime.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>

namespace tarnquill::Timestamp {

namespace {

struct NamedZone {
    std::string_view name;
    int hours; // east of UTC
};

constexpr std::array kZones{NamedZone{"GMT", 0},  NamedZone{"UT", 0},   NamedZone{"UTC", 0},
                            NamedZone{"Z", 0},    NamedZone{"EST", -5}, NamedZone{"EDT", -4},
                            NamedZone{"CST", -6}, NamedZone{"CDT", -5}, NamedZone{"MST", -7},
                            NamedZone{"MDT", -6}, NamedZone{"PST", -8}, NamedZone{"PDT", -7}};

constexpr std::array<std::string_view, 12> kMonths{"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                   "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

bool isEqualInUpperCase(std::string_view text, std::string_view upperCase) {
    return std::ranges::equal(text, upperCase, {}, [](char character) {
        return 'a' <= character && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
    });
}

// The characters before the first white space.
std::string_view firstToken(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && whiteSpaceAt(text, length) == 0) {
        ++length;
    }
    return text.substr(0, length);
}

std::string_view takeToken(std::string_view& text) {
    const std::string_view token = firstToken(text);
    text = trimmed(text.substr(token.size()));
    return token;
}

bool isASCIILetter(char character) {
    return ('a' <= character && character <= 'z') || ('A' <= character && character <= 'Z');
}

bool isWord(std::string_view token) {
    if (std::ranges::all_of(token, isASCIILetter)) {
        return !token.empty();
    }
    const auto text = icu::UnicodeString::fromUTF8({token.data(), static_cast<std::int32_t>(token.size())});
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        if (!u_isalpha(text.char32At(i))) {
            return false;
        }
    }
    return true;
}

// Without a leading day name, the comma behind it, and the white space around that. Any word will do for a
// day name.
std::string_view withoutDayName(std::string_view text) {
    const std::string_view token = firstToken(text);
    const std::string_view word = token.substr(0, token.find(','));
    if (!isWord(word)) {
        return text;
    }
    const std::string_view rest = trimmed(text.substr(word.size()));
    return trimmed(rest.substr(rest.starts_with(',') ? 1 : 0));
}

// The value of a text of digits only. What is beyond every field's limit is given as a number beyond it.
std::optional<int> numberOf(std::string_view text) {
    constexpr int kBeyond = 100'000;
    if (text.empty() || !std::ranges::all_of(text, isDigit)) {
        return std::nullopt;
    }
    int value = 0;
    for (const char digit : text) {
        value = std::min(value * 10 + (digit - '0'), kBeyond);
    }
    return value;
}

bool readNumber(std::string_view text, int& value) {
    const auto number = numberOf(text);
    value = number.value_or(0);
    return number.has_value();
}

bool readMonth(std::string_view text, int& month) {
    const auto* const found = std::ranges::find_if(
        kMonths, [text](std::string_view name) { return isEqualInUpperCase(text, name); });
    month = static_cast<int>(found - kMonths.begin()) + 1;
    return found != kMonths.end();
}

bool readClock(std::string_view text, CivilTime& time) {
    const std::size_t first = text.find(':');
    if (first == std::string_view::npos) {
        return false;
    }
    const std::size_t second = text.find(':', first + 1);
    return readNumber(text.substr(0, first), time.hour) &&
           readNumber(text.substr(first + 1, second - first - 1), time.minute) &&
           (second == std::string_view::npos || readNumber(text.substr(second + 1), time.second));
}

std::optional<std::int32_t> offsetOfZone(std::string_view text) {
    for (const NamedZone& zone : kZones) {
        if (isEqualInUpperCase(text, zone.name)) {
            return zone.hours * 3'600;
        }
    }
    int hours = 0;
    int minutes = 0;
    const bool isNumeric = text.size() == 5 && (text[0] == '+' || text[0] == '-') &&
                           readNumber(text.substr(1, 2), hours) && readNumber(text.substr(3), minutes);
    return isNumeric ? offsetOf(text[0], hours, minutes) : std::nullopt;
}

} // namespace

Answer readRFC2822(std::string_view text, const TimeZone& zone) {
    std::string_view rest = withoutDayName(text);
    WrittenTime written;
    CivilTime& time = written.time;
    const std::string_view day = takeToken(rest);
    if (day.size() > 2 || !readNumber(day, time.date.day) || !readMonth(takeToken(rest), time.date.month) ||
        !readNumber(takeToken(rest), time.date.year) || !readClock(takeToken(rest), time) || !isValid(time)) {
        return std::nullopt;
    }
    if (!rest.empty()) {
        written.offset = offsetOfZone(takeToken(rest));
        if (!written.offset || !rest.empty()) {
            return std::nullopt;
        }
    }
    return parsedAs(RFC2822{.isOffsetGiven = written.offset.has_value()}, written, zone);
}

} // namespace tarnquill::Timestamp
