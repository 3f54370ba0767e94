#include "jwt/TokenParts.h"

#include "common/WhiteSpace.h"

#include <algorithm>

namespace tarnquill {

namespace {

char lowercase(char character) {
    return 'A' <= character && character <= 'Z' ? static_cast<char>(character + 32) : character;
}

// The prefix is in lower case.
bool startsWithoutCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() &&
           std::ranges::equal(text.substr(0, prefix.size()), prefix, {}, lowercase);
}

std::string_view withoutLeadingSpace(std::string_view text) {
    while (const auto length = whiteSpaceAt(text, 0)) {
        text.remove_prefix(length);
    }
    return text;
}

std::string_view withoutQuotes(std::string_view text, char quote) {
    const auto isQuoted = text.size() >= 2 && text.front() == quote && text.back() == quote;
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

std::string_view withoutAuthorization(std::string_view text) {
    constexpr std::string_view kPrefix = "authorization:";
    return startsWithoutCase(text, kPrefix) ? withoutLeadingSpace(text.substr(kPrefix.size())) : text;
}

std::string_view withoutBearer(std::string_view text) {
    constexpr std::string_view kPrefix = "bearer";
    const auto isWord = startsWithoutCase(text, kPrefix) &&
                        (text.size() == kPrefix.size() || whiteSpaceAt(text, kPrefix.size()) > 0);
    return isWord ? withoutLeadingSpace(text.substr(kPrefix.size())) : text;
}

// Printable ASCII, which is certain not to be white space.
bool isPlain(char character) {
    return '!' <= character && character <= '~';
}

// Most tokens have no white space at all. This looks at every character, because that takes less time than
// to stop.
bool isAllPlain(std::string_view text) {
    unsigned char others = 0; // a byte, so that many characters are looked at at once
    for (const auto character : text) {
        others |= static_cast<unsigned char>(!isPlain(character));
    }
    return others == 0;
}

std::string withoutWhiteSpace(std::string_view text) {
    if (isAllPlain(text)) {
        return std::string(text);
    }
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        if (const auto length = isPlain(text[position]) ? 0 : whiteSpaceAt(text, position)) {
            position += length;
        } else {
            result += text[position++];
        }
    }
    return result;
}

} // namespace

std::string cleanedToken(std::string_view pasted) {
    const auto unquoted = withoutQuotes(withoutQuotes(trimmed(pasted), '"'), '\'');
    return withoutWhiteSpace(withoutBearer(withoutAuthorization(unquoted)));
}

TokenParts::TokenParts(std::string_view cleaned) {
    std::size_t start = 0;
    auto dot = cleaned.find('.');
    for (; dot != std::string_view::npos; dot = cleaned.find('.', start)) {
        if (m_count <= m_parts.size()) {
            m_parts.at(m_count - 1) = cleaned.substr(start, dot - start);
        }
        if (m_count == 2) {
            m_signingInput = cleaned.substr(0, dot);
        }
        ++m_count;
        start = dot + 1;
    }
    if (m_count <= m_parts.size()) {
        m_parts.at(m_count - 1) = cleaned.substr(start);
    }
}

} // namespace tarnquill
