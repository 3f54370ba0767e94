// The rows of a text that is wrapped to a number of columns, counted chunk by chunk when they are needed: the
// rows that are asked for are exact at once, and the number of those in front of them is an estimate until
// all are counted.
#pragma once

#include "common/RowBreaks.h"
#include "common/TextBuffer.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

namespace tarnquill {

// A row never crosses a chunk: in a line that is too long for one, rows also break at its borders.
class RowLayout {
public:
    struct Row {
        TextRange range; // without the line's end
        bool startsLine = false;
        bool endsLine = false;
        std::size_t piece = 0; // of the buffer
        std::size_t index = 0; // in the piece

        friend bool operator==(const Row&, const Row&) = default;
    };

    RowLayout();

    // What is known of chunks that the old text has too is kept.
    void setText(const TextBuffer& text);
    void setColumns(std::size_t columns);
    [[nodiscard]] std::size_t columns() const { return m_columns; }

    // The row that holds the position; where a line was broken, that is the one that begins there.
    [[nodiscard]] Row rowAt(std::size_t position);
    [[nodiscard]] std::optional<Row> next(const Row& row);
    [[nodiscard]] std::optional<Row> previous(const Row& row);

    // Rows by number. The first is 0; a number that is too large gives the last row.
    [[nodiscard]] Row rowNumbered(std::size_t number);
    [[nodiscard]] std::size_t numberOf(const Row& row) const;
    [[nodiscard]] std::size_t rowCount() const;

    // Cells of the widest row among those counted.
    [[nodiscard]] std::size_t widest() const;

    // Counts rows for about as long as told. Returns whether all are counted.
    bool settle(std::chrono::steady_clock::duration budget);
    [[nodiscard]] bool isSettled() const { return m_uncounted == 0; }

private:
    struct Entry {
        RowBreaks rows;
        std::size_t count = 0; // an estimate unless counted
        bool counted = false;
    };

    [[nodiscard]] Entry uncounted(const TextBuffer::Chunk& chunk) const;
    const Entry& counted(std::size_t piece);
    [[nodiscard]] bool hasEmptyLastRow(std::size_t piece) const;
    [[nodiscard]] std::size_t rowsIn(std::size_t piece) const;
    [[nodiscard]] Row makeRow(std::size_t piece, std::size_t index);
    void updateNumbers() const;

    TextBuffer m_text;
    std::size_t m_columns = 80;
    std::vector<Entry> m_entries; // one a piece
    std::size_t m_uncounted = 0;
    std::size_t m_nextToCount = 0;

    // The number of each piece's first row, right up to m_numbered.
    mutable std::vector<std::size_t> m_firstRows;
    mutable std::size_t m_numbered = 0;
};

} // namespace tarnquill
