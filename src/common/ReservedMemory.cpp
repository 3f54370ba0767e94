#include "common/ReservedMemory.h"

#include "common/LargePages.h"

#include <sys/mman.h>

#include <new>

namespace tarnquill {

std::shared_ptr<std::byte[]> reservedMemory(std::size_t size) {
    constexpr std::size_t kWorthAMapping = std::size_t{1} << 20;
    if (size < kWorthAMapping) {
        return std::make_shared_for_overwrite<std::byte[]>(size);
    }
    // Without MAP_NORESERVE a system with less memory than this could refuse what is never touched.
    auto* memory =
        ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED) {
        throw std::bad_alloc();
    }
    adviseLargePages(memory, size);
    return {static_cast<std::byte*>(memory), [size](std::byte* bytes) { ::munmap(bytes, size); }};
}

} // namespace tarnquill
