#include "mermaid/MermaidSyntaxScanner.h"

#include "mermaid/MermaidVocabulary.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <utility>

namespace tarnquill {

namespace {

// The sets that an ASCII character is in, for one look into a table instead of several comparisons.
enum CharacterSet : std::uint8_t {
    bracket = 1,    // []{}()<>|
    shaft = 2,      // -=.
    head = 4,       // ->xo
    wordStart = 8,  // the first letters of the keywords
    wordUnit = 16,  // letters, digits and the underscore
    whiteSpace = 32 // as the patterns understand it
};

constexpr auto makeSets() {
    std::array<std::uint8_t, 128> sets{};
    const auto add = [&](std::u16string_view characters, CharacterSet set) {
        for (const auto character : characters) {
            sets[character] |= set;
        }
    };
    add(u"[]{}()<>|", bracket);
    add(u"-=.", shaft);
    add(u"->xo", head);
    add(u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_", wordUnit);
    add(u"\t\n\v\f\r ", whiteSpace);
    for (const auto keyword : MermaidVocabulary::kKeywords) {
        sets[keyword.front()] |= wordStart;
    }
    return sets;
}

constexpr auto kSets = makeSets();

constexpr bool isIn(char16_t unit, CharacterSet set) {
    return unit < kSets.size() && (kSets[unit] & set) != 0;
}

bool isLineEnd(char16_t unit) {
    return (unit >= u'\n' && unit <= u'\r') || unit == u'\u0085' || unit == u'\u2028' || unit == u'\u2029';
}

bool isWhiteSpace(char16_t unit) {
    return unit < kSets.size() ? isIn(unit, whiteSpace) : u_isUWhiteSpace(unit) != 0;
}

UChar32 firstCharacter(std::u16string_view text) {
    const bool isPair = text.size() > 1 && U16_IS_LEAD(text[0]) && U16_IS_TRAIL(text[1]);
    return isPair ? U16_GET_SUPPLEMENTARY(text[0], text[1]) : text.front();
}

UChar32 lastCharacter(std::u16string_view text) {
    const bool isPair = text.size() > 1 && U16_IS_LEAD(text[text.size() - 2]) && U16_IS_TRAIL(text.back());
    return isPair ? U16_GET_SUPPLEMENTARY(text[text.size() - 2], text.back()) : text.back();
}

// Marks and invisible characters belong to the character before them, so that no word begins or ends there.
bool isTransparent(UChar32 character) {
    return u_hasBinaryProperty(character, UCHAR_GRAPHEME_EXTEND) != 0 ||
           u_charType(character) == U_FORMAT_CHAR;
}

bool isWordCharacter(UChar32 character) {
    constexpr auto kWordCategories = U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK;
    return u_hasBinaryProperty(character, UCHAR_ALPHABETIC) != 0 ||
           (U_GET_GC_MASK(character) & kWordCategories) != 0 || character == 0x200C || character == 0x200D;
}

bool isKeyword(std::u16string_view word) {
    return std::ranges::find(MermaidVocabulary::kKeywords, word) != MermaidVocabulary::kKeywords.end();
}

} // namespace

SyntaxKinds MermaidSyntaxScanner::kinds() && {
    paintPunctuation();
    paintShapeLabels();
    paintStrings();
    paintArrows();
    paintKeywords();
    paintDiagramTypes();
    paintComments();
    return std::move(m_kinds);
}

void MermaidSyntaxScanner::paint(std::size_t from, std::size_t to, Token token) {
    std::fill(m_kinds.begin() + static_cast<std::ptrdiff_t>(from),
              m_kinds.begin() + static_cast<std::ptrdiff_t>(to), static_cast<SyntaxKind>(token));
}

void MermaidSyntaxScanner::paintPunctuation() {
    for (std::size_t position = 0; position < m_text.size(); ++position) {
        if (isIn(m_text[position], bracket)) {
            m_kinds[position] = static_cast<SyntaxKind>(Token::punctuation);
        }
    }
}

// What stands between two brackets of a pair on one line, with no other of its pair between them.
void MermaidSyntaxScanner::paintShapeLabels() {
    const auto closing = [](char16_t opening) {
        switch (opening) {
        case u'[':
            return u']';
        case u'{':
            return u'}';
        case u'(':
            return u')';
        case u'|':
            return u'|';
        default:
            return u'\0';
        }
    };
    for (std::size_t position = 0; position < m_text.size(); ++position) {
        const auto opening = m_text[position];
        if (!isIn(opening, bracket) || closing(opening) == u'\0') {
            continue;
        }
        const std::array stops{opening, closing(opening), u'\n'};
        const auto end = m_text.find_first_of(stops.data(), position + 1, stops.size());
        if (end != std::u16string_view::npos && m_text[end] == closing(opening)) {
            paint(position + 1, end, Token::label);
        }
    }
}

void MermaidSyntaxScanner::paintStrings() {
    for (auto start = m_text.find(u'"'); start != std::u16string_view::npos;
         start = m_text.find(u'"', start)) {
        auto end = start + 1;
        while (end < m_text.size() && m_text[end] != u'"') {
            if (m_text[end] == u'\\' && (end + 1 >= m_text.size() || isLineEnd(m_text[end + 1]))) {
                break;
            }
            end += m_text[end] == u'\\' ? 2U : 1U;
        }
        if (at(end) == u'"') {
            paint(start, ++end, Token::label);
        }
        start = end; // A string that begins at an escaped quote before an end like this would not end either.
    }
}

std::size_t MermaidSyntaxScanner::arrowEnd(std::size_t start) const {
    constexpr std::size_t kLongestShaft = 3;
    constexpr std::size_t kLongestHead = 2;
    const auto shaftStart = start + (m_text[start] == u'<' ? 1U : 0U);
    auto shaftEnd = shaftStart;
    while (shaftEnd < shaftStart + kLongestShaft && isIn(at(shaftEnd), shaft)) {
        ++shaftEnd;
    }
    for (; shaftEnd > shaftStart; --shaftEnd) {
        auto end = shaftEnd;
        while (end < shaftEnd + kLongestHead && isIn(at(end), head)) {
            ++end;
        }
        if (end > shaftEnd) {
            for (int tip = 0; tip < 2 && at(end) == u'>'; ++tip) {
                ++end;
            }
            return end;
        }
    }
    constexpr std::u16string_view kThickLine = u"===";
    return m_text.substr(start).starts_with(kThickLine) ? start + kThickLine.size() : start;
}

void MermaidSyntaxScanner::paintArrows() {
    for (std::size_t position = 0; position < m_text.size();) {
        const auto unit = m_text[position];
        const auto end = unit == u'<' || isIn(unit, shaft) ? arrowEnd(position) : position;
        paint(position, end, Token::arrow);
        position = std::max(end, position + 1);
    }
}

bool MermaidSyntaxScanner::isWordBoundary(std::size_t position) const {
    bool startsWord = false;
    if (position < m_text.size()) {
        const auto next = firstCharacter(m_text.substr(position));
        if (isTransparent(next)) {
            return false;
        }
        startsWord = isWordCharacter(next);
    }
    bool endsWord = false;
    while (position > 0) {
        const auto previous = lastCharacter(m_text.substr(0, position));
        position -= U16_LENGTH(previous);
        if (!isTransparent(previous)) {
            endsWord = isWordCharacter(previous);
            break;
        }
    }
    return startsWord != endsWord;
}

void MermaidSyntaxScanner::paintKeywords() {
    for (std::size_t position = 0; position < m_text.size();) {
        if (!isIn(m_text[position], wordUnit)) {
            ++position;
            continue;
        }
        auto end = position + 1;
        while (isIn(at(end), wordUnit)) {
            ++end;
        }
        if (isIn(m_text[position], wordStart) && isKeyword(m_text.substr(position, end - position)) &&
            isWordBoundary(position) && isWordBoundary(end)) {
            paint(position, end, Token::keyword);
        }
        position = end;
    }
}

void MermaidSyntaxScanner::paintDiagramType(std::size_t from, std::size_t word) {
    const auto rest = m_text.substr(word);
    for (const auto type : MermaidVocabulary::kDiagramTypes) {
        if (rest.starts_with(type) && isWordBoundary(word + type.size())) {
            paint(from, word + type.size(), Token::diagramType);
            return;
        }
    }
}

// A type stands at the text's very start or behind a stretch of white space with a line break in it. The
// white space after the break (or the start) is painted with it.
void MermaidSyntaxScanner::paintDiagramTypes() {
    for (std::size_t position = 0; position < m_text.size();) {
        auto from = position == 0 ? 0 : std::u16string_view::npos;
        while (position < m_text.size() && isWhiteSpace(m_text[position])) {
            const bool isPair = m_text[position] == u'\r' && at(position + 1) == u'\n';
            const auto next = position + (isPair ? 2U : 1U);
            if (from == std::u16string_view::npos && isLineEnd(m_text[position])) {
                from = next;
            }
            position = next;
        }
        if (from != std::u16string_view::npos) {
            paintDiagramType(from, position);
        }
        while (position < m_text.size() && !isWhiteSpace(m_text[position])) {
            ++position;
        }
    }
}

void MermaidSyntaxScanner::paintComments() {
    for (auto start = m_text.find(u"%%"); start != std::u16string_view::npos;
         start = m_text.find(u"%%", start)) {
        auto end = start;
        while (end < m_text.size() && !isLineEnd(m_text[end])) {
            ++end;
        }
        paint(start, end, Token::comment);
        start = end;
    }
}

} // namespace tarnquill
