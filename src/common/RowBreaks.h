// Where lines break into rows of a given number of cells: after white space where there is some to break at,
// else between any two characters. It follows from the text and the number alone, never from a typeface.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tarnquill {

struct RowBreaks {
    std::vector<std::uint16_t> starts; // offset of each row
    std::size_t widest = 0;            // cells of the widest row
};

// The rows of a chunk of a text buffer. A line feed ends a row; there is no row after the last one. A space
// that no longer fits hangs over the end of its row.
[[nodiscard]] RowBreaks breakRows(std::u16string_view chunk, std::size_t columns);

} // namespace tarnquill
