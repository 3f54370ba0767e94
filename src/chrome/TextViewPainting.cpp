// How a text view paints: row by row, and only the rows that are to be painted anew.
#include "chrome/TextView.h"

#include "chrome/Theme.h"
#include "common/TextCells.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace tarnquill {

namespace {

// The part of a range that lies in the row, from the row's start on; nothing when there is none.
std::optional<TextRange> inRow(TextRange range, TextRange row) {
    const auto start = std::max(range.location, row.location);
    const auto end = std::min(range.end(), row.end());
    if (start >= end) {
        return std::nullopt;
    }
    return TextRange{.location = start - row.location, .length = end - start};
}

void paintWave(QPainter& painter, const QRectF& rect, const QColor& color) {
    constexpr double kHeight = 2;
    constexpr double kStep = 2;
    const auto low = rect.bottom() - 1;
    QPainterPath path({rect.left(), low});
    auto up = true;
    for (auto x = rect.left() + kStep; x <= rect.right() + kStep / 2; x += kStep) {
        path.lineTo(x, up ? low - kHeight : low);
        up = !up;
    }
    painter.setPen(QPen(color, 1.2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
}

} // namespace

TextView::RowLook TextView::rowLook(const RowLayout::Row& /*row*/) {
    return {};
}

void TextView::paintGutter(QPainter& /*painter*/, const RowLayout::Row& /*row*/, const QRect& /*rect*/) {}

RowText TextView::rowText(const RowLayout::Row& row, const RowText::Formats& formats) const {
    std::u16string scratch;
    const auto text = buffer().view(row.range, scratch);
    RowText::Preedit preedit;
    if (!m_composition.text.isEmpty() && m_rows.rowOf(m_selection.caret).row == row) {
        preedit = {.offset = m_selection.caret - row.range.location,
                   .text = m_composition.text,
                   .formats = m_composition.formats};
    }
    QTextCharFormat standIn;
    standIn.setForeground(themeColor(ColorRole::warnText));
    standIn.setBackground(themeColor(ColorRole::warnTint));
    return {text, m_font, static_cast<double>(TextCells::kTabStop) * m_cellWidth, formats, standIn, preedit};
}

double TextView::caretX(const RowLayout::Row& row, const RowText& text, std::size_t position) const {
    const auto composing = text.isComposing() && position == m_selection.caret;
    return rowLeft(text) +
           (composing ? text.xInPreedit(m_composition.caret) : text.xAt(position - row.range.location));
}

// While text is composed at its end, a row moves aside rather than run out of view.
double TextView::rowLeft(const RowText& text) const {
    if (!text.isComposing()) {
        return textLeft();
    }
    const auto room = viewport()->width() - ScrolledRows::kInset;
    return std::min<double>(textLeft(), room - text.xInPreedit(static_cast<int>(m_composition.text.size())));
}

void TextView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), themeColor(ColorRole::background));
    if (buffer().isEmpty() && m_composition.text.isEmpty() && !m_placeholder.isEmpty()) {
        painter.setFont(m_font);
        painter.setPen(themeColor(ColorRole::faint));
        const auto area =
            viewport()->rect().adjusted(textLeft(), ScrolledRows::kInset, -ScrolledRows::kInset, 0);
        painter.drawText(area, Qt::TextWordWrap, m_placeholder);
    }
    for (const auto& placed : m_rows.visible()) {
        const QRect rect(0, placed.top, viewport()->width(), m_rows.rowHeight());
        if (rect.intersects(event->rect())) {
            paintRow(painter, placed);
        }
    }
}

void TextView::paintRow(QPainter& painter, const ScrolledRows::Placed& placed) {
    const auto& row = placed.row;
    const auto gutter = gutterWidth();
    const QRect rect(0, placed.top, viewport()->width(), m_rows.rowHeight());
    const auto look = rowLook(row);
    if (look.background.isValid()) {
        painter.fillRect(rect, look.background);
    }
    const auto text = rowText(row, look.formats);
    const auto left = rowLeft(text);
    const auto rectOf = [&](const RowText::Span& span) {
        return QRectF(left + span.left, rect.top(), span.right - span.left, rect.height());
    };

    painter.save();
    painter.setClipRect(rect.adjusted(gutter, 0, 0, 0));
    const auto selected = m_selection.range();
    if (const auto part = inRow(selected, row.range)) {
        for (const auto& span : text.spans(*part)) {
            painter.fillRect(rectOf(span), themeColor(ColorRole::textSelection));
        }
    }
    if (row.endsLine && selected.location <= row.range.end() && selected.end() > row.range.end()) {
        // A selected line feed shows as half a cell.
        const auto end = text.xAt(row.range.length);
        painter.fillRect(rectOf({.left = end, .right = end + m_cellWidth / 2}),
                         themeColor(ColorRole::textSelection));
    }
    for (const auto& mark : look.marks) {
        if (const auto part = inRow(mark.range, row.range)) {
            for (const auto& span : text.spans(*part)) {
                paintMark(painter, rectOf(span), mark);
            }
        }
    }
    painter.setPen(themeColor(ColorRole::text));
    text.draw(painter, {left, static_cast<double>(rect.top())});

    const auto holdsCaret = [&](std::size_t position) { return m_rows.rowOf(position).row == row; };
    if (m_blink.isVisible() && m_composition.caretShown && holdsCaret(m_selection.caret)) {
        painter.fillRect(caretIn(rect, caretX(row, text, m_selection.caret)), themeColor(ColorRole::text));
    }
    if (m_dropPosition && holdsCaret(*m_dropPosition)) {
        const auto x = left + text.xAt(*m_dropPosition - row.range.location);
        painter.fillRect(caretIn(rect, x), themeColor(ColorRole::accent));
    }
    painter.restore();
    if (gutter > 0) {
        paintGutter(painter, row, QRect(0, rect.top(), gutter, rect.height()));
    }
}

void TextView::paintMark(QPainter& painter, const QRectF& rect, const Mark& mark) const {
    constexpr double kRadius = 2;
    const auto box = rect.adjusted(0, 1, 0, -1);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (mark.fill.isValid()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(mark.fill);
        painter.drawRoundedRect(box, kRadius, kRadius);
    }
    if (mark.border.isValid()) {
        painter.setPen(mark.border);
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    }
    if (mark.wave.isValid()) {
        paintWave(painter, rect, mark.wave);
    }
    painter.restore();
}

QRect TextView::caretIn(const QRect& row, double x) const {
    const auto width = style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this);
    return {static_cast<int>(std::round(x)), row.top(), width, row.height()};
}

void TextView::updateCaret() {
    const auto placed = m_rows.rowOf(m_selection.caret);
    viewport()->update(0, placed.top, viewport()->width(), m_rows.rowHeight());
}

} // namespace tarnquill
