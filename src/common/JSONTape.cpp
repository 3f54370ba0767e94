#include "common/JSONTape.h"

#include "common/LargePages.h"

#include <algorithm>

namespace tarnquill {

// Documents of all kinds have a value or a key for every so many bytes, so that most tapes never grow.
constexpr std::size_t kUsualBytesPerWord = 8;

void JSONTape::grow() {
    constexpr std::size_t kLeastCapacity = 16;
    const auto capacity =
        m_capacity == 0 ? std::max(m_source.size() / kUsualBytesPerWord, kLeastCapacity) : m_capacity * 2;
    auto words = std::make_unique_for_overwrite<std::uint64_t[]>(capacity);
    adviseLargePages(words.get(), capacity * sizeof(std::uint64_t));
    std::copy_n(m_words.get(), m_size, words.get());
    m_words = std::move(words);
    m_capacity = capacity;
}

} // namespace tarnquill
