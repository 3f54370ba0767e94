// Finds the partner of the bracket beside the caret.
#pragma once

#include "common/TextBuffer.h"

#include <optional>

namespace tarnquill {

struct BracketMatch {
    std::size_t open = 0;
    std::size_t close = 0;

    friend constexpr bool operator==(const BracketMatch&, const BracketMatch&) = default;
};

// The pair of (), [] or {} of which one stands in front of the caret or behind it; the one in front goes
// first. Brackets inside double-quoted strings, which end with their line, neither match nor count. Looks no
// farther than 100,000 units, so that it can be done at every move of the caret.
[[nodiscard]] std::optional<BracketMatch> matchBrackets(const TextBuffer& buffer, std::size_t caret);

} // namespace tarnquill
