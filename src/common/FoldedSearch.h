// Finds a query in a text without regard to case and diacritics.
//
// Both are compared folded: every character is decomposed (NFD), its combining marks (general category M) are
// dropped, and simple case folding is applied to what is left. So "é", written in either way, matches "e",
// and "ß" matches "ẞ" but not "ss". A match covers whole characters of the text and the marks that follow its
// last one. A mark that stands by itself is compared as nothing.
#pragma once

#include "common/TextRange.h"

#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill {

class FoldedSearch {
public:
    explicit FoldedSearch(std::u16string_view query);

    // All matches from the left, none overlapping the one before; none when a stop is requested meanwhile. A
    // query that folds to nothing is found nowhere.
    [[nodiscard]] std::vector<TextRange> matches(std::u16string_view text,
                                                 const std::stop_token& stop = {}) const;

private:
    std::u16string m_query; // folded
};

} // namespace tarnquill
