#include "common/JSONTape.h"

#include "common/LargePages.h"

#include <algorithm>
#include <new>

namespace tarnquill {

// Documents of all kinds have a value or a key for every so many bytes, so that most tapes never grow.
constexpr std::size_t kUsualBytesPerWord = 8;

void JSONTape::append(const JSONTape& other) {
    const auto start = m_size;
    m_size += other.m_size;
    if (m_size > m_capacity) {
        grow(m_size);
    }
    for (std::size_t i = 0; i < other.m_size; ++i) {
        const auto tag = other.tag(i);
        const auto shift = tag >= Tag::alias ? start : tag == Tag::decodedText ? decoded.size() : 0;
        m_words[start + i] = other.m_words[i] + shift;
    }
    for (const auto& [word, length] : other.m_longLengths) {
        m_longLengths.emplace_back(start + word, length);
    }
    decoded += other.decoded;
}

// By realloc, which moves the pages of a large block instead of copying it.
void JSONTape::grow(std::size_t leastCapacity) {
    constexpr std::size_t kLeastCapacity = 16;
    const auto usual = m_capacity == 0 ? m_source.size() / kUsualBytesPerWord : m_capacity * 2;
    const auto capacity = std::max({usual, leastCapacity, kLeastCapacity});
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
