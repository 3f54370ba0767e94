#include "common/JSONTape.h"

#include "common/LargePages.h"

#include <algorithm>
#include <new>

namespace tarnquill {

// Documents of all kinds have a value or a key for every so many bytes, so that most tapes never grow.
constexpr std::size_t kUsualBytesPerWord = 8;

// By realloc, which moves the pages of a large block instead of copying it.
void JSONTape::grow() {
    constexpr std::size_t kLeastCapacity = 16;
    const auto capacity =
        m_capacity == 0 ? std::max(m_source.size() / kUsualBytesPerWord, kLeastCapacity) : m_capacity * 2;
    const auto size = capacity * sizeof(std::uint64_t);
    auto* words = static_cast<std::uint64_t*>(std::realloc(m_words.get(), size));
    if (words == nullptr) {
        throw std::bad_alloc();
    }
    static_cast<void>(m_words.release());
    m_words.reset(words);
    m_capacity = capacity;
    adviseLargePages(words, size);
}

} // namespace tarnquill
