#include "common/FoldedSearch.h"

#include "common/UnitBlock.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <numeric>

namespace tarnquill {

namespace {

// The most units that one character folds to: a Hangul syllable is three letters.
constexpr std::size_t kMaxFoldedLength = 4;

constexpr char16_t kFirstSyllable = 0xAC00;
constexpr char16_t kLastSyllable = 0xD7A3;

bool isMark(UChar32 character) {
    return (U_GET_GC_MASK(character) & U_GC_M_MASK) != 0;
}

icu::UnicodeString fold(UChar32 character) {
    static const auto& kDecomposer = [] -> const icu::Normalizer2& {
        auto error = U_ZERO_ERROR;
        return *icu::Normalizer2::getNFDInstance(error);
    }();
    icu::UnicodeString decomposition;
    if (!kDecomposer.getDecomposition(character, decomposition)) {
        return isMark(character) ? icu::UnicodeString()
                                 : icu::UnicodeString(u_foldCase(character, U_FOLD_CASE_DEFAULT));
    }
    icu::UnicodeString folded;
    for (std::int32_t i = 0; i < decomposition.length(); i = decomposition.moveIndex32(i, 1)) {
        if (const auto part = decomposition.char32At(i); !isMark(part)) {
            folded.append(u_foldCase(part, U_FOLD_CASE_DEFAULT));
        }
    }
    return folded;
}

// Moves the position past the character at it. A surrogate without its partner is a character of its own.
UChar32 characterAt(std::u16string_view text, std::size_t& position) {
    const auto unit = text[position++];
    if (U16_IS_LEAD(unit) && position < text.size() && U16_IS_TRAIL(text[position])) {
        return U16_GET_SUPPLEMENTARY(unit, text[position++]);
    }
    return unit;
}

// What the units of the basic plane fold to, as far as it is one unit. Surrogates stand for the rest: they
// are what nothing folds to.
constexpr char16_t kNothing = 0xD800;
constexpr char16_t kSeveralUnits = 0xD801;
using FoldTable = std::array<char16_t, 0x10000>;

const FoldTable& foldTable() {
    static const auto kTable = [] {
        auto table = std::make_unique<FoldTable>();
        for (std::size_t unit = 0; unit < table->size(); ++unit) {
            const auto character = static_cast<UChar32>(unit);
            const auto folded = fold(character);
            (*table)[unit] = folded.isEmpty()                                ? kNothing
                             : folded.length() > 1 || U16_IS_SURROGATE(unit) ? kSeveralUnits
                                                                             : folded[0];
        }
        return table;
    }();
    return *kTable;
}

bool isASCII(UnitBlock block) {
    return !isAny(block > u'\x7F');
}

// A stretch of whole characters, folded, that knows where each of its units comes from.
class FoldedWindow {
public:
    // Folds the characters from `start` on until there are at least `length` units or the text ends, and the
    // marks that follow.
    void fill(std::u16string_view text, std::size_t start, std::size_t length);

    [[nodiscard]] std::u16string_view units() const {
        return std::u16string_view(m_units).substr(0, m_length);
    }

    // The end of the stretch in the text.
    [[nodiscard]] std::size_t end() const { return m_end; }

    // The position in the text of the character that the unit comes from; for the number of units, the end.
    [[nodiscard]] std::size_t origin(std::size_t index) const {
        if (index == m_length) {
            return m_end;
        }
        return m_isOneToOne ? m_start + index : m_origins[index];
    }

    // Whether a character begins at the unit.
    [[nodiscard]] bool isBoundary(std::size_t index) const {
        return m_isOneToOne || index == 0 || origin(index) != origin(index - 1);
    }

private:
    void appendASCII(UnitBlock block);
    void appendCharacter(std::u16string_view text);
    void appendSyllable(char16_t syllable);
    void keepOrigins();

    std::u16string m_units; // of which m_length are in use
    std::size_t m_length = 0;
    std::size_t m_start = 0;
    std::size_t m_end = 0;
    bool m_isOneToOne = true;           // each unit comes from the unit at its place
    std::vector<std::size_t> m_origins; // kept only otherwise
};

void FoldedWindow::fill(std::u16string_view text, std::size_t start, std::size_t length) {
    const auto atMost = std::min(length, (text.size() - start) * kMaxFoldedLength);
    m_units.resize(std::max(m_units.size(), atMost + std::max(kUnitBlockSize, kMaxFoldedLength)));
    m_length = 0;
    m_start = start;
    m_end = start;
    m_isOneToOne = true;
    while (m_length < length && m_end < text.size()) {
        if (m_end + kUnitBlockSize <= text.size()) {
            const auto block = loadUnits(text.data() + m_end);
            if (isASCII(block)) {
                appendASCII(block);
                continue;
            }
        }
        appendCharacter(text);
    }
    for (auto next = m_end; next < text.size() && fold(characterAt(text, next)).isEmpty();) {
        m_end = next;
    }
}

void FoldedWindow::appendASCII(UnitBlock block) {
    const auto capitals = std::bit_cast<UnitBlock>((block >= u'A') & (block <= u'Z'));
    const auto folded = block | (capitals & u'\x20');
    std::memcpy(&m_units[m_length], &folded, sizeof(folded));
    if (!m_isOneToOne) {
        m_origins.resize(m_length + kUnitBlockSize);
        std::iota(m_origins.begin() + static_cast<std::ptrdiff_t>(m_length), m_origins.end(), m_end);
    }
    m_length += kUnitBlockSize;
    m_end += kUnitBlockSize;
}

void FoldedWindow::appendCharacter(std::u16string_view text) {
    const auto folded = foldTable()[text[m_end]];
    if (!U16_IS_SURROGATE(folded)) {
        m_units[m_length++] = folded;
        if (!m_isOneToOne) {
            m_origins.push_back(m_end);
        }
        ++m_end;
        return;
    }
    keepOrigins();
    if (folded == kNothing) {
        ++m_end;
        return;
    }
    auto next = m_end;
    const auto character = characterAt(text, next);
    if (character >= kFirstSyllable && character <= kLastSyllable) {
        appendSyllable(static_cast<char16_t>(character));
    } else {
        const auto several = fold(character);
        several.extract(0, several.length(), &m_units[m_length]);
        m_length += static_cast<std::size_t>(several.length());
    }
    m_origins.resize(m_length, m_end);
    m_end = next;
}

// The same as folding, by the rule that composes syllables (The Unicode Standard, section 3.12), because
// Korean text consists of little else.
void FoldedWindow::appendSyllable(char16_t syllable) {
    constexpr int kVowels = 21;
    constexpr int kTrailers = 28; // one of which is none
    const auto index = syllable - kFirstSyllable;
    m_units[m_length++] = static_cast<char16_t>(u'\u1100' + index / (kVowels * kTrailers));
    m_units[m_length++] = static_cast<char16_t>(u'\u1161' + index / kTrailers % kVowels);
    if (const auto trailer = index % kTrailers; trailer != 0) {
        m_units[m_length++] = static_cast<char16_t>(u'\u11A7' + trailer);
    }
}

void FoldedWindow::keepOrigins() {
    if (m_isOneToOne) {
        m_isOneToOne = false;
        m_origins.resize(m_length);
        std::iota(m_origins.begin(), m_origins.end(), m_start);
    }
}

// The first place from `start` on where the pattern stands, or npos. Places are tried only where both its
// first and its last unit fit.
std::size_t find(std::u16string_view units, std::u16string_view pattern, std::size_t start) {
    const auto first = pattern.front();
    const auto last = pattern.back();
    const auto lastOffset = pattern.size() - 1;
    const auto standsAt = [&](std::size_t place) {
        return std::equal(pattern.begin(), pattern.end(), units.begin() + static_cast<std::ptrdiff_t>(place));
    };
    for (; start + lastOffset + kUnitBlockSize <= units.size(); start += kUnitBlockSize) {
        const auto fits =
            (loadUnits(&units[start]) == first) & (loadUnits(&units[start + lastOffset]) == last);
        if (!isAny(fits)) {
            continue;
        }
        for (std::size_t i = 0; i < kUnitBlockSize; ++i) {
            if (fits[i] != 0 && standsAt(start + i)) {
                return start + i;
            }
        }
    }
    for (; start + lastOffset < units.size(); ++start) {
        if (standsAt(start)) {
            return start;
        }
    }
    return std::u16string_view::npos;
}

} // namespace

FoldedSearch::FoldedSearch(std::u16string_view query) {
    FoldedWindow window;
    window.fill(query, 0, query.size() * kMaxFoldedLength);
    m_query = window.units();
}

std::vector<TextRange> FoldedSearch::matches(std::u16string_view text, const std::stop_token& stop) const {
    // Small enough to stay in the processor's cache between being folded and being searched.
    constexpr std::size_t kWindowLength = 16'384;

    std::vector<TextRange> found;
    if (m_query.empty()) {
        return found;
    }
    FoldedWindow window;
    for (std::size_t start = 0; start < text.size();) {
        if (stop.stop_requested()) {
            return {};
        }
        window.fill(text, start, std::max(kWindowLength, 2 * m_query.size()));
        const auto units = window.units();
        std::size_t searched = 0;
        for (auto index = find(units, m_query, 0); index != std::u16string_view::npos;) {
            const auto end = index + m_query.size();
            const auto isMatch = window.isBoundary(index) && window.isBoundary(end);
            if (isMatch) {
                found.push_back({window.origin(index), window.origin(end) - window.origin(index)});
                searched = end;
            }
            index = find(units, m_query, isMatch ? end : index + 1);
        }
        if (window.end() == text.size()) {
            break;
        }
        // A match may begin in the last units of this window and end in the next one.
        start = window.origin(std::max(searched, units.size() - (m_query.size() - 1)));
    }
    return found;
}

} // namespace tarnquill
