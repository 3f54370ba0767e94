#include "chrome/AccessibleTextView.h"

#include "chrome/TextView.h"
#include "common/TextNavigation.h"

#include <algorithm>
#include <climits>
#include <mutex>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

int offsetOf(std::size_t position) {
    return static_cast<int>(std::min<std::size_t>(position, INT_MAX));
}

// What the boundary type means around a position.
TextRange unitAt(const TextBuffer& buffer, std::size_t position, QAccessible::TextBoundaryType type) {
    switch (type) {
    case QAccessible::CharBoundary:
        return {.location = position, .length = TextNavigation::nextCharacter(buffer, position) - position};
    case QAccessible::WordBoundary:
        return TextNavigation::wordAt(buffer, position);
    case QAccessible::NoBoundary:
        return {.location = 0, .length = buffer.length()};
    default:
        // Sentences and paragraphs of code are its lines.
        return buffer.fullLineRange(buffer.lineAt(position));
    }
}

} // namespace

AccessibleTextView::AccessibleTextView(TextView* view) : QAccessibleWidget(view, QAccessible::EditableText) {}

void AccessibleTextView::install() {
    static std::once_flag installed;
    std::call_once(installed, [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* const view = qobject_cast<TextView*>(object);
            return view != nullptr ? new AccessibleTextView(view) : nullptr;
        });
    });
}

TextView& AccessibleTextView::view() const {
    return *static_cast<TextView*>(widget());
}

std::size_t AccessibleTextView::position(int offset) const {
    return std::min(static_cast<std::size_t>(std::max(offset, 0)), view().buffer().length());
}

QString AccessibleTextView::textOf(std::size_t start, std::size_t end) const {
    return QString::fromStdU16String(
        view().buffer().text({.location = start, .length = std::max(start, end) - start}));
}

void* AccessibleTextView::interface_cast(QAccessible::InterfaceType type) {
    switch (type) {
    case QAccessible::TextInterface:
        return static_cast<QAccessibleTextInterface*>(this);
    case QAccessible::EditableTextInterface:
        return view().isReadOnly() ? nullptr : static_cast<QAccessibleEditableTextInterface*>(this);
    default:
        return QAccessibleWidget::interface_cast(type);
    }
}

QAccessible::State AccessibleTextView::state() const {
    auto state = QAccessibleWidget::state();
    state.multiLine = true;
    state.selectableText = true;
    state.editable = !view().isReadOnly();
    state.readOnly = view().isReadOnly();
    return state;
}

QString AccessibleTextView::text(QAccessible::Text type) const {
    if (type == QAccessible::Value) {
        return textOf(0, view().buffer().length());
    }
    if (type == QAccessible::Description && QAccessibleWidget::text(type).isEmpty()) {
        return view().placeholderText();
    }
    return QAccessibleWidget::text(type);
}

void AccessibleTextView::selection(int selectionIndex, int* startOffset, int* endOffset) const {
    const auto range = view().selection();
    const auto any = selectionIndex == 0 && view().hasSelectedText();
    *startOffset = any ? offsetOf(range.location) : 0;
    *endOffset = any ? offsetOf(range.end()) : 0;
}

int AccessibleTextView::selectionCount() const {
    return view().hasSelectedText() ? 1 : 0;
}

void AccessibleTextView::addSelection(int startOffset, int endOffset) {
    setSelection(0, startOffset, endOffset);
}

void AccessibleTextView::removeSelection(int selectionIndex) {
    if (selectionIndex == 0) {
        view().setSelection(TextSelection::at(view().textSelection().caret));
    }
}

void AccessibleTextView::setSelection(int selectionIndex, int startOffset, int endOffset) {
    if (selectionIndex == 0) {
        view().setSelection({.anchor = position(startOffset), .caret = position(endOffset)});
    }
}

int AccessibleTextView::cursorPosition() const {
    return offsetOf(view().textSelection().caret);
}

void AccessibleTextView::setCursorPosition(int offset) {
    view().setSelection(TextSelection::at(position(offset)));
}

QString AccessibleTextView::text(int startOffset, int endOffset) const {
    return textOf(position(startOffset), position(endOffset));
}

QString AccessibleTextView::textAtOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                         int* startOffset, int* endOffset) const {
    const auto unit = unitAt(view().buffer(), position(offset), boundaryType);
    *startOffset = offsetOf(unit.location);
    *endOffset = offsetOf(unit.end());
    return textOf(unit.location, unit.end());
}

QString AccessibleTextView::textBeforeOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                             int* startOffset, int* endOffset) const {
    const auto unit = unitAt(view().buffer(), position(offset), boundaryType);
    if (unit.location == 0) {
        *startOffset = *endOffset = 0;
        return {};
    }
    return textAtOffset(offsetOf(unit.location) - 1, boundaryType, startOffset, endOffset);
}

QString AccessibleTextView::textAfterOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                            int* startOffset, int* endOffset) const {
    const auto unit = unitAt(view().buffer(), position(offset), boundaryType);
    return textAtOffset(offsetOf(unit.end()), boundaryType, startOffset, endOffset);
}

int AccessibleTextView::characterCount() const {
    return offsetOf(view().buffer().length());
}

QRect AccessibleTextView::characterRect(int offset) const {
    const auto at = position(offset);
    auto rect = view().caretRect(at);
    const auto next = view().caretRect(TextNavigation::nextCharacter(view().buffer(), at));
    if (next.top() == rect.top() && next.left() > rect.left()) {
        rect.setRight(next.left());
    }
    const auto* const viewport = view().viewport();
    return {viewport->mapToGlobal(rect.topLeft()).toPoint(), rect.size().toSize()};
}

int AccessibleTextView::offsetAtPoint(const QPoint& point) const {
    return offsetOf(view().positionAt(view().viewport()->mapFromGlobal(QPointF(point))));
}

void AccessibleTextView::scrollToSubstring(int startIndex, int /*endIndex*/) {
    const auto line = view().buffer().lineAt(position(startIndex));
    view().scrollToLine(static_cast<double>(line), ScrolledRows::kInset);
}

QString AccessibleTextView::attributes(int /*offset*/, int* startOffset, int* endOffset) const {
    *startOffset = 0;
    *endOffset = characterCount();
    return {};
}

void AccessibleTextView::deleteText(int startOffset, int endOffset) {
    replaceText(startOffset, endOffset, {});
}

void AccessibleTextView::insertText(int offset, const QString& text) {
    replaceText(offset, offset, text);
}

void AccessibleTextView::replaceText(int startOffset, int endOffset, const QString& text) {
    const auto first = position(std::min(startOffset, endOffset));
    const auto last = position(std::max(startOffset, endOffset));
    view().replace({.location = first, .length = last - first}, text.toStdU16String());
}

} // namespace tarnquill
