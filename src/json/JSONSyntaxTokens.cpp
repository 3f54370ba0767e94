#include "json/JSONSyntaxTokens.h"

#include "common/UnitBlock.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace tarnquill::JSONSyntaxTokens {

namespace {

const std::array<SyntaxRule, 5>& rules() {
    static const std::array<SyntaxRule, 5> kRules{{
        {uR"([\{\}\[\],:])", {{std::to_underlying(Token::punctuation)}}},
        {uR"((?<![A-Za-z_"])-?\d+(?:\.\d+)?(?:[eE][+\-]?\d+)?(?![A-Za-z_]))",
         {{std::to_underlying(Token::number)}}},
        {uR"(\b(?:true|false|null)\b)", {{std::to_underlying(Token::keyword)}}},
        {uR"("(?:[^"\\]|\\.)*")", {{std::to_underlying(Token::string)}}},
        {uR"("(?:[^"\\\n]|\\.)*"(?=[^\S\n]*+:))", {{std::to_underlying(Token::key)}}},
    }};
    return kRules;
}

constexpr bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

constexpr bool isLetterOrUnderscore(char16_t unit) {
    const auto lower = static_cast<char16_t>(unit | 0x20);
    return (lower >= u'a' && lower <= u'z') || unit == u'_';
}

bool isWhiteSpace(char16_t unit) {
    const auto isASCII = unit < 0x80;
    return isASCII ? unit == u' ' || (unit >= u'\t' && unit <= u'\r') : u_isUWhiteSpace(unit) != 0;
}

constexpr bool isLineTerminator(char16_t unit) {
    return (unit >= u'\n' && unit <= u'\r') || unit == u'\u0085' || unit == u'\u2028' || unit == u'\u2029';
}

// Gives the kinds that the rules give. What the first three rules find never crosses a quotation mark, so
// they are followed in the stretches between strings, and the two rules for strings on the whole.
class Scanner {
public:
    explicit Scanner(std::u16string_view text) : m_text(text), m_kinds(text.size()) {}

    SyntaxKinds run() && {
        paintStringsAndTheRest();
        paintKeys();
        return std::move(m_kinds);
    }

private:
    [[nodiscard]] std::size_t findQuote(std::size_t start) const {
        return findUnit(m_text, start, [](auto unit) { return unit == u'"'; });
    }

    // A quotation mark's counterpart, or how far the search for one came. There is no closing mark for any
    // other mark up to there either: each is the second half of an escape, from where the search goes on the
    // same way.
    struct StringEnd {
        std::size_t position;
        bool isClosed;
    };

    enum class LineFeeds : std::uint8_t { allowed, refused };

    [[nodiscard]] StringEnd stringEnd(std::size_t quote, LineFeeds lineFeeds) const;
    [[nodiscard]] bool isBeforeColon(std::size_t position) const;
    [[nodiscard]] std::size_t numberEnd(std::size_t start) const;
    [[nodiscard]] std::size_t keywordEnd(std::size_t start) const;

    void paintStringsAndTheRest();
    void paintKeys();
    void paintBetweenStrings(std::size_t start, std::size_t end);
    void paintByRules(std::size_t start, std::size_t end);
    void paint(std::size_t start, std::size_t end, Token token) {
        std::fill(m_kinds.begin() + static_cast<std::ptrdiff_t>(start),
                  m_kinds.begin() + static_cast<std::ptrdiff_t>(end), std::to_underlying(token));
    }

    [[nodiscard]] char16_t unitOrNUL(std::size_t position) const {
        return position < m_text.size() ? m_text[position] : u'\0';
    }
    [[nodiscard]] char16_t unitBefore(std::size_t position) const {
        return position > 0 ? m_text[position - 1] : u'\0';
    }
    [[nodiscard]] std::size_t digitsEnd(std::size_t position) const {
        while (isDigit(unitOrNUL(position))) {
            ++position;
        }
        return position;
    }

    std::u16string_view m_text;
    SyntaxKinds m_kinds;
};

Scanner::StringEnd Scanner::stringEnd(std::size_t quote, LineFeeds lineFeeds) const {
    // Where line feeds are allowed, looking for a quotation mark a second time finds nothing new.
    const auto lineFeed = lineFeeds == LineFeeds::refused ? u'\n' : u'"';
    for (auto position = quote + 1;;) {
        position = findUnit(m_text, position, [lineFeed](auto unit) {
            return (unit == u'"') | (unit == u'\\') | (unit == lineFeed);
        });
        const auto unit = unitOrNUL(position);
        if (unit == u'"') {
            return {position + 1, true};
        }
        if (unit != u'\\' || position + 1 == m_text.size() || isLineTerminator(m_text[position + 1])) {
            return {position, false};
        }
        position += 2;
    }
}

void Scanner::paintStringsAndTheRest() {
    std::size_t restStart = 0;
    for (auto quote = findQuote(0); quote < m_text.size();) {
        const auto end = stringEnd(quote, LineFeeds::allowed);
        if (end.isClosed) {
            paintBetweenStrings(restStart, quote);
            paint(quote, end.position, Token::string);
            restStart = end.position;
        }
        quote = findQuote(end.position);
    }
    paintBetweenStrings(restStart, m_text.size());
}

// A match of the key rule may begin at any quotation mark outside of the match before, also at one that
// closes a string, and then it ends where the next string begins.
void Scanner::paintKeys() {
    for (auto quote = findQuote(0); quote < m_text.size();) {
        const auto end = stringEnd(quote, LineFeeds::refused);
        auto next = end.position;
        if (end.isClosed && isBeforeColon(end.position)) {
            paint(quote, end.position, Token::key);
        } else if (end.isClosed) {
            --next;
        }
        quote = findQuote(next);
    }
}

bool Scanner::isBeforeColon(std::size_t position) const {
    while (position < m_text.size() && m_text[position] != u'\n' && isWhiteSpace(m_text[position])) {
        ++position;
    }
    return unitOrNUL(position) == u':';
}

void Scanner::paintBetweenStrings(std::size_t start, std::size_t end) {
    for (auto position = start; position < end;) {
        const auto unit = m_text[position];
        auto next = position + 1;
        if (unit > 0x7F) {
            return paintByRules(start, end);
        }
        if (isDigit(unit) || unit == u'-') {
            next = numberEnd(position);
            paint(position, next, Token::number);
        } else if (unit == u't' || unit == u'f' || unit == u'n') {
            next = keywordEnd(position);
            paint(position, next, Token::keyword);
        } else if (unit == u'{' || unit == u'}' || unit == u'[' || unit == u']' || unit == u',' ||
                   unit == u':') {
            m_kinds[position] = std::to_underlying(Token::punctuation);
        }
        position = std::max(next, position + 1);
    }
}

// Digits, letters and word boundaries of other scripts are the patterns' business. The quotation marks on
// both sides go along, because the patterns look at their matches' neighbours.
void Scanner::paintByRules(std::size_t start, std::size_t end) {
    static const SyntaxRules kOutsideStrings{std::span(rules()).first(3)};
    const auto from = start > 0 ? start - 1 : start;
    const auto kinds = kOutsideStrings.kinds(m_text.substr(from, std::min(end + 1, m_text.size()) - from));
    std::copy_n(kinds.begin() + static_cast<std::ptrdiff_t>(start - from), end - start,
                m_kinds.begin() + static_cast<std::ptrdiff_t>(start));
}

// The start itself when the rule finds no number there. Like the pattern it gives up digits, then the whole
// exponent or fraction, until what follows is no letter.
std::size_t Scanner::numberEnd(std::size_t start) const {
    const auto before = unitBefore(start);
    const auto whole = start + (m_text[start] == u'-' ? 1 : 0);
    if (isLetterOrUnderscore(before) || before == u'"' || !isDigit(unitOrNUL(whole))) {
        return start;
    }
    std::array<std::pair<std::size_t, std::size_t>, 3> digits;
    std::size_t count = 0;
    auto end = digitsEnd(whole);
    digits[count++] = {whole, end};
    if (unitOrNUL(end) == u'.' && isDigit(unitOrNUL(end + 1))) {
        const auto fraction = end + 1;
        end = digitsEnd(fraction);
        digits[count++] = {fraction, end};
    }
    if (unitOrNUL(end) == u'e' || unitOrNUL(end) == u'E') {
        const auto sign = unitOrNUL(end + 1);
        const auto exponent = end + (sign == u'+' || sign == u'-' ? 2 : 1);
        if (isDigit(unitOrNUL(exponent))) {
            digits[count++] = {exponent, digitsEnd(exponent)};
        }
    }
    while (count > 0) {
        const auto [first, last] = digits[--count];
        if (!isLetterOrUnderscore(unitOrNUL(last))) {
            return last;
        }
        if (last - first > 1) {
            return last - 1;
        }
    }
    return start;
}

// The start itself when no keyword stands there.
std::size_t Scanner::keywordEnd(std::size_t start) const {
    const auto isWord = [](char16_t unit) { return isLetterOrUnderscore(unit) || isDigit(unit); };
    for (const std::u16string_view keyword : {u"true", u"false", u"null"}) {
        if (m_text.substr(start).starts_with(keyword)) {
            const auto end = start + keyword.size();
            return isWord(unitBefore(start)) || isWord(unitOrNUL(end)) ? start : end;
        }
    }
    return start;
}

} // namespace

SyntaxKinds tokens(std::u16string_view text, TextRange range) {
    return Scanner(text.substr(range.location, range.length)).run();
}

SyntaxKinds tokensByRules(std::u16string_view text, TextRange range) {
    static const SyntaxRules kRules(rules());
    return kRules.kinds(text.substr(range.location, range.length));
}

} // namespace tarnquill::JSONSyntaxTokens
