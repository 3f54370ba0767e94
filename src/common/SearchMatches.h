// The matches of a search as the user walks through them. They are sorted by location and do not overlap.
#pragma once

#include "common/TextRange.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tarnquill::SearchMatches {

enum class Direction : std::uint8_t { forward, backward };

// The match after or before the selection, or the one at the other end of the text when there is none.
[[nodiscard]] std::optional<TextRange> nextMatch(TextRange selection, std::span<const TextRange> matches,
                                                 Direction direction);

// The place of the range among the matches, if it is one of them.
[[nodiscard]] std::optional<std::size_t> index(TextRange range, std::span<const TextRange> matches);

// "3 of 1,204 matches" when a match is selected, else "1,204 matches". The numbers are written as the locale
// does, an ICU name; an empty one is the user's.
[[nodiscard]] std::string statusText(std::span<const TextRange> matches, TextRange selection,
                                     const std::string& locale = {});
// The same of the count alone; `selected` counts from 0.
[[nodiscard]] std::string statusText(std::size_t count, std::optional<std::size_t> selected,
                                     const std::string& locale = {});

} // namespace tarnquill::SearchMatches
