// How characters stand in the cells of a monospaced text (East Asian Width, UAX #11), and what stands in for
// those that cannot be seen.
#pragma once

#include <cstddef>
#include <string_view>

namespace tarnquill::TextCells {

// A tab reaches to the next multiple of this.
inline constexpr std::size_t kTabStop = 4;

// The cells, 1 or 2, of a grapheme cluster that is neither a tab nor the end of a line.
[[nodiscard]] std::size_t width(std::u16string_view cluster);

// The unit to draw for the one at `at`: the unit itself, or a visible one of a cell's width for controls,
// lone surrogates and the invisible characters that could reorder or hide what stands around them.
[[nodiscard]] char16_t drawn(std::u16string_view text, std::size_t at);

} // namespace tarnquill::TextCells
