// The size of a text as it is shown under an editor.
#pragma once

#include <cstddef>

namespace tarnquill {

struct TextMetrics {
    std::size_t lines = 0; // as an editor numbers them; none in an empty text
    std::size_t bytes = 0; // as UTF-8; a lone surrogate counts as the three of U+FFFD

    friend constexpr bool operator==(const TextMetrics&, const TextMetrics&) = default;
};

} // namespace tarnquill
