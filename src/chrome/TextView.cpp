#include "chrome/TextView.h"

#include "chrome/AccessibleTextView.h"
#include "chrome/EditorOptions.h"
#include "chrome/Theme.h"
#include "common/TextNavigation.h"

#include <QAccessible>
#include <QEvent>
#include <QFontMetricsF>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace tarnquill {

namespace {

// How long rows are counted between two events.
constexpr std::chrono::milliseconds kSlice{3};

// Narrower views cut rows off instead of breaking text into a column of characters.
constexpr std::size_t kFewestColumns = 12;
// In these lines break even where they are not wrapped: laying out a row costs time in proportion to its
// length.
constexpr std::size_t kUnwrappedColumns = 1000;

constexpr int kSmallestType = 8;
constexpr int kLargestType = 48;

} // namespace

TextView::TextView(QWidget* parent) : QAbstractScrollArea(parent) {
    AccessibleTextView::install();
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    viewport()->setCursor(Qt::IBeamCursor);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_settle.setSingleShot(true);
    connect(&m_settle, &QTimer::timeout, this, &TextView::settleRows);
    connect(&m_blink, &CaretBlink::blinked, this, &TextView::updateCaret);
    connect(&Theme::instance(), &Theme::changed, viewport(), qOverload<>(&QWidget::update));
    connect(&EditorOptions::instance(), &EditorOptions::changed, this, &TextView::updateFont);
    updateFont();
}

// --- text and selection
// ---------------------------------------------------------------------------------------------

void TextView::setBuffer(const TextBuffer& buffer) {
    m_history.clear();
    if (buffer.isSharedWith(this->buffer())) {
        return;
    }
    const auto before = this->buffer();
    const auto change = TextBuffer::difference(before, buffer);
    m_composition = {};
    m_rows.setOtherText(buffer);
    const auto position = std::min(m_selection.caret, buffer.length());
    m_selection = valid(TextSelection::at(position));
    bufferChanged(change);
    tellOfChange(before, change);
    updateScrollBars();
    viewport()->update();
    Q_EMIT selectionChanged();
    Q_EMIT scrolled();
}

void TextView::replaceAll(const TextBuffer& buffer) {
    if (buffer.isSharedWith(this->buffer())) {
        return;
    }
    m_history.record(state(), UndoHistory::Edit::other);
    present(buffer, TextBuffer::difference(this->buffer(), buffer), TextSelection::at(0));
    Q_EMIT selectionChanged();
}

void TextView::replace(TextRange range, std::u16string_view text) {
    if (!m_readOnly) {
        edit(range, text);
    }
}

void TextView::edit(TextRange range, std::u16string_view text, UndoHistory::Edit kind) {
    edit(range, text, TextSelection::at(range.location + text.size()), kind);
}

void TextView::edit(TextRange range, std::u16string_view text, TextSelection selection,
                    UndoHistory::Edit kind) {
    Q_ASSERT(!m_readOnly);
    if (range.length == 0 && text.empty()) {
        return;
    }
    m_history.record(state(), kind);
    auto changed = buffer();
    changed.replace(range, text);
    present(changed, {.location = range.location, .removed = range.length, .inserted = text.size()},
            selection);
    Q_EMIT textEdited();
    Q_EMIT selectionChanged();
}

void TextView::present(const TextBuffer& buffer, const TextChange& change, TextSelection selection) {
    const auto before = this->buffer();
    m_rows.setText(buffer, change);
    m_selection = valid(selection);
    m_composition = {};
    m_wantedX.reset();
    bufferChanged(change);
    tellOfChange(before, change);
    updateScrollBars();
    scrollToCaret();
    m_blink.stir();
    viewport()->update();
    updateMicroFocus();
}

void TextView::tellOfChange(const TextBuffer& before, const TextChange& change) {
    if (!QAccessible::isActive()) {
        return;
    }
    // Nobody listens to more than that.
    constexpr std::size_t kTold = 4096;
    const auto told = [&](const TextBuffer& text, std::size_t length) {
        return QString::fromStdU16String(
            text.text({.location = change.location, .length = std::min(length, kTold)}));
    };
    QAccessibleTextUpdateEvent event(this, static_cast<int>(change.location), told(before, change.removed),
                                     told(buffer(), change.inserted));
    event.setCursorPosition(static_cast<int>(m_selection.caret));
    QAccessible::updateAccessibility(&event);
}

void TextView::goTo(const std::optional<UndoHistory::State>& state) {
    if (state) {
        present(state->text, TextBuffer::difference(buffer(), state->text), state->selection);
        Q_EMIT textEdited();
        Q_EMIT selectionChanged();
    }
}

void TextView::undo() {
    if (!m_readOnly) {
        goTo(m_history.undo(state()));
    }
}

void TextView::redo() {
    if (!m_readOnly) {
        goTo(m_history.redo(state()));
    }
}

TextSelection TextView::valid(TextSelection selection) const {
    const auto& text = buffer();
    return {.anchor = TextNavigation::characterStart(text, std::min(selection.anchor, text.length())),
            .caret = TextNavigation::characterStart(text, std::min(selection.caret, text.length()))};
}

void TextView::setSelection(TextSelection selection) {
    m_wantedX.reset();
    select(selection);
}

void TextView::select(TextSelection selection) {
    selection = valid(selection);
    m_history.endStep();
    m_blink.stir();
    if (selection == m_selection) {
        return;
    }
    m_selection = selection;
    viewport()->update();
    updateMicroFocus();
    if (QAccessible::isActive()) {
        const auto range = m_selection.range();
        QAccessibleTextSelectionEvent event(this, static_cast<int>(range.location),
                                            static_cast<int>(range.end()));
        event.setCursorPosition(static_cast<int>(m_selection.caret));
        QAccessible::updateAccessibility(&event);
    }
    Q_EMIT selectionChanged();
}

void TextView::selectAll() {
    setSelection({.anchor = 0, .caret = buffer().length()});
}

void TextView::reveal(TextRange range) {
    const auto location = std::min(range.location, buffer().length());
    const auto end = std::min(range.end(), buffer().length());
    setSelection({.anchor = location, .caret = end});
    // What is out of sight comes to stand in the upper third, where what follows can be read too.
    const auto top = m_rows.rowOf(m_selection.range().location).top;
    const auto bottom = m_rows.rowOf(m_selection.range().end()).top + m_rows.rowHeight();
    if (top < 0 || bottom > viewport()->height()) {
        m_rows.show(m_selection.range().location, viewport()->height() / 3);
        updateScrollBars();
        Q_EMIT scrolled();
    }
    if (!m_wraps) {
        scrollToCaret();
    }
}

void TextView::setReadOnly(bool readOnly) {
    m_readOnly = readOnly;
    setAttribute(Qt::WA_InputMethodEnabled, !readOnly);
}

void TextView::setPlaceholderText(const QString& text) {
    m_placeholder = text;
    viewport()->update();
}

// --- layout and scrolling
// -------------------------------------------------------------------------------------------

QFont TextView::zoomed(const QFont& themeFont) const {
    auto font = EditorOptions::instance().applied(themeFont);
    font.setPixelSize(std::clamp(font.pixelSize() + m_zoom, kSmallestType, kLargestType));
    return font;
}

void TextView::setZoom(int steps) {
    const auto size = EditorOptions::instance().fontSize();
    steps = std::clamp(steps, kSmallestType - size, kLargestType - size);
    if (steps == m_zoom) {
        return;
    }
    m_zoom = steps;
    updateFont();
    Q_EMIT zoomChanged(m_zoom);
}

void TextView::updateFont() {
    m_font = zoomed(Theme::instance().font(FontRole::editor));
    const QFontMetricsF metrics(m_font);
    m_cellWidth = metrics.horizontalAdvance(u'0');
    m_rows.setRowHeight(static_cast<int>(std::ceil(metrics.ascent()) + std::ceil(metrics.descent())));
    updateColumns();
    viewport()->update();
}

int TextView::textLeft() const {
    const auto gutter = gutterWidth();
    return (gutter > 0 ? gutter : ScrolledRows::kInset) - horizontalScrollBar()->value();
}

void TextView::updateColumns() {
    const auto before = columns();
    if (m_wraps) {
        // The place of the scroll bar is left free even while there is none: its coming and going breaks no
        // line anew.
        const auto left = textLeft() + horizontalScrollBar()->value();
        const auto right = std::max(ScrolledRows::kInset, style()->pixelMetric(QStyle::PM_ScrollBarExtent));
        const auto fitting = std::floor((width() - left - right) / m_cellWidth);
        m_rows.setColumns(std::max(kFewestColumns, static_cast<std::size_t>(std::max(fitting, 0.0))));
    } else {
        m_rows.setColumns(kUnwrappedColumns);
    }
    m_rows.setViewHeight(viewport()->height());
    updateScrollBars();
    viewport()->update();
    if (columns() != before) {
        Q_EMIT columnsChanged(columns());
    }
}

void TextView::setWrapsLines(bool wraps) {
    m_wraps = wraps;
    setHorizontalScrollBarPolicy(wraps ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    updateColumns();
}

void TextView::updateScrollBars() {
    const QScopedValueRollback updating(m_updatingScrollBars, true);
    auto& vertical = *verticalScrollBar();
    vertical.setRange(0, static_cast<int>(std::min<std::int64_t>(m_rows.maximum(), INT_MAX)));
    vertical.setPageStep(viewport()->height());
    vertical.setSingleStep(m_rows.rowHeight());
    vertical.setValue(static_cast<int>(std::min<std::int64_t>(m_rows.offset(), INT_MAX)));
    auto& horizontal = *horizontalScrollBar();
    const auto left = textLeft() + horizontal.value();
    const auto widest = static_cast<double>(m_rows.layout().widest()) * m_cellWidth;
    const auto width = left + ScrolledRows::kInset + static_cast<int>(std::ceil(widest));
    horizontal.setRange(0, m_wraps ? 0 : std::max(width - viewport()->width(), 0));
    horizontal.setPageStep(viewport()->width());
    horizontal.setSingleStep(static_cast<int>(std::ceil(m_cellWidth)));
    if (!m_rows.layout().isSettled() && !m_settle.isActive()) {
        m_settle.start(0);
    }
}

void TextView::settleRows() {
    m_rows.settle(kSlice);
    updateScrollBars();
}

void TextView::scrollContentsBy(int /*dx*/, int dy) {
    if (m_updatingScrollBars) {
        return; // The bars follow the view, not the other way round.
    }
    if (dy != 0) {
        m_rows.scrollTo(verticalScrollBar()->value());
        updateScrollBars();
    }
    viewport()->update();
    Q_EMIT scrolled();
}

void TextView::resizeEvent(QResizeEvent* /*event*/) {
    updateColumns();
}

void TextView::scrollToCaret() {
    const auto placed = m_rows.rowOf(m_selection.caret);
    const auto lowest = viewport()->height() - ScrolledRows::kInset - m_rows.rowHeight();
    auto top = placed.top;
    if (top > lowest) {
        top = lowest;
    }
    top = std::max(top, std::min(ScrolledRows::kInset, std::max(lowest, 0)));
    const auto moves = top != placed.top;
    if (moves) {
        m_rows.show(m_selection.caret, top);
        updateScrollBars();
    }
    if (!m_wraps) {
        const auto caret = caretRect(m_selection.caret);
        auto& bar = *horizontalScrollBar();
        const auto left = gutterWidth() + ScrolledRows::kInset;
        const auto right = viewport()->width() - 2 * ScrolledRows::kInset;
        if (caret.left() < left) {
            bar.setValue(bar.value() - static_cast<int>(std::ceil(left - caret.left())));
        } else if (caret.right() > right) {
            bar.setValue(bar.value() + static_cast<int>(std::ceil(caret.right() - right)));
        }
    }
    if (moves) {
        viewport()->update();
        Q_EMIT scrolled();
    }
}

double TextView::lineAt(double height) const {
    return m_rows.lineAt(height);
}

double TextView::heightOf(double line) const {
    return m_rows.heightOf(line);
}

void TextView::scrollToLine(double line, double height) {
    const auto before = m_rows.offset();
    m_rows.scrollToLine(line, height);
    if (m_rows.offset() != before) {
        updateScrollBars();
        viewport()->update();
        Q_EMIT scrolled();
    }
}

std::size_t TextView::positionAt(QPointF point) const {
    return positionInRow(m_rows.at(point.y()).row, point.x());
}

std::size_t TextView::positionInRow(const RowLayout::Row& row, double x) const {
    const auto text = rowText(row, {});
    auto position = row.range.location + text.offsetAt(x - rowLeft(text));
    if (position == row.range.end() && !row.endsLine && row.range.length > 0) {
        // Behind its last character a broken row has no place of its own: that is where the next one begins.
        position = TextNavigation::previousCharacter(buffer(), position);
    }
    return TextNavigation::characterStart(buffer(), position);
}

QRectF TextView::caretRect(std::size_t position) const {
    const auto placed = m_rows.rowOf(position);
    const auto x = caretX(placed.row, rowText(placed.row, {}), position);
    return {x, static_cast<double>(placed.top),
            static_cast<double>(style()->pixelMetric(QStyle::PM_TextCursorWidth)),
            static_cast<double>(m_rows.rowHeight())};
}

QSize TextView::sizeHint() const {
    return {static_cast<int>(40 * m_cellWidth), 12 * m_rows.rowHeight()};
}

QSize TextView::minimumSizeHint() const {
    return {gutterWidth() + static_cast<int>(8 * m_cellWidth), 3 * m_rows.rowHeight()};
}

void TextView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::StyleChange) {
        updateColumns();
    }
}

} // namespace tarnquill
