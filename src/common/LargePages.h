// Large pages for memory that is about to be filled: touching fresh memory page by page costs more than most
// of what is done with it.
#pragma once

#include <cstddef>

namespace tarnquill {

// Asks the system to back the memory with large pages, where it has them and the memory has room for them.
// Advice only: nothing changes when it is not taken.
void adviseLargePages(void* memory, std::size_t size);

} // namespace tarnquill
