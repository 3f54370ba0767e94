// Strings that are about to be filled with megabytes.
#pragma once

#include <cstddef>
#include <string>

namespace tarnquill {

// An empty string with room for so many bytes. A large one is backed by large pages where the system has
// them: touching fresh memory page by page costs more than most conversions.
[[nodiscard]] std::string stringWithRoomFor(std::size_t capacity);

} // namespace tarnquill
