// Finds what someone means by a few letters: a title matches when it holds the letters in their order, and
// the better the letters hit the starts of its words or stand together, the higher it ranks.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tarnquill::FuzzyMatch {

struct Match {
    int score = 0;                      // comparable between titles, for the same query only
    std::vector<std::size_t> positions; // of the letters in the title, in UTF-16 units, ascending

    friend bool operator==(const Match&, const Match&) = default;
};

// Longer titles are only looked at up to here, so that no file name makes typing slow.
inline constexpr std::size_t kLongestTitle = 512;

// The best way to find the query's letters in the title; nothing when they are not all there. Case and white
// space in the query do not count. An empty query matches every title with a score of 0.
[[nodiscard]] std::optional<Match> match(std::u16string_view query, std::u16string_view title);

} // namespace tarnquill::FuzzyMatch
