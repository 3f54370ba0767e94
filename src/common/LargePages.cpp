#include "common/LargePages.h"

#ifdef __linux__
#include <sys/mman.h>

#include <cstdint>
#endif

namespace tarnquill {

void adviseLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) {
#ifdef __linux__
    constexpr std::size_t kLargePage = std::size_t{2} << 20;
    if (size >= 2 * kLargePage) {
        const auto address = reinterpret_cast<std::uintptr_t>(memory);
        const auto skipped = (kLargePage - address % kLargePage) % kLargePage;
        madvise(static_cast<char*>(memory) + skipped, (size - skipped) / kLargePage * kLargePage,
                MADV_HUGEPAGE);
    }
#endif
}

} // namespace tarnquill
