// A range of a text in UTF-16 units, the unit in which editors, tokens and search results count.
#pragma once

#include <cstddef>

namespace tarnquill {

struct TextRange {
    std::size_t location = 0;
    std::size_t length = 0;

    [[nodiscard]] constexpr std::size_t end() const { return location + length; }
    friend constexpr bool operator==(const TextRange&, const TextRange&) = default;
};

} // namespace tarnquill
