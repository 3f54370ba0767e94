// A set of the rows or of the columns of one table: a bit each, so that a million of them cost little.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <vector>

namespace tarnquill {

class CSVIndexSet {
public:
    CSVIndexSet() = default;
    CSVIndexSet(std::initializer_list<std::size_t> indexes) {
        for (const auto index : indexes) {
            insert(index);
        }
    }

    // The first `count`.
    [[nodiscard]] static CSVIndexSet all(std::size_t count) {
        CSVIndexSet result;
        result.m_bits.assign(count, true);
        return result;
    }

    [[nodiscard]] bool empty() const { return m_bits.empty(); }
    [[nodiscard]] bool contains(std::size_t index) const { return index < m_bits.size() && m_bits[index]; }

    void insert(std::size_t index) {
        if (index >= m_bits.size()) {
            m_bits.resize(index + 1);
        }
        m_bits[index] = true;
    }

    void erase(std::size_t index) {
        if (index < m_bits.size()) {
            m_bits[index] = false;
            trim();
        }
    }

    // Forgets all from `count` on.
    void limitTo(std::size_t count) {
        if (m_bits.size() > count) {
            m_bits.resize(count);
            trim();
        }
    }

    friend bool operator==(const CSVIndexSet&, const CSVIndexSet&) = default;

private:
    void trim() {
        while (!m_bits.empty() && !m_bits.back()) {
            m_bits.pop_back();
        }
    }

    std::vector<bool> m_bits; // up to the last one in the set
};

} // namespace tarnquill
