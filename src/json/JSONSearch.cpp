#include "json/JSONSearch.h"

#include "common/FoldedSearch.h"
#include "common/UnitBlock.h"

#include <algorithm>
#include <utility>

namespace tarnquill::JSONSearch {

namespace {

struct ScopeTexts {
    std::string_view name;
    std::string_view title;
};

constexpr std::array<ScopeTexts, kScopes.size()> kScopeTexts{
    {{"all", "All text"}, {"keys", "Keys"}, {"values", "Values"}}};

// Of a unit or of a block of them.
constexpr auto isDigit(auto unit) {
    return (unit >= u'0') & (unit <= u'9');
}

constexpr auto isLetter(auto unit) {
    return ((unit | u' ') >= u'a') & ((unit | u' ') <= u'z');
}

constexpr auto isTokenStart(auto unit) {
    return (unit == u'"') | (unit == u'-') | isDigit(unit) | isLetter(unit);
}

constexpr bool isNumberPart(char16_t unit) {
    return isDigit(unit) || unit == u'.' || unit == u'+' || unit == u'-' || unit == u'e' || unit == u'E';
}

constexpr bool isWhiteSpace(char16_t unit) {
    return unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r';
}

constexpr bool isLineEnd(char16_t unit) {
    return unit == u'\n' || unit == u'\r';
}

// Gives one token after the other.
class Tokenizer {
public:
    explicit Tokenizer(std::u16string_view text) : m_text(text) {}

    std::optional<Token> next() {
        while (true) {
            const auto start = findUnit(m_text, m_position, [](auto unit) { return isTokenStart(unit); });
            m_position = start;
            if (start == m_text.size()) {
                return std::nullopt;
            }
            const auto unit = m_text[start];
            if (unit == u'"') {
                m_position = stringEnd(start);
                return token(start, isBeforeColon() ? Token::Kind::key : Token::Kind::value);
            }
            if (unit == u'-' || isDigit(unit)) {
                skipAll(isNumberPart);
                return token(start, Token::Kind::value);
            }
            skipAll(isLetter<char16_t>);
            const auto word = m_text.substr(start, m_position - start);
            if (word == u"true" || word == u"false" || word == u"null") {
                return token(start, Token::Kind::value);
            }
        }
    }

private:
    [[nodiscard]] Token token(std::size_t start, Token::Kind kind) const {
        return {{start, m_position - start}, kind};
    }

    template <class Predicate>
    void skipAll(Predicate isPart) {
        while (m_position < m_text.size() && isPart(m_text[m_position])) {
            ++m_position;
        }
    }

    // A line end is never part of a string, also not when it is escaped.
    [[nodiscard]] std::size_t stringEnd(std::size_t quote) const {
        for (auto position = quote + 1;;) {
            position = findUnit(m_text, position, [](auto unit) {
                return (unit == u'"') | (unit == u'\\') | (unit == u'\n') | (unit == u'\r');
            });
            if (position == m_text.size() || isLineEnd(m_text[position])) {
                return position;
            }
            if (m_text[position] == u'"') {
                return position + 1;
            }
            ++position;
            if (position < m_text.size() && !isLineEnd(m_text[position])) {
                ++position;
            }
        }
    }

    [[nodiscard]] bool isBeforeColon() const {
        auto position = m_position;
        while (position < m_text.size() && isWhiteSpace(m_text[position])) {
            ++position;
        }
        return position < m_text.size() && m_text[position] == u':';
    }

    std::u16string_view m_text;
    std::size_t m_position = 0;
};

// Leaves the matches that lie in one token of the kind. Both come from the left.
std::vector<TextRange> matchesInTokens(std::vector<TextRange> matches, std::u16string_view text,
                                       Token::Kind kind, const std::stop_token& stop) {
    constexpr std::size_t kTokensBetweenStopChecks = 4096;

    Tokenizer tokenizer(text);
    auto kept = matches.begin();
    auto match = matches.cbegin();
    for (std::size_t count = 1; match != matches.cend(); ++count) {
        const auto token = tokenizer.next();
        if (!token) {
            break;
        }
        if (count % kTokensBetweenStopChecks == 0 && stop.stop_requested()) {
            return {};
        }
        for (; match != matches.cend() && match->end() <= token->range.end(); ++match) {
            if (token->kind == kind && match->location >= token->range.location) {
                *kept++ = *match;
            }
        }
    }
    matches.erase(kept, matches.end());
    return matches;
}

} // namespace

std::string_view name(Scope scope) {
    return kScopeTexts[std::to_underlying(scope)].name;
}

std::optional<Scope> scopeNamed(std::string_view name) {
    const auto found = std::ranges::find(kScopeTexts, name, &ScopeTexts::name);
    return found == kScopeTexts.end()
               ? std::nullopt
               : std::optional(kScopes[static_cast<std::size_t>(found - kScopeTexts.begin())]);
}

std::string_view title(Scope scope) {
    return kScopeTexts[std::to_underlying(scope)].title;
}

std::vector<Token> tokens(std::u16string_view text) {
    std::vector<Token> tokens;
    for (Tokenizer tokenizer(text); const auto token = tokenizer.next();) {
        tokens.push_back(*token);
    }
    return tokens;
}

std::vector<TextRange> matches(std::u16string_view query, std::u16string_view text, Scope scope,
                               const std::stop_token& stop) {
    auto matches = FoldedSearch(query).matches(text, stop);
    if (scope == Scope::all) {
        return matches;
    }
    return matchesInTokens(std::move(matches), text,
                           scope == Scope::keys ? Token::Kind::key : Token::Kind::value, stop);
}

} // namespace tarnquill::JSONSearch
