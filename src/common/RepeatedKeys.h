// Finds the keys of a JSON object that occur more than once.
#pragma once

#include "common/JSONTape.h"
#include "common/KeyHash.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tarnquill {

class RepeatedKeys {
public:
    explicit RepeatedKeys(const JSONTape& tape) : m_tape(tape) {}

    // The key that the word on the tape stands for.
    void add(std::size_t word, std::string_view key) {
        m_entries.push_back((m_hash(key) & ~kWordMask) | word);
    }

    [[nodiscard]] std::size_t size() const { return m_entries.size(); }

    // Calls found(first, again) for each key from the given one on that occurred before, and forgets all of
    // these.
    template <typename Found>
    void takeFrom(std::size_t start, const Found& found) {
        if (mayRepeat(start)) {
            findFrom(start, found);
        }
        m_entries.resize(start);
    }

private:
    // A key's word on the tape and, above it, as much of the key's hash as has room.
    using Entry = std::uint64_t;

    static constexpr Entry kWordMask = JSONTape::kLargestPosition;
    static constexpr std::size_t kFewKeys = 24;

    // For the usual object of few keys this settles it without a table: each key sets one bit in each of
    // three sets, and a key that occurs again finds all of its bits set.
    [[nodiscard]] bool mayRepeat(std::size_t start) const {
        if (m_entries.size() - start > kFewKeys) {
            return true;
        }
        std::uint64_t first = 0;
        std::uint64_t second = 0;
        std::uint64_t third = 0;
        std::uint64_t isRepeated = 0;
        for (auto i = start; i < m_entries.size(); ++i) {
            const auto entry = m_entries[i];
            const auto a = entry >> 58;
            const auto b = (entry >> 52) % 64;
            const auto c = (entry >> 46) % 64;
            isRepeated |= (first >> a) & (second >> b) & (third >> c) & 1;
            first |= std::uint64_t{1} << a;
            second |= std::uint64_t{1} << b;
            third |= std::uint64_t{1} << c;
        }
        return isRepeated != 0;
    }

    template <typename Found>
    void findFrom(std::size_t start, const Found& found) {
        const auto mask = std::bit_ceil((m_entries.size() - start) * 2) - 1;
        m_table.assign(mask + 1, 0); // no key has the word 0, which is the root's
        for (auto i = start; i < m_entries.size(); ++i) {
            const auto entry = m_entries[i];
            auto slot = (entry >> JSONTape::kPositionBits) & mask;
            while (m_table[slot] != 0 && !isSameKey(m_table[slot], entry)) {
                slot = (slot + 1) & mask;
            }
            if (m_table[slot] == 0) {
                m_table[slot] = entry;
            } else {
                found(m_table[slot] & kWordMask, entry & kWordMask);
            }
        }
    }

    [[nodiscard]] bool isSameKey(Entry a, Entry b) const {
        return ((a ^ b) & ~kWordMask) == 0 && m_tape.text(a & kWordMask) == m_tape.text(b & kWordMask);
    }

    const JSONTape& m_tape;
    KeyHash m_hash;
    std::vector<Entry> m_entries; // the keys of every object that is open, the innermost last
    std::vector<Entry> m_table;
};

} // namespace tarnquill
