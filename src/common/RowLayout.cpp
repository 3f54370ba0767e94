#include "common/RowLayout.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarnquill {

RowLayout::RowLayout() {
    setText(TextBuffer());
}

RowLayout::Entry RowLayout::uncounted(const TextBuffer::Chunk& chunk) const {
    const auto lines = chunk.lineFeeds.size() + (chunk.text.empty() || chunk.text.ends_with(u'\n') ? 0 : 1);
    return {.rows = {}, .count = std::max(lines, chunk.text.size() / m_columns), .counted = false};
}

void RowLayout::setText(const TextBuffer& text) {
    const auto old = std::exchange(m_text, text);
    const auto before = old.pieces();
    const auto after = m_text.pieces();
    // Nothing is known yet when there is no entry.
    const auto fewer = m_entries.empty() ? 0 : std::min(before.size(), after.size());
    std::size_t front = 0;
    while (front < fewer && before[front].chunk == after[front].chunk) {
        ++front;
    }
    std::size_t back = 0;
    while (back < fewer - front &&
           before[before.size() - 1 - back].chunk == after[after.size() - 1 - back].chunk) {
        ++back;
    }
    std::vector<Entry> entries;
    entries.reserve(after.size());
    const auto keep = [&](auto from, auto to) {
        entries.insert(entries.end(), std::make_move_iterator(from), std::make_move_iterator(to));
    };
    keep(m_entries.begin(), m_entries.begin() + static_cast<std::ptrdiff_t>(front));
    for (auto index = front; index < after.size() - back; ++index) {
        entries.push_back(uncounted(*after[index].chunk));
    }
    keep(m_entries.end() - static_cast<std::ptrdiff_t>(back), m_entries.end());
    m_entries = std::move(entries);
    m_uncounted = static_cast<std::size_t>(std::ranges::count(m_entries, false, &Entry::counted));
    m_nextToCount = 0;
    // The last piece kept may have become the last of all, or no longer be it.
    m_numbered = std::min(m_numbered, front > 0 ? front - 1 : 0);
    m_firstRows.resize(m_entries.size() + 1);
}

void RowLayout::setColumns(std::size_t columns) {
    columns = std::max<std::size_t>(columns, 1);
    if (columns == m_columns) {
        return;
    }
    m_columns = columns;
    const auto pieces = m_text.pieces();
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        m_entries[index] = uncounted(*pieces[index].chunk);
    }
    m_uncounted = pieces.size();
    m_nextToCount = 0;
    m_numbered = 0;
}

const RowLayout::Entry& RowLayout::counted(std::size_t piece) {
    auto& entry = m_entries[piece];
    if (!entry.counted) {
        entry.rows = breakRows(m_text.pieces()[piece].chunk->text, m_columns);
        const auto estimate = std::exchange(entry.count, entry.rows.starts.size());
        entry.counted = true;
        --m_uncounted;
        if (estimate != entry.count) {
            m_numbered = std::min(m_numbered, piece);
        }
    }
    return entry;
}

// The empty line behind a last line feed belongs to no chunk.
bool RowLayout::hasEmptyLastRow(std::size_t piece) const {
    const auto pieces = m_text.pieces();
    const auto& text = pieces[piece].chunk->text;
    return piece + 1 == pieces.size() && (text.empty() || text.ends_with(u'\n'));
}

std::size_t RowLayout::rowsIn(std::size_t piece) const {
    return m_entries[piece].count + (hasEmptyLastRow(piece) ? 1 : 0);
}

RowLayout::Row RowLayout::makeRow(std::size_t piece, std::size_t index) {
    const auto pieces = m_text.pieces();
    const auto& starts = counted(piece).rows.starts;
    const auto& text = pieces[piece].chunk->text;
    Row row{.range = {}, .startsLine = true, .endsLine = true, .piece = piece, .index = index};
    if (index == starts.size()) {
        row.range.location = m_text.length();
        return row;
    }
    const std::size_t start = starts[index];
    std::size_t end = index + 1 < starts.size() ? starts[index + 1] : text.size();
    row.startsLine = start > 0 ? text[start - 1] == u'\n' : piece == 0 || pieces[piece - 1].endsLine();
    if (end > start && text[end - 1] == u'\n') {
        --end;
        if (end > start && text[end - 1] == u'\r') {
            --end;
        }
    } else {
        row.endsLine = end == text.size() && piece + 1 == pieces.size();
    }
    row.range = {.location = pieces[piece].start + start, .length = end - start};
    return row;
}

RowLayout::Row RowLayout::rowAt(std::size_t position) {
    const auto piece = m_text.pieceAt(position);
    const auto& starts = counted(piece).rows.starts;
    if (position == m_text.length() && hasEmptyLastRow(piece)) {
        return makeRow(piece, starts.size());
    }
    const auto after = std::ranges::upper_bound(starts, position - m_text.pieces()[piece].start, {},
                                                [](auto start) { return std::size_t{start}; });
    return makeRow(piece, static_cast<std::size_t>(after - starts.begin()) - 1);
}

std::optional<RowLayout::Row> RowLayout::next(const Row& row) {
    counted(row.piece);
    if (row.index + 1 < rowsIn(row.piece)) {
        return makeRow(row.piece, row.index + 1);
    }
    if (row.piece + 1 < m_entries.size()) {
        return makeRow(row.piece + 1, 0);
    }
    return std::nullopt;
}

std::optional<RowLayout::Row> RowLayout::previous(const Row& row) {
    if (row.index > 0) {
        return makeRow(row.piece, row.index - 1);
    }
    if (row.piece > 0) {
        return makeRow(row.piece - 1, counted(row.piece - 1).count - 1);
    }
    return std::nullopt;
}

void RowLayout::updateNumbers() const {
    for (; m_numbered < m_entries.size(); ++m_numbered) {
        m_firstRows[m_numbered + 1] = m_firstRows[m_numbered] + rowsIn(m_numbered);
    }
}

RowLayout::Row RowLayout::rowNumbered(std::size_t number) {
    updateNumbers();
    const auto last = m_firstRows.end() - 1;
    const auto after = std::upper_bound(m_firstRows.begin(), last, number);
    const auto piece = static_cast<std::size_t>(after - m_firstRows.begin()) - 1;
    const auto index = number - m_firstRows[piece];
    counted(piece);
    return makeRow(piece, std::min(index, rowsIn(piece) - 1));
}

std::size_t RowLayout::numberOf(const Row& row) const {
    updateNumbers();
    return m_firstRows[row.piece] + row.index;
}

std::size_t RowLayout::rowCount() const {
    updateNumbers();
    return m_firstRows.back();
}

std::size_t RowLayout::widest() const {
    std::size_t widest = 0;
    for (const auto& entry : m_entries) {
        widest = std::max(widest, entry.rows.widest);
    }
    return widest;
}

bool RowLayout::settle(std::chrono::steady_clock::duration budget) {
    const auto end = std::chrono::steady_clock::now() + budget;
    while (!isSettled() && std::chrono::steady_clock::now() < end) {
        while (m_entries[m_nextToCount].counted) {
            ++m_nextToCount;
        }
        counted(m_nextToCount);
    }
    return isSettled();
}

} // namespace tarnquill
