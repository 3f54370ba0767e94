#include "markdown/MarkdownLines.h"

#include "markdown/MarkdownText.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>

namespace tarnquill::Markdown {

namespace {

// The end of the decimal digits, of any script, that begin at the position.
std::size_t digitsEnd(std::string_view line, std::size_t position) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(line.data());
    for (auto next = position; next < line.size(); position = next) {
        UChar32 character = 0;
        // NOLINTNEXTLINE(bugprone-inc-dec-in-conditions): the macro is written so
        U8_NEXT(bytes, next, line.size(), character);
        if (character < 0 || u_isdigit(character) == 0) {
            break;
        }
    }
    return position;
}

} // namespace

std::vector<std::string_view> linesOf(std::string_view source) {
    std::vector<std::string_view> lines;
    const bool hasReturns = source.contains('\r');
    std::size_t start = 0;
    while (true) {
        const auto end = hasReturns ? source.find_first_of("\r\n", start) : source.find('\n', start);
        if (end == std::string_view::npos) {
            lines.push_back(source.substr(start));
            return lines;
        }
        lines.push_back(source.substr(start, end - start));
        start = source.substr(end).starts_with("\r\n") ? end + 2 : end + 1;
    }
}

bool isBlankLine(std::string_view line) {
    return trimmed(line).empty();
}

std::optional<std::string_view> fenceOf(std::string_view line) {
    if (line.starts_with("```") || line.starts_with("~~~")) {
        return line.substr(0, 3);
    }
    return std::nullopt;
}

std::optional<Heading> headingOf(std::string_view line) {
    const auto level = std::min(line.find_first_not_of('#'), line.size());
    if (level < 1 || level > 6 || (level < line.size() && !isBlank(line[level]))) {
        return std::nullopt;
    }
    auto text = trimmed(line.substr(level));
    // A closing run of # counts only when something separates it from the text.
    const auto last = text.find_last_not_of('#');
    if (last == std::string_view::npos) {
        text = {};
    } else if (isBlank(text[last])) {
        text = trimmed(text.substr(0, last));
    }
    return Heading{.level = level, .text = text};
}

bool isThematicBreak(std::string_view line) {
    char mark = '\0';
    std::size_t count = 0;
    for (const auto character : line) {
        if (isBlank(character)) {
            continue;
        }
        if (count == 0) {
            mark = character;
        }
        if (character != mark || (mark != '-' && mark != '*' && mark != '_')) {
            return false;
        }
        ++count;
    }
    return count >= 3;
}

bool isQuoteLine(std::string_view line) {
    return line.starts_with('>');
}

std::size_t indentOf(std::string_view line) {
    return static_cast<std::size_t>(std::ranges::find_if_not(line, isBlank) - line.begin());
}

std::optional<ListMarker> listMarkerOf(std::string_view line) {
    const auto start = indentOf(line);
    if (start == line.size()) {
        return std::nullopt;
    }
    ListMarker marker{.ordered = false, .end = start + 1};
    if (line[start] != '-' && line[start] != '*' && line[start] != '+') {
        const auto end = digitsEnd(line, start);
        if (end == start || end == line.size() || (line[end] != '.' && line[end] != ')')) {
            return std::nullopt;
        }
        marker = {.ordered = true, .end = end + 1};
    }
    const bool isSeparated = marker.end == line.size() || whiteSpaceAt(line, marker.end) > 0;
    return isSeparated ? std::optional(marker) : std::nullopt;
}

bool isTableLine(std::string_view line) {
    return line.contains('|');
}

bool isDelimiterRow(std::string_view line) {
    bool hasPipe = false;
    bool hasDash = false;
    for (const auto character : withoutOuterBlanks(line)) {
        hasPipe = hasPipe || character == '|';
        hasDash = hasDash || character == '-';
        if (character != '|' && character != ':' && character != '-' && character != ' ') {
            return false;
        }
    }
    return hasPipe && hasDash;
}

} // namespace tarnquill::Markdown
