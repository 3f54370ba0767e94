// White space as Unicode defines it (the White_Space property), in UTF-8 text.
#pragma once

#include <cstddef>
#include <string_view>

namespace tarnquill {

// The number of bytes of the white space character at the position; 0 when there is none.
[[nodiscard]] std::size_t whiteSpaceAt(std::string_view text, std::size_t position);

// Without white space at either end.
[[nodiscard]] std::string_view trimmed(std::string_view text);

} // namespace tarnquill
