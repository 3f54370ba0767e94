#include "common/RowBreaks.h"

#include "common/Graphemes.h"
#include "common/TextCells.h"

#include <algorithm>

namespace tarnquill {

namespace {

bool isPlain(char16_t unit) {
    return unit >= 0x20 && unit < 0x7F;
}

class Breaker {
public:
    Breaker(std::u16string_view text, std::size_t columns, RowBreaks& rows)
        : m_text(text), m_columns(columns), m_rows(rows) {}

    // `start` to `end` is a line without its end.
    void breakLine(std::size_t start, std::size_t end) {
        const auto line = m_text.substr(start, end - start);
        if (line.size() <= m_columns && std::ranges::all_of(line, isPlain)) {
            addRow(start, line.size());
            return;
        }
        while (start < end) {
            const auto next = rowEnd(start, end);
            addRow(start, m_cells);
            start = next;
        }
    }

private:
    void addRow(std::size_t start, std::size_t cells) {
        m_rows.starts.push_back(static_cast<std::uint16_t>(start));
        m_rows.widest = std::max(m_rows.widest, cells);
    }

    // Where the row that starts at `start` ends; leaves its cells in m_cells.
    std::size_t rowEnd(std::size_t start, std::size_t end) {
        m_cells = 0;
        auto space = start; // behind the last white space
        std::size_t cellsToSpace = 0;
        for (auto at = start; at < end;) {
            const auto next = Graphemes::end(m_text.substr(0, end), at);
            const auto cells = cellsOf(at, next);
            const auto hangs = m_text[at] == u' ' && m_cells == m_columns;
            if (m_cells + cells > m_columns && at > start && !hangs) {
                // Breaking early at white space in the front half would waste more than it helps.
                if (cellsToSpace * 2 >= m_columns) {
                    m_cells = cellsToSpace;
                    return space;
                }
                return at;
            }
            m_cells += cells;
            at = next;
            if (m_text[at - 1] == u' ' || m_text[at - 1] == u'\t') {
                space = at;
                cellsToSpace = m_cells;
            }
        }
        return end;
    }

    [[nodiscard]] std::size_t cellsOf(std::size_t at, std::size_t next) const {
        const auto unit = m_text[at];
        if (isPlain(unit) && next == at + 1) {
            return 1;
        }
        if (unit == u'\t') {
            return TextCells::kTabStop - m_cells % TextCells::kTabStop;
        }
        return TextCells::width(m_text.substr(at, next - at));
    }

    std::u16string_view m_text;
    std::size_t m_columns;
    RowBreaks& m_rows;
    std::size_t m_cells = 0;
};

} // namespace

RowBreaks breakRows(std::u16string_view chunk, std::size_t columns) {
    RowBreaks rows;
    Breaker breaker(chunk, std::max<std::size_t>(columns, 1), rows);
    for (std::size_t start = 0; start < chunk.size();) {
        const auto lineFeed = chunk.find(u'\n', start);
        const auto lineEnd = std::min(lineFeed, chunk.size());
        const auto carriageReturn =
            lineFeed != std::u16string_view::npos && lineEnd > start && chunk[lineEnd - 1] == u'\r';
        breaker.breakLine(start, carriageReturn ? lineEnd - 1 : lineEnd);
        start = lineEnd + 1;
    }
    return rows;
}

} // namespace tarnquill
