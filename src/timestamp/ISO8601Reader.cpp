#include "timestamp/Digits.h"
#include "timestamp/Readers.h"
#include "timestamp/WrittenTime.h"

namespace tarnquill::Timestamp {

namespace {

// Walks over the text from the left. What does not fit leaves it in place.
class Cursor {
public:
    explicit Cursor(std::string_view text) : m_rest(text) {}

    [[nodiscard]] bool isAtEnd() const { return m_rest.empty(); }

    // The character, when it is one of these, and 0 otherwise.
    char takeOneOf(std::string_view characters) {
        if (m_rest.empty() || !characters.contains(m_rest.front())) {
            return 0;
        }
        const char taken = m_rest.front();
        m_rest.remove_prefix(1);
        return taken;
    }

    bool takeNumber(int width, int& value) {
        int read = 0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(width); ++i) {
            if (i == m_rest.size() || !isDigit(m_rest[i])) {
                return false;
            }
            read = read * 10 + (m_rest[i] - '0');
        }
        m_rest.remove_prefix(static_cast<std::size_t>(width));
        value = read;
        return true;
    }

    std::string_view takeDigits() {
        std::size_t length = 0;
        while (length < m_rest.size() && isDigit(m_rest[length])) {
            ++length;
        }
        const std::string_view taken = m_rest.substr(0, length);
        m_rest.remove_prefix(length);
        return taken;
    }

private:
    std::string_view m_rest;
};

bool takeDate(Cursor& cursor, CivilDate& date) {
    return cursor.takeNumber(4, date.year) && cursor.takeOneOf("-") && cursor.takeNumber(2, date.month) &&
           cursor.takeOneOf("-") && cursor.takeNumber(2, date.day);
}

// Hours and minutes, and perhaps seconds, which may have a fraction.
bool takeClock(Cursor& cursor, WrittenTime& written) {
    if (!cursor.takeNumber(2, written.time.hour) || !cursor.takeOneOf(":") ||
        !cursor.takeNumber(2, written.time.minute)) {
        return false;
    }
    if (!cursor.takeOneOf(":")) {
        return true;
    }
    if (!cursor.takeNumber(2, written.time.second)) {
        return false;
    }
    if (!cursor.takeOneOf(".,")) {
        return true;
    }
    const std::string_view fraction = cursor.takeDigits();
    written.nanoseconds = fractionValue(fraction, kNanosecondDigits);
    return !fraction.empty();
}

// Nothing at all is also well formed.
bool takeOffset(Cursor& cursor, std::optional<std::int32_t>& offset) {
    if (cursor.takeOneOf("Zz")) {
        offset = 0;
        return true;
    }
    const char sign = cursor.takeOneOf("+-");
    if (!sign) {
        return true;
    }
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
    if (!cursor.takeNumber(2, hours)) {
        return false;
    }
    const bool hasColon = cursor.takeOneOf(":");
    if (cursor.takeNumber(2, minutes)) {
        if (cursor.takeOneOf(":") && !cursor.takeNumber(2, seconds)) {
            return false;
        }
    } else if (hasColon) {
        return false;
    }
    offset = offsetOf(sign, hours, minutes, seconds);
    return offset.has_value();
}

} // namespace

Answer readISO8601(std::string_view text, const TimeZone& zone) {
    Cursor cursor(text);
    WrittenTime written;
    if (!takeDate(cursor, written.time.date)) {
        return std::nullopt;
    }
    if (!cursor.isAtEnd()) {
        if (!cursor.takeOneOf(" Tt") || !takeClock(cursor, written)) {
            return std::nullopt;
        }
        while (cursor.takeOneOf(" ")) {
        }
        if (!takeOffset(cursor, written.offset)) {
            return std::nullopt;
        }
    }
    if (!cursor.isAtEnd() || !isValid(written.time)) {
        return std::nullopt;
    }
    return parsedAs(ISO8601{.isOffsetGiven = written.offset.has_value()}, written, zone);
}

} // namespace tarnquill::Timestamp
