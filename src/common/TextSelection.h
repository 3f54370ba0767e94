// What is selected in a text: from the anchor, where selecting began, to the caret.
#pragma once

#include "common/TextRange.h"

#include <algorithm>
#include <cstddef>

namespace tarnquill {

struct TextSelection {
    std::size_t anchor = 0;
    std::size_t caret = 0;

    // Nothing selected, the caret there.
    [[nodiscard]] static constexpr TextSelection at(std::size_t position) {
        return {.anchor = position, .caret = position};
    }
    // The range selected, the caret at its end.
    [[nodiscard]] static constexpr TextSelection of(TextRange range) {
        return {.anchor = range.location, .caret = range.end()};
    }

    [[nodiscard]] constexpr bool isEmpty() const { return anchor == caret; }
    [[nodiscard]] constexpr TextRange range() const {
        const auto [first, last] = std::minmax(anchor, caret);
        return {.location = first, .length = last - first};
    }

    friend constexpr bool operator==(const TextSelection&, const TextSelection&) = default;
};

} // namespace tarnquill
