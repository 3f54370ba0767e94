// Hands the elements of an array to several threads, a batch of neighbours at a time, and keeps the turn in
// which the threads pass on what they have made of them.
#pragma once

#include "common/JSONValue.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <ranges>

namespace tarnquill {

class ElementBatches {
public:
    using Iterator = JSONValue::Elements::Iterator;

    // The next elements that no batch has. The turn goes on to the batch behind it when this one is
    // destroyed.
    class Batch {
    public:
        explicit Batch(ElementBatches& batches);
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;
        ~Batch();

        // Empty when there are no more.
        [[nodiscard]] const std::ranges::subrange<Iterator>& elements() const { return m_elements; }
        [[nodiscard]] bool isFirst() const { return m_number == 0; }
        // Returns when all batches before this one are destroyed.
        void awaitTurn() const;

    private:
        ElementBatches& m_batches;
        std::uint32_t m_number;
        std::ranges::subrange<Iterator> m_elements;
    };

    explicit ElementBatches(const JSONValue::Elements& elements)
        : m_next(elements.begin()), m_end(elements.end()) {}

private:
    std::mutex m_mutex; // of the two below
    Iterator m_next;
    std::uint32_t m_count = 0;
    const Iterator m_end;
    std::atomic<std::uint32_t> m_turn = 0;
};

} // namespace tarnquill
