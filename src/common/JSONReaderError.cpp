#include "common/JSONReaderError.h"

#include "common/UnicodeText.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <vector>

namespace tarnquill::JSONReader {

namespace {

constexpr std::string_view kWhiteSpace = " \t\n\r";
constexpr std::size_t kLongestQuote = 24;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isWordCharacter(char character) {
    return isDigit(character) || character == '_' || (character >= 'a' && character <= 'z') ||
           (character >= 'A' && character <= 'Z');
}

// Numbers and the three words, and what people write in place of them.
bool isTokenCharacter(char character) {
    return isWordCharacter(character) || character == '+' || character == '-' || character == '.';
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The bytes of the well-formed character at the offset; 0 when there is none.
std::size_t characterLength(std::string_view source, std::size_t offset) {
    for (std::size_t length = 1; length <= 4 && offset + length <= source.size(); ++length) {
        if (isWellFormedUTF8(source.substr(offset, length))) {
            return length;
        }
    }
    return 0;
}

std::size_t tokenEnd(std::string_view source, std::size_t start) {
    const auto rest = source.substr(start);
    const auto* end = std::ranges::find_if_not(rest, isTokenCharacter);
    return start + static_cast<std::size_t>(end - rest.begin());
}

void countUTF16(std::string_view text, std::size_t& units) {
    for (const auto byte : text) {
        const bool isPair = static_cast<unsigned char>(byte) >= 0xF0;
        units += isContinuation(byte) ? 0U : (isPair ? 2U : 1U);
    }
}

struct Place {
    std::size_t line = 1;
    std::size_t column = 1;
};

Place placeOf(std::string_view source, std::size_t offset) {
    Place place;
    for (std::size_t i = 0; i < offset; ++i) {
        const auto byte = source[i];
        if (byte == '\n' || (byte == '\r' && source.substr(i + 1, 1) != "\n")) {
            ++place.line;
            place.column = 1;
        } else if (!isContinuation(byte)) {
            ++place.column;
        }
    }
    return place;
}

std::string atPlace(Place place) {
    return "at line " + std::to_string(place.line) + ", column " + std::to_string(place.column);
}

std::string inQuotes(std::string_view text) {
    if (text.size() <= kLongestQuote) {
        return "“" + std::string(text) + "”";
    }
    return "“" + std::string(text.substr(0, kLongestQuote)) + "…”";
}

std::string codePointName(std::string_view character) {
    const auto units = utf16FromUTF8(character).value_or(std::u16string());
    unsigned codePoint = units.empty() ? 0 : units[0];
    if (units.size() == 2) {
        codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (units[1] - 0xDC00U);
    }
    std::array<char, 16> name{};
    std::snprintf(name.data(), name.size(), "U+%04X", codePoint);
    return name.data();
}

// What stands at an offset, in words.
struct Met {
    std::string name;
    std::size_t length = 0; // in bytes
};

Met met(std::string_view source, std::size_t offset) {
    if (offset >= source.size()) {
        return {.name = "end of the text", .length = 0};
    }
    if (const auto end = tokenEnd(source, offset); end > offset) {
        return {.name = inQuotes(source.substr(offset, end - offset)), .length = end - offset};
    }
    const auto length = characterLength(source, offset);
    const auto character = source.substr(offset, std::max<std::size_t>(length, 1));
    if (length == 0) {
        return {.name = "byte that is not UTF-8", .length = 1};
    }
    if (length > 1) {
        return {.name = inQuotes(character) + " (" + codePointName(character) + ")", .length = length};
    }
    switch (character.front()) {
    case '\0':
        return {.name = "NUL character", .length = 1};
    case '\n':
    case '\r':
        return {.name = "line break", .length = 1};
    case '\t':
        return {.name = "tab", .length = 1};
    default:
        break;
    }
    const auto code = static_cast<unsigned char>(character.front());
    return {.name = code < 0x20 || code == 0x7F ? "control character " + codePointName(character)
                                                : inQuotes(character),
            .length = 1};
}

// "Unexpected <what> at line <line>, column <column>: <hint>."
Error makeError(std::string_view source, std::size_t offset, std::size_t length, std::string_view what,
                std::string_view hint) {
    const auto place = placeOf(source, offset);
    Error error;
    error.message = std::string(what) + " " + atPlace(place) + ": " + std::string(hint) + ".";
    error.offset = offset;
    error.line = place.line;
    error.column = place.column;
    countUTF16(source.substr(0, offset), error.range.location);
    countUTF16(source.substr(offset, length), error.range.length);
    return error;
}

Error unexpected(std::string_view source, std::size_t offset, std::string_view hint) {
    const auto found = met(source, offset);
    return makeError(source, offset, found.length, "Unexpected " + found.name, hint);
}

// What the grammar expects at an offset before which the text is well-formed.
class Context {
public:
    Context(std::string_view source, std::size_t offset) {
        std::size_t i = 0;
        while (i < offset) {
            const auto character = source[i];
            if (character == '"') {
                i = passText(source, i, offset);
                continue;
            }
            if (character == '{' || character == '[') {
                open.push_back(i);
            } else if (character == '}' || character == ']') {
                open.pop_back();
            }
            if (!kWhiteSpace.contains(character)) {
                isAfterKey = false;
                last = i;
            }
            ++i;
        }
    }

    std::vector<std::size_t> open;     // the brackets that are not closed yet
    std::optional<std::size_t> text;   // where the text begins in which the offset lies
    std::optional<std::size_t> escape; // where the last escape of that text begins
    std::optional<std::size_t>
        last;                // the last character that is no white space; a text's closing quotation mark
    bool isAfterKey = false; // whether that is the end of a key

    [[nodiscard]] bool isInObject(std::string_view source) const {
        return !open.empty() && source[open.back()] == '{';
    }

private:
    std::size_t passText(std::string_view source, std::size_t start, std::size_t offset) {
        text = start;
        escape.reset();
        for (auto i = start + 1; i < offset; ++i) {
            if (source[i] == '\\') {
                escape = i++;
            } else if (source[i] == '"') {
                text.reset();
                isAfterKey = isInObject(source) && (source[*last] == '{' || source[*last] == ',');
                last = i;
                return i + 1;
            }
        }
        return offset;
    }
};

// The UTF-16 unit of the escape \uXXXX at the offset.
std::optional<unsigned> escapedUnit(std::string_view source, std::size_t escape) {
    const auto digits = source.substr(std::min(escape + 2, source.size()), 4);
    if (source.substr(escape, 2) != "\\u" || digits.size() < 4) {
        return std::nullopt;
    }
    unsigned unit = 0;
    for (const auto digit : digits) {
        const auto lower = static_cast<char>(digit | 0x20);
        if (!isDigit(digit) && (lower < 'a' || lower > 'f')) {
            return std::nullopt;
        }
        unit = unit * 16 + static_cast<unsigned>(isDigit(digit) ? digit - '0' : lower - 'a' + 10);
    }
    return unit;
}

bool isLeadSurrogate(std::optional<unsigned> unit) {
    return unit && *unit >= 0xD800 && *unit < 0xDC00;
}
bool isTrailSurrogate(std::optional<unsigned> unit) {
    return unit && *unit >= 0xDC00 && *unit < 0xE000;
}

// The escape at the offset of its backslash, if it is the reason for a failure.
std::optional<Error> escapeError(std::string_view source, std::size_t escape, std::size_t offset) {
    constexpr std::size_t kUnicodeEscapeLength = 6;
    const auto unit = escapedUnit(source, escape);
    const bool followsLead =
        escape >= kUnicodeEscapeLength && isLeadSurrogate(escapedUnit(source, escape - kUnicodeEscapeLength));
    if (isLeadSurrogate(unit) || isTrailSurrogate(unit) || (followsLead && offset <= escape + 2)) {
        const auto start = !isLeadSurrogate(unit) && followsLead ? escape - kUnicodeEscapeLength : escape;
        return makeError(source, start, kUnicodeEscapeLength,
                         "Lone surrogate " + inQuotes(source.substr(start, kUnicodeEscapeLength)),
                         "a character beyond U+FFFF is written as a pair of \\u escapes");
    }
    if (unit || offset > escape + kUnicodeEscapeLength) {
        return std::nullopt;
    }
    if (offset >= source.size()) {
        return unexpected(source, source.size(), "an escape is not complete");
    }
    // The character that spoils the escape is shown with it, but for one that is not seen or ends the text.
    const auto spoiler = static_cast<unsigned char>(source[offset]);
    const bool isShown = spoiler >= 0x20 && spoiler != 0x7F && spoiler != '"';
    const auto shown =
        source.substr(escape, offset - escape + (isShown ? characterLength(source, offset) : 0));
    if (source.substr(escape, 2) == "\\u") {
        return makeError(source, escape, shown.size(), "Malformed escape " + inQuotes(shown),
                         "\\u is followed by four hexadecimal digits");
    }
    return makeError(source, escape, shown.size(), "Unknown escape " + inQuotes(shown),
                     "a backslash is written as \\\\");
}

Error errorInText(std::string_view source, const Context& context, std::size_t offset) {
    for (auto i = *context.text + 1; i < std::min(offset + 1, source.size());) {
        const auto length = characterLength(source, i);
        if (length == 0) {
            return unexpected(source, i, "the text has to be UTF-8");
        }
        i += length;
    }
    if (context.escape && offset <= *context.escape + 6) {
        if (auto error = escapeError(source, *context.escape, offset)) {
            return *error;
        }
    }
    if (offset >= source.size()) {
        return unexpected(source, offset,
                          "the string " + atPlace(placeOf(source, *context.text)) +
                              " has no closing quotation mark");
    }
    return unexpected(source, offset, "inside quotation marks it is written as an escape");
}

// Why a token that begins like a number is none; empty when it is one.
std::string_view numberFault(std::string_view token) {
    std::size_t i = token.starts_with('-') ? 1 : 0;
    const auto passDigits = [&] {
        const auto start = i;
        while (i < token.size() && isDigit(token[i])) {
            ++i;
        }
        return i > start;
    };
    const auto first = i;
    if (!passDigits()) {
        return "a minus sign is followed by a digit";
    }
    if (token[first] == '0' && i > first + 1) {
        return "no digit follows a leading 0";
    }
    if (token.substr(i).starts_with('.')) {
        ++i;
        if (!passDigits()) {
            return "a decimal point is followed by a digit";
        }
    }
    if (i < token.size() && (token[i] == 'e' || token[i] == 'E')) {
        ++i;
        if (i < token.size() && (token[i] == '+' || token[i] == '-')) {
            ++i;
        }
        if (!passDigits()) {
            return "an exponent has at least one digit";
        }
    }
    return i < token.size() ? "it has characters that do not belong to a number" : std::string_view();
}

constexpr std::string_view kOnlyWords = "the only words are true, false and null";

// The token around the offset, if the offset is not at its start and it is the reason for a failure.
std::optional<Error> tokenError(std::string_view source, std::size_t offset) {
    auto start = offset;
    while (start > 0 && isTokenCharacter(source[start - 1])) {
        --start;
    }
    if (start == offset) {
        return std::nullopt;
    }
    const auto end = tokenEnd(source, offset);
    const auto token = source.substr(start, end - start);
    if (!isDigit(token.front()) && token.front() != '-') {
        const bool isWord = token == "true" || token == "false" || token == "null";
        return isWord ? std::nullopt : std::optional(unexpected(source, start, kOnlyWords));
    }
    const auto fault = numberFault(token);
    if (fault.empty()) {
        return std::nullopt;
    }
    return makeError(source, start, token.size(), "Malformed number " + inQuotes(token), fault);
}

std::string endHint(std::string_view source, const Context& context) {
    const auto start = context.open.back();
    return std::string(source[start] == '{' ? "the object " : "the array ") +
           atPlace(placeOf(source, start)) + " is not closed";
}

std::string_view valueHint(std::string_view source, const Context& context, std::size_t offset) {
    const auto character = offset < source.size() ? source[offset] : '\0';
    if (isWordCharacter(character)) {
        return kOnlyWords;
    }
    switch (character) {
    case '\'':
        return "a string stands in double quotation marks";
    case '/':
    case '#':
        return "JSON has no comments";
    case '+':
    case '.':
        return "a number begins with a digit or a minus sign";
    case ']':
    case '}':
        if (context.last && source[*context.last] == ',') {
            return "a comma is followed by another value";
        }
        break;
    default:
        break;
    }
    return "a value was expected";
}

std::string_view keyHint(std::string_view source, const Context& context, std::size_t offset) {
    const auto character = offset < source.size() ? source[offset] : '\0';
    if (character == '/' || character == '#') {
        return "JSON has no comments";
    }
    if (character == '}' && source[*context.last] == ',') {
        return "a comma is followed by another key";
    }
    return "a key in double quotation marks was expected";
}

std::string_view hint(std::string_view source, const Context& context, std::size_t offset) {
    if (!context.last) {
        return valueHint(source, context, offset);
    }
    switch (source[*context.last]) {
    case '{':
        return keyHint(source, context, offset);
    case ',':
        return context.isInObject(source) ? keyHint(source, context, offset)
                                          : valueHint(source, context, offset);
    case '[':
    case ':':
        return valueHint(source, context, offset);
    default:
        break;
    }
    if (offset < source.size() && (source[offset] == '/' || source[offset] == '#')) {
        return "JSON has no comments";
    }
    if (context.isAfterKey) {
        return "a colon follows the key";
    }
    if (context.open.empty()) {
        return "nothing follows the document's value";
    }
    return context.isInObject(source) ? "a comma or “}” was expected" : "a comma or “]” was expected";
}

} // namespace

Error syntaxError(std::string_view source, std::size_t offset) {
    const Context context(source, offset);
    if (context.text) {
        return errorInText(source, context, offset);
    }
    if (const auto error = tokenError(source, offset)) {
        return *error;
    }
    if (offset >= source.size()) {
        return unexpected(source, offset,
                          context.open.empty() ? "a value was expected" : endHint(source, context));
    }
    if (characterLength(source, offset) == 0) {
        return unexpected(source, offset, "the text has to be UTF-8");
    }
    return unexpected(source, offset, hint(source, context, offset));
}

Error tooDeepError(std::string_view source, std::size_t offset) {
    return unexpected(source, offset,
                      "the nesting is deeper than " + std::to_string(kDeepestNesting) + " levels");
}

Error overflowError(std::string_view source, std::size_t offset) {
    const auto number = source.substr(offset, tokenEnd(source, offset) - offset);
    return makeError(source, offset, number.size(),
                     "The data is corrupt, because of the number " + inQuotes(number),
                     "it is beyond the range of a double");
}

} // namespace tarnquill::JSONReader
