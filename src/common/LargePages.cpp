#include "common/LargePages.h"

#ifdef __linux__
#include <sys/mman.h>

#include <cstdint>
#endif

namespace tarnquill {

void adviseLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) {
#ifdef __linux__
    constexpr std::size_t kPage = std::size_t{4} << 10;
    constexpr std::size_t kLargePage = std::size_t{2} << 20;
    if (size >= 2 * kLargePage) {
        // All of the pages that the memory touches, because a block that is advised in part is two mappings
        // to the system, and can no longer grow by moving its pages.
        const auto address = reinterpret_cast<std::uintptr_t>(memory);
        const auto before = address % kPage;
        madvise(static_cast<char*>(memory) - before, (before + size + kPage - 1) / kPage * kPage,
                MADV_HUGEPAGE);
    }
#endif
}

} // namespace tarnquill
