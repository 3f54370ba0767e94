#include "common/SearchMatches.h"

#include "common/LocalizedInteger.h"

#include <algorithm>
#include <iterator>

namespace tarnquill::SearchMatches {

std::optional<TextRange> nextMatch(TextRange selection, std::span<const TextRange> matches,
                                   Direction direction) {
    if (matches.empty()) {
        return std::nullopt;
    }
    if (direction == Direction::forward) {
        const auto after = std::ranges::lower_bound(matches, selection.end(), {}, &TextRange::location);
        return after == matches.end() ? matches.front() : *after;
    }
    const auto tooFar = std::ranges::upper_bound(matches, selection.location, {}, &TextRange::end);
    return tooFar == matches.begin() ? matches.back() : *std::prev(tooFar);
}

std::optional<std::size_t> index(TextRange range, std::span<const TextRange> matches) {
    const auto found = std::ranges::lower_bound(matches, range.location, {}, &TextRange::location);
    if (found == matches.end() || *found != range) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - matches.begin());
}

std::string statusText(std::span<const TextRange> matches, TextRange selection, const std::string& locale) {
    return statusText(matches.size(), index(selection, matches), locale);
}

std::string statusText(std::size_t count, std::optional<std::size_t> selected, const std::string& locale) {
    if (count == 0) {
        return "No matches";
    }
    const auto number = [&](std::size_t value) {
        return localizedInteger(static_cast<std::int64_t>(value), locale);
    };
    return (selected ? number(*selected + 1) + " of " : std::string()) + number(count) +
           (count == 1 ? " match" : " matches");
}

} // namespace tarnquill::SearchMatches
