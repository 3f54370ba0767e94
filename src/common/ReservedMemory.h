// Room for the most that might be written, when the least is much less: memory that takes nothing until it is
// touched.
#pragma once

#include <cstddef>
#include <memory>

namespace tarnquill {

// Uninitialized bytes, aligned for every type. Much of it is backed by large pages where the system has them.
// Throws std::bad_alloc when there is no room.
[[nodiscard]] std::shared_ptr<std::byte[]> reservedMemory(std::size_t size);

} // namespace tarnquill
