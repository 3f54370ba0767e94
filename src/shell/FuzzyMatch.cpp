#include "shell/FuzzyMatch.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <limits>

namespace tarnquill::FuzzyMatch {

namespace {

constexpr int kLetter = 8;
constexpr int kTitleStart = 10;
constexpr int kWordStart = 8;
constexpr int kConsecutive = 9; // more than a word start, so that a run is not torn apart for one
constexpr int kMostGap = 4;     // what a gap between two letters costs at most
constexpr int kImpossible = std::numeric_limits<int>::min() / 2;

struct Letter {
    UChar32 folded;
    std::size_t position;
    int bonus; // for where it stands
};

int bonus(UChar32 before, UChar32 letter) {
    const bool startsWord = u_isalnum(before) == 0 || (u_isupper(letter) != 0 && u_islower(before) != 0) ||
                            (u_isdigit(letter) != 0 && u_isdigit(before) == 0);
    return startsWord && u_isalnum(letter) != 0 ? kWordStart : 0;
}

std::vector<Letter> lettersOf(std::u16string_view text) {
    std::vector<Letter> letters;
    UChar32 before = 0;
    for (std::size_t next = 0; next < text.size();) {
        const auto position = next;
        const auto unit = text[next++];
        UChar32 letter = unit;
        if (U16_IS_LEAD(unit) && next < text.size() && U16_IS_TRAIL(text[next])) {
            letter = U16_GET_SUPPLEMENTARY(unit, text[next++]);
        }
        letters.push_back({.folded = u_foldCase(letter, U_FOLD_CASE_DEFAULT),
                           .position = position,
                           .bonus = position == 0 ? kTitleStart : bonus(before, letter)});
        before = letter;
    }
    return letters;
}

// What it costs to pass over so many letters.
int gapCost(std::size_t skipped) {
    return static_cast<int>(std::min<std::size_t>(skipped, kMostGap));
}

} // namespace

std::optional<Match> match(std::u16string_view query, std::u16string_view title) {
    auto wanted = lettersOf(query.substr(0, kLongestTitle + 1));
    std::erase_if(wanted, [](const Letter& letter) { return u_isUWhiteSpace(letter.folded) != 0; });
    const auto letters = lettersOf(title.substr(0, kLongestTitle));
    if (wanted.empty()) {
        return Match{};
    }
    if (wanted.size() > letters.size()) {
        return std::nullopt;
    }

    // best[i][j]: the most that the first i + 1 wanted letters reach when the last of them is letters[j];
    // from[i][j]: where the one before it stands then.
    const auto width = letters.size();
    std::vector<int> best(wanted.size() * width, kImpossible);
    std::vector<std::size_t> from(wanted.size() * width, 0);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        for (std::size_t j = i; j < width; ++j) {
            if (letters[j].folded != wanted[i].folded) {
                continue;
            }
            const auto place = i * width + j;
            if (i == 0) {
                best[place] = kLetter + letters[j].bonus - gapCost(j);
                continue;
            }
            for (std::size_t before = i - 1; before < j; ++before) {
                const auto reached = best[(i - 1) * width + before];
                if (reached == kImpossible) {
                    continue;
                }
                const auto step = before + 1 == j ? std::max(kConsecutive, letters[j].bonus)
                                                  : letters[j].bonus - gapCost(j - before - 1);
                if (reached + kLetter + step > best[place]) {
                    best[place] = reached + kLetter + step;
                    from[place] = before;
                }
            }
        }
    }

    const auto lastRow = best.end() - static_cast<std::ptrdiff_t>(width);
    const auto end = std::max_element(lastRow, best.end());
    if (*end == kImpossible) {
        return std::nullopt;
    }
    Match found{.score = *end, .positions = std::vector<std::size_t>(wanted.size())};
    auto column = static_cast<std::size_t>(end - lastRow);
    for (auto i = wanted.size(); i-- > 0;) {
        found.positions[i] = letters[column].position;
        column = from[i * width + column];
    }
    return found;
}

} // namespace tarnquill::FuzzyMatch
