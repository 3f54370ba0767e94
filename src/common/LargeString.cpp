#include "common/LargeString.h"

#ifdef __linux__
#include <sys/mman.h>

#include <cstdint>
#endif

namespace tarnquill {

std::string stringWithRoomFor(std::size_t capacity) {
    std::string string;
    string.reserve(capacity);
#ifdef __linux__
    constexpr std::size_t kLargePage = std::size_t{2} << 20;
    if (capacity >= 2 * kLargePage) {
        // Advice only, so its failure changes nothing. It covers the large pages that lie within the string.
        const auto address = reinterpret_cast<std::uintptr_t>(string.data());
        const auto skipped = (kLargePage - address % kLargePage) % kLargePage;
        madvise(string.data() + skipped, (capacity - skipped) / kLargePage * kLargePage, MADV_HUGEPAGE);
    }
#endif
    return string;
}

} // namespace tarnquill
