#include "common/ScrolledRows.h"

#include <algorithm>
#include <cmath>

namespace tarnquill {

void ScrolledRows::setText(const TextBuffer& text, const TextChange& change) {
    m_text = text;
    m_layout.setText(text);
    if (m_anchor > change.location) {
        m_anchor = change.moved(m_anchor);
    }
    keepInside();
}

void ScrolledRows::setOtherText(const TextBuffer& text) {
    const auto top = at(kInset);
    const auto line = m_text.lineAt(top.row.range.location);
    m_text = text;
    m_layout.setText(text);
    m_anchor = text.lineStart(std::min(line, text.lineCount() - 1));
    m_anchorTop = top.top;
    keepInside();
}

void ScrolledRows::setColumns(std::size_t columns) {
    m_layout.setColumns(columns);
    keepInside();
}

void ScrolledRows::setRowHeight(int height) {
    m_rowHeight = std::max(height, 1);
    keepInside();
}

void ScrolledRows::setViewHeight(int height) {
    m_viewHeight = std::max(height, 1);
    keepInside();
}

std::vector<ScrolledRows::Placed> ScrolledRows::visible() {
    Placed placed{.row = anchorRow(), .top = m_anchorTop};
    while (placed.top > 0) {
        const auto previous = m_layout.previous(placed.row);
        if (!previous) {
            break;
        }
        placed = {.row = *previous, .top = placed.top - m_rowHeight};
    }
    std::vector<Placed> rows;
    for (;;) {
        if (placed.top + m_rowHeight > 0) {
            rows.push_back(placed);
        }
        const auto next = m_layout.next(placed.row);
        if (!next || placed.top + m_rowHeight >= m_viewHeight) {
            break;
        }
        placed = {.row = *next, .top = placed.top + m_rowHeight};
    }
    if (rows.empty()) {
        rows.push_back(placed);
    }
    return rows;
}

ScrolledRows::Placed ScrolledRows::at(double height) {
    Placed placed{.row = anchorRow(), .top = m_anchorTop};
    while (height < placed.top) {
        const auto previous = m_layout.previous(placed.row);
        if (!previous) {
            break;
        }
        placed = {.row = *previous, .top = placed.top - m_rowHeight};
    }
    while (height >= placed.top + m_rowHeight) {
        const auto next = m_layout.next(placed.row);
        if (!next) {
            break;
        }
        placed = {.row = *next, .top = placed.top + m_rowHeight};
    }
    return placed;
}

ScrolledRows::Placed ScrolledRows::rowOf(std::size_t position) {
    const auto row = m_layout.rowAt(position);
    const auto anchor = anchorRow();
    const auto rows = static_cast<std::int64_t>(m_layout.numberOf(row)) -
                      static_cast<std::int64_t>(m_layout.numberOf(anchor));
    const auto top = std::clamp<std::int64_t>(m_anchorTop + rows * m_rowHeight, INT32_MIN / 2, INT32_MAX / 2);
    return {.row = row, .top = static_cast<int>(top)};
}

std::int64_t ScrolledRows::offset() {
    const auto row = anchorRow();
    return kInset + static_cast<std::int64_t>(m_layout.numberOf(row)) * m_rowHeight - m_anchorTop;
}

std::int64_t ScrolledRows::maximum() const {
    const auto height =
        std::int64_t{2} * kInset + static_cast<std::int64_t>(m_layout.rowCount()) * m_rowHeight;
    return std::max<std::int64_t>(height - m_viewHeight, 0);
}

void ScrolledRows::place(std::int64_t offset) {
    const auto number = std::clamp<std::int64_t>((offset - kInset) / m_rowHeight, 0,
                                                 static_cast<std::int64_t>(m_layout.rowCount()) - 1);
    m_anchor = m_layout.rowNumbered(static_cast<std::size_t>(number)).range.location;
    m_anchorTop = static_cast<int>(kInset + number * m_rowHeight - offset);
}

void ScrolledRows::keepInside() {
    // Counting the rows that come into view may move the end of the text.
    constexpr int kAttempts = 4;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        static_cast<void>(visible());
        const auto present = offset();
        const auto inside = std::clamp<std::int64_t>(present, 0, maximum());
        if (inside == present) {
            break;
        }
        place(inside);
    }
}

void ScrolledRows::scrollTo(std::int64_t offset) {
    place(std::clamp<std::int64_t>(offset, 0, maximum()));
    keepInside();
}

void ScrolledRows::show(std::size_t position, int top) {
    m_anchor = position;
    m_anchorTop = top;
    keepInside();
}

ScrolledRows::LineRows ScrolledRows::rowsOfLine(std::size_t line) {
    const auto range = m_text.lineRange(line);
    const auto first = m_layout.rowAt(range.location);
    const auto last = m_layout.rowAt(range.end());
    const auto number = m_layout.numberOf(first);
    return {.first = number, .count = m_layout.numberOf(last) - number + 1};
}

double ScrolledRows::lineAt(double height) {
    const auto placed = at(height);
    const auto line = m_text.lineAt(placed.row.range.location);
    const auto rows = rowsOfLine(line);
    const auto into =
        static_cast<double>(m_layout.numberOf(placed.row) - rows.first) + (height - placed.top) / m_rowHeight;
    return static_cast<double>(line) + std::clamp(into / static_cast<double>(rows.count), 0.0, 1.0);
}

double ScrolledRows::heightOf(double line) {
    const auto whole = std::clamp(std::floor(line), 0.0, static_cast<double>(m_text.lineCount() - 1));
    const auto rows = rowsOfLine(static_cast<std::size_t>(whole));
    const auto before = static_cast<double>(rows.first) +
                        std::clamp(line - whole, 0.0, 1.0) * static_cast<double>(rows.count);
    return kInset + before * m_rowHeight - static_cast<double>(offset());
}

void ScrolledRows::scrollToLine(double line, double height) {
    const auto last = static_cast<double>(m_text.lineCount() - 1);
    const auto whole = std::clamp(std::floor(line), 0.0, last);
    const auto rows = rowsOfLine(static_cast<std::size_t>(whole));
    const auto into = std::clamp(line - whole, 0.0, 1.0) * static_cast<double>(rows.count);
    const auto row = std::min(std::floor(into), static_cast<double>(rows.count - 1));
    const auto shown = m_layout.rowNumbered(rows.first + static_cast<std::size_t>(row));
    show(shown.range.location, static_cast<int>(std::lround(height - (into - row) * m_rowHeight)));
}

bool ScrolledRows::settle(std::chrono::steady_clock::duration budget) {
    const auto settled = m_layout.settle(budget);
    keepInside();
    return settled;
}

} // namespace tarnquill
