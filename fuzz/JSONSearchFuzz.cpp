// The search finds what a plain comparison of characters finds, and classifies as a pattern does.
#include "FuzzInput.h"
#include "common/Regex.h"
#include "json/JSONSearch.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>

namespace {

using namespace tarnquill;

struct Character {
    TextRange range;
    icu::UnicodeString folded;
};

std::vector<Character> characters(const std::u16string& text) {
    auto error = U_ZERO_ERROR;
    const auto& decomposer = *icu::Normalizer2::getNFDInstance(error);
    const icu::UnicodeString whole(text.data(), static_cast<std::int32_t>(text.size()));
    std::vector<Character> characters;
    for (std::int32_t start = 0; start < whole.length();) {
        const auto end = whole.moveIndex32(start, 1);
        const auto parts = decomposer.normalize(whole.tempSubStringBetween(start, end), error);
        icu::UnicodeString folded;
        for (std::int32_t i = 0; i < parts.length(); i = parts.moveIndex32(i, 1)) {
            const auto type = u_charType(parts.char32At(i));
            if (type != U_NON_SPACING_MARK && type != U_COMBINING_SPACING_MARK && type != U_ENCLOSING_MARK) {
                folded += u_foldCase(parts.char32At(i), U_FOLD_CASE_DEFAULT);
            }
        }
        characters.push_back(
            {{static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)}, folded});
        start = end;
    }
    return characters;
}

std::vector<TextRange> matches(const std::u16string& query, const std::u16string& text) {
    icu::UnicodeString wanted;
    for (const auto& character : characters(query)) {
        wanted += character.folded;
    }
    std::vector<TextRange> matches;
    const auto all = characters(text);
    for (std::size_t first = 0; first < all.size() && !wanted.isEmpty();) {
        icu::UnicodeString found;
        auto last = first;
        while (last < all.size() && found.length() < wanted.length()) {
            found += all[last++].folded;
        }
        if (all[first].folded.isEmpty() || found != wanted) {
            ++first;
            continue;
        }
        while (last < all.size() && all[last].folded.isEmpty()) {
            ++last;
        }
        const auto start = all[first].range.location;
        matches.push_back({start, all[last - 1].range.end() - start});
        first = last;
    }
    return matches;
}

std::vector<JSONSearch::Token> tokens(const std::u16string& text) {
    static const Regex kToken(
        uR"(("(?:[^"\\\r\n]|\\[^\r\n])*+["\\]?+)(?=([ \t\r\n]*+:)?)|[-0-9][-+.eE0-9]*+|[A-Za-z]++)");
    using enum JSONSearch::Token::Kind;
    std::vector<JSONSearch::Token> tokens;
    for (auto matches = kToken.matches(text); matches.next();) {
        const auto range = matches.range();
        const auto token = text.substr(range.location, range.length);
        const auto isWord = (token[0] >= 'A' && token[0] <= 'Z') || (token[0] >= 'a' && token[0] <= 'z');
        if (!isWord || token == u"true" || token == u"false" || token == u"null") {
            tokens.push_back({range, matches.group(2) ? key : value});
        }
    }
    return tokens;
}

} // namespace

// The first byte is the length of the query, which is followed by the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const auto units = fuzz::text({data + 1, size - 1});
    const auto queryLength = std::min<std::size_t>(data[0] % 16, units.size());
    const auto query = units.substr(0, queryLength);
    const auto text = units.substr(queryLength);

    const auto everywhere = matches(query, text);
    fuzz::require(JSONSearch::matches(query, text, JSONSearch::Scope::all) == everywhere);

    const auto tokensOfText = tokens(text);
    fuzz::require(JSONSearch::tokens(text) == tokensOfText);
    for (const auto kind : {JSONSearch::Token::Kind::key, JSONSearch::Token::Kind::value}) {
        auto expected = everywhere;
        std::erase_if(expected, [&](const TextRange& match) {
            return std::ranges::none_of(tokensOfText, [&](const JSONSearch::Token& token) {
                return token.kind == kind && token.range.location <= match.location &&
                       match.end() <= token.range.end();
            });
        });
        const auto scope =
            kind == JSONSearch::Token::Kind::key ? JSONSearch::Scope::keys : JSONSearch::Scope::values;
        fuzz::require(JSONSearch::matches(query, text, scope) == expected);
    }
    return 0;
}
