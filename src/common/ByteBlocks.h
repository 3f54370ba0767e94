// Looks at text a block of bytes at a time, which is several times quicker than byte by byte.
#pragma once

#include <cstddef>
#include <experimental/simd>
#include <string_view>

namespace tarnquill::ByteBlocks {

namespace simd = std::experimental;

using Block = simd::native_simd<char>;
inline constexpr std::size_t kSize = Block::size();

inline Block load(const char* text) {
    return {text, simd::element_aligned};
}

// The first place from `start` on whose byte the condition holds for, or the text's size. The condition takes
// a byte or a Block, and gives a bool or a mask.
template <typename Condition>
std::size_t find(std::string_view text, std::size_t start, Condition condition) {
    for (; start + kSize <= text.size(); start += kSize) {
        if (const auto found = condition(load(text.data() + start)); simd::any_of(found)) {
            return start + static_cast<std::size_t>(simd::find_first_set(found));
        }
    }
    while (start < text.size() && !condition(text[start])) {
        ++start;
    }
    return start;
}

} // namespace tarnquill::ByteBlocks
