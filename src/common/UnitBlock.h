// A search for the first UTF-16 unit with some property, which looks at eight units at a time.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarnquill {

// Eight units in one register. Comparisons give a mask of the same shape, for which | and & stand.
using UnitBlock [[gnu::vector_size(16)]] = char16_t;
inline constexpr std::size_t kUnitBlockSize = sizeof(UnitBlock) / sizeof(char16_t);

[[nodiscard]] inline UnitBlock loadUnits(const char16_t* units) {
    UnitBlock block;
    std::memcpy(&block, units, sizeof(block));
    return block;
}

// The position of the first unit from `start` on that the predicate holds for; the text's size when there is
// none. The predicate is a generic lambda without branches, because it is called with single units and with
// blocks:
//     [](auto unit) { return (unit == u'"') | (unit == u'\\'); }
template <class Predicate>
[[nodiscard]] std::size_t findUnit(std::u16string_view text, std::size_t start, Predicate isWanted) {
    static_assert(std::endian::native == std::endian::little,
                  "the first unit is looked for in the lowest bits");
    for (; start + kUnitBlockSize <= text.size(); start += kUnitBlockSize) {
        const auto halves =
            std::bit_cast<std::array<std::uint64_t, 2>>(isWanted(loadUnits(text.data() + start)));
        if (halves[0] != 0) {
            return start + static_cast<std::size_t>(std::countr_zero(halves[0])) / 16;
        }
        if (halves[1] != 0) {
            return start + kUnitBlockSize / 2 + static_cast<std::size_t>(std::countr_zero(halves[1])) / 16;
        }
    }
    while (start < text.size() && !isWanted(text[start])) {
        ++start;
    }
    return start;
}

} // namespace tarnquill
