// Counts and sizes in words, as footers and badges show them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnquill {

// "1 line", "1,204 lines".
[[nodiscard]] std::string countText(std::size_t count, std::string_view one, std::string_view many);

// "1 byte", "887 bytes", "48.2 KB", "10 MB": decimal units, three significant digits at most below a
// thousand.
[[nodiscard]] std::string byteCountText(std::size_t bytes);

} // namespace tarnquill
