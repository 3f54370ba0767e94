#include "json/ElementBatches.h"

#include <cstddef>

namespace tarnquill {

namespace {

// Values and keys in a batch: so many that the threads seldom meet, and so few that their text stays in the
// processor's cache.
constexpr std::size_t kBatchSize = std::size_t{1} << 14;

} // namespace

ElementBatches::Batch::Batch(ElementBatches& batches) : m_batches(batches) {
    const std::scoped_lock lock(batches.m_mutex);
    m_number = batches.m_count++;
    const auto first = batches.m_next;
    for (std::size_t size = 0; batches.m_next != batches.m_end && size < kBatchSize; ++batches.m_next) {
        size += (*batches.m_next).extent();
    }
    m_elements = {first, batches.m_next};
}

ElementBatches::Batch::~Batch() {
    awaitTurn();
    m_batches.m_turn = m_number + 1;
    m_batches.m_turn.notify_all();
}

void ElementBatches::Batch::awaitTurn() const {
    for (std::uint32_t turn = m_batches.m_turn; turn != m_number; turn = m_batches.m_turn) {
        m_batches.m_turn.wait(turn);
    }
}

} // namespace tarnquill
