#include "common/TextNavigation.h"

#include "common/Graphemes.h"
#include "common/TextReader.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <cstdint>
#include <string>

namespace tarnquill::TextNavigation {

namespace {

// How much text around a position decides about the characters next to it.
constexpr std::size_t kContext = 3 * Graphemes::kLongest;

struct Surroundings {
    std::u16string scratch;
    std::u16string_view text;
    std::size_t start = 0;
};

Surroundings surroundings(const TextBuffer& buffer, std::size_t position) {
    Surroundings result;
    result.start = position > kContext ? position - kContext : 0;
    const auto end = std::min(buffer.length(), position + kContext);
    result.text = buffer.view({.location = result.start, .length = end - result.start}, result.scratch);
    return result;
}

enum class Kind : std::uint8_t { space, lineEnd, word, other };

Kind kindOf(char16_t unit) {
    if (unit == u'\n' || unit == u'\r') {
        return Kind::lineEnd;
    }
    if (U16_IS_SURROGATE(unit)) {
        // Letters beyond the basic plane are rarer in words than emoji beside them, and either is a run of
        // its own.
        return Kind::other;
    }
    if (u_isUWhiteSpace(unit) != 0) {
        return Kind::space;
    }
    constexpr auto kWord = U_GC_L_MASK | U_GC_N_MASK | U_GC_M_MASK | U_GC_PC_MASK;
    return (U_MASK(u_charType(unit)) & kWord) != 0 ? Kind::word : Kind::other;
}

} // namespace

std::size_t characterStart(const TextBuffer& buffer, std::size_t position) {
    const auto around = surroundings(buffer, position);
    return around.start + Graphemes::start(around.text, position - around.start);
}

std::size_t nextCharacter(const TextBuffer& buffer, std::size_t position) {
    if (position >= buffer.length()) {
        return buffer.length();
    }
    const auto around = surroundings(buffer, position);
    return around.start + Graphemes::end(around.text, Graphemes::start(around.text, position - around.start));
}

std::size_t previousCharacter(const TextBuffer& buffer, std::size_t position) {
    if (position == 0) {
        return 0;
    }
    const auto around = surroundings(buffer, position);
    return around.start + Graphemes::start(around.text, position - around.start - 1);
}

std::size_t nextWord(const TextBuffer& buffer, std::size_t position) {
    TextReader reader(buffer);
    const auto length = reader.length();
    if (position >= length) {
        return length;
    }
    const auto first = kindOf(reader[position]);
    if (first == Kind::lineEnd) {
        return nextCharacter(buffer, position);
    }
    while (position < length && kindOf(reader[position]) == first) {
        ++position;
    }
    while (position < length && kindOf(reader[position]) == Kind::space) {
        ++position;
    }
    return characterStart(buffer, position);
}

std::size_t previousWord(const TextBuffer& buffer, std::size_t position) {
    TextReader reader(buffer);
    if (position == 0) {
        return 0;
    }
    if (kindOf(reader[position - 1]) == Kind::lineEnd) {
        return previousCharacter(buffer, position);
    }
    while (position > 0 && kindOf(reader[position - 1]) == Kind::space) {
        --position;
    }
    const auto last = position > 0 ? kindOf(reader[position - 1]) : Kind::lineEnd;
    if (last != Kind::lineEnd) {
        while (position > 0 && kindOf(reader[position - 1]) == last) {
            --position;
        }
    }
    return characterStart(buffer, position);
}

TextRange wordAt(const TextBuffer& buffer, std::size_t position) {
    TextReader reader(buffer);
    const auto length = reader.length();
    const auto isLineEnd = [&](std::size_t at) {
        return at == length || kindOf(reader[at]) == Kind::lineEnd;
    };
    if (isLineEnd(position)) {
        if (position == 0 || isLineEnd(position - 1)) {
            return {.location = position, .length = 0};
        }
        --position;
    }
    const auto kind = kindOf(reader[position]);
    auto start = position;
    while (start > 0 && kindOf(reader[start - 1]) == kind) {
        --start;
    }
    auto end = position + 1;
    while (end < length && kindOf(reader[end]) == kind) {
        ++end;
    }
    return {.location = start, .length = end - start};
}

std::size_t lineEnd(const TextBuffer& buffer, std::size_t line) {
    const auto range = buffer.lineRange(line);
    const auto hasLineFeed = range.end() < buffer.length();
    if (hasLineFeed && range.length > 0 && buffer.unitAt(range.end() - 1) == u'\r') {
        return range.end() - 1;
    }
    return range.end();
}

std::size_t lineIndentEnd(const TextBuffer& buffer, std::size_t line) {
    TextReader reader(buffer);
    auto position = buffer.lineStart(line);
    const auto end = lineEnd(buffer, line);
    while (position < end && (reader[position] == u' ' || reader[position] == u'\t')) {
        ++position;
    }
    return position;
}

} // namespace tarnquill::TextNavigation
