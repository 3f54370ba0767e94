// Eight UTF-16 units in one register, for loops over text that look at eight units at a time.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace tarnquill {

using UnitBlock [[gnu::vector_size(16)]] = char16_t;
inline constexpr std::size_t kUnitBlockSize = 8;

// What comparing two blocks gives: all bits of a unit's place are equal. | and & combine masks.
using UnitMask = decltype(std::declval<UnitBlock>() == u'\0');

[[nodiscard]] inline UnitBlock loadUnits(const char16_t* units) {
    UnitBlock block;
    std::memcpy(&block, units, sizeof(block));
    return block;
}

[[nodiscard]] inline bool isAny(UnitMask mask) {
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(mask);
    return (halves[0] | halves[1]) != 0;
}

// The place of the first unit that the mask, which is not empty, selects.
[[nodiscard]] inline std::size_t firstPlace(UnitMask mask) {
    static_assert(std::endian::native == std::endian::little, "the first unit lies in the lowest bits");
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(mask);
    const auto bit = halves[0] != 0 ? std::countr_zero(halves[0]) : 64 + std::countr_zero(halves[1]);
    return static_cast<std::size_t>(bit) / 16;
}

// The position of the first unit from `start` on that the predicate holds for; the text's size when there is
// none. The predicate is called with single units and with blocks, so it is a generic lambda without
// branches:
//     [](auto unit) { return (unit == u'"') | (unit == u'\\'); }
template <class Predicate>
[[nodiscard]] std::size_t findUnit(std::u16string_view text, std::size_t start, Predicate isWanted) {
    for (; start + kUnitBlockSize <= text.size(); start += kUnitBlockSize) {
        const auto wanted = isWanted(loadUnits(text.data() + start));
        if (isAny(wanted)) {
            return start + firstPlace(wanted);
        }
    }
    while (start < text.size() && !isWanted(text[start])) {
        ++start;
    }
    return start;
}

} // namespace tarnquill
