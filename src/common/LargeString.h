// Strings that are about to be filled with megabytes.
#pragma once

#include <cstddef>
#include <string>

namespace tarnquill {

// An empty string with room for so many bytes. A large one is backed by large pages where the system has
// them.
[[nodiscard]] std::string stringWithRoomFor(std::size_t capacity);

} // namespace tarnquill
