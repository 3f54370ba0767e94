// A text's rows as a view of some height shows them. What is held on to is the text at the view's top, so
// that nothing on the screen moves when rows in front of it are counted, wrapped anew or edited.
#pragma once

#include "common/RowLayout.h"

#include <cstdint>
#include <vector>

namespace tarnquill {

// Heights count logical pixels from the view's top, offsets from the top of the whole text.
class ScrolledRows {
public:
    // Room above the first row and below the last one.
    static constexpr int kInset = 12;

    struct Placed {
        RowLayout::Row row;
        int top = 0;
    };

    [[nodiscard]] const TextBuffer& text() const { return m_text; }
    // Holds on to the text at the top through the change.
    void setText(const TextBuffer& text, const TextChange& change);
    // Holds on to the number of the line at the top.
    void setOtherText(const TextBuffer& text);

    void setColumns(std::size_t columns);
    void setRowHeight(int height);
    void setViewHeight(int height);
    [[nodiscard]] int rowHeight() const { return m_rowHeight; }

    [[nodiscard]] RowLayout& layout() { return m_layout; }

    // The rows of which at least a part is in view, from the top; never none.
    [[nodiscard]] std::vector<Placed> visible();
    // The row at that height, or the nearest one.
    [[nodiscard]] Placed at(double height);
    // The row that holds the position, wherever it is.
    [[nodiscard]] Placed rowOf(std::size_t position);

    // How far the view is scrolled, between 0 and maximum(). Both are estimates while rows are uncounted.
    [[nodiscard]] std::int64_t offset();
    [[nodiscard]] std::int64_t maximum() const;
    void scrollTo(std::int64_t offset);
    // Scrolls so that the row of that position has its top there, as far as the ends of the text allow.
    void show(std::size_t position, int top);

    // Lines as numbers with a fraction: 2.5 is the middle of the third line, however many rows it has.
    [[nodiscard]] double lineAt(double height);
    [[nodiscard]] double heightOf(double line);
    void scrollToLine(double line, double height);

    // Counts rows for about as long as told. Returns whether all are counted.
    bool settle(std::chrono::steady_clock::duration budget);

private:
    struct LineRows {
        std::size_t first = 0; // number of its first row
        std::size_t count = 0;
    };

    [[nodiscard]] RowLayout::Row anchorRow() { return m_layout.rowAt(m_anchor); }
    [[nodiscard]] LineRows rowsOfLine(std::size_t line);
    void place(std::int64_t offset);
    void keepInside();

    TextBuffer m_text;
    RowLayout m_layout;
    int m_rowHeight = 1;
    int m_viewHeight = 1;

    // The row that holds this position has its top at that height.
    std::size_t m_anchor = 0;
    int m_anchorTop = kInset;
};

} // namespace tarnquill
