#include "jwt/TokenSyntax.h"

#include <algorithm>
#include <array>
#include <span>

namespace tarnquill::TokenSyntax {

namespace {

constexpr std::array kSigned{Kind::header, Kind::payload, Kind::signature};
// With the authentication tag in the place of a signature.
constexpr std::array kEncrypted{Kind::header, Kind::other, Kind::other, Kind::payload, Kind::signature};

bool isSpaceOrQuote(char16_t unit) {
    return unit <= u' ' || unit == u'"' || unit == u'\'' || unit == u'\u00A0' || unit == u'\u3000';
}

char16_t lowercase(char16_t unit) {
    return u'A' <= unit && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

std::size_t behindSpace(std::u16string_view text, std::size_t position) {
    while (position < text.size() && isSpaceOrQuote(text[position])) {
        ++position;
    }
    return position;
}

// The position behind the word (in lower case) and the space after it; the same when it is not there.
std::size_t behindWord(std::u16string_view text, std::size_t position, std::u16string_view word) {
    const auto found = text.substr(position, word.size());
    return std::ranges::equal(found, word, {}, lowercase) ? behindSpace(text, position + word.size())
                                                          : position;
}

std::size_t tokenStart(std::u16string_view text) {
    const auto start = behindWord(text, behindSpace(text, 0), u"authorization:");
    const auto behindBearer = start + std::u16string_view(u"bearer").size();
    const auto isWord = behindBearer < text.size() && isSpaceOrQuote(text[behindBearer]);
    return isWord ? behindWord(text, start, u"bearer") : start;
}

std::size_t tokenEnd(std::u16string_view text, std::size_t start) {
    auto end = text.size();
    while (end > start && isSpaceOrQuote(text[end - 1])) {
        --end;
    }
    return end;
}

} // namespace

SyntaxKinds kinds(std::u16string_view text) {
    SyntaxKinds kinds(text.size(), static_cast<SyntaxKind>(Kind::plain));
    const auto start = tokenStart(text);
    const auto end = tokenEnd(text, start);
    const auto token = text.substr(start, end - start);
    // While a token is typed, its parts have the colours of a signed one.
    const auto dots = static_cast<std::size_t>(std::ranges::count(token, u'.'));
    const auto isEncrypted = dots + 1 == kEncrypted.size();
    const auto parts = isEncrypted ? std::span<const Kind>(kEncrypted) : kSigned;
    std::size_t part = 0;
    for (auto position = start; position < end; ++position) {
        if (text[position] == u'.') {
            kinds[position] = static_cast<SyntaxKind>(Kind::dot);
            ++part;
        } else if (part < parts.size()) {
            kinds[position] = static_cast<SyntaxKind>(parts[part]);
        }
    }
    return kinds;
}

} // namespace tarnquill::TokenSyntax
