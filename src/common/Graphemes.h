// User-perceived characters: the extended grapheme clusters of Unicode (UAX #29), over UTF-16 text.
#pragma once

#include <cstddef>
#include <string_view>

namespace tarnquill::Graphemes {

// A cluster ends here at the latest, so that a flood of combining marks costs no more than any other text.
inline constexpr std::size_t kLongest = 64;

// The end of the cluster that starts at `at`, which is before the text's end.
[[nodiscard]] std::size_t end(std::u16string_view text, std::size_t at);

// The start of the cluster that holds the unit at `at`; the text's end is a start of its own.
[[nodiscard]] std::size_t start(std::u16string_view text, std::size_t at);

// The character that begins at `at`; a lone surrogate stands for itself.
[[nodiscard]] char32_t codePoint(std::u16string_view text, std::size_t at);

} // namespace tarnquill::Graphemes
