// What a text view does with the mouse: selecting, dragging what is selected, zooming, and the context menu.
#include "chrome/TextMimeData.h"
#include "chrome/TextView.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDrag>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QStyleHints>
#include <QTimerEvent>
#include <QWheelEvent>

#include <cmath>
#include <cstdlib>

namespace tarnquill {

namespace {

constexpr int kAutoScrollInterval = 30;
constexpr int kWheelStep = 120;

} // namespace

bool TextView::isSelectedAt(QPointF point) const {
    if (m_selection.isEmpty() || point.x() < gutterWidth()) {
        return false;
    }
    const auto position = positionAt(point);
    const auto range = m_selection.range();
    // The position nearest to the mouse may be on either side of it.
    const auto isBehind = point.x() >= caretRect(position).left();
    return isBehind ? position >= range.location && position < range.end()
                    : position > range.location && position <= range.end();
}

void TextView::mousePressEvent(QMouseEvent* event) {
    const auto point = event->position();
    if (event->button() == Qt::MiddleButton) {
        auto* const clipboard = QApplication::clipboard();
        if (!m_readOnly && clipboard->supportsSelection()) {
            setSelection(TextSelection::at(positionAt(point)));
            edit(selection(), clipboard->text(QClipboard::Selection).toStdU16String());
        }
        return;
    }
    if (event->button() != Qt::LeftButton) {
        QAbstractScrollArea::mousePressEvent(event);
        return;
    }
    QGuiApplication::inputMethod()->commit();
    m_pressed = point;
    m_pointer = point;
    const auto clicksAgain =
        m_doubleClicked.isValid() &&
        !m_doubleClicked.hasExpired(QGuiApplication::styleHints()->mouseDoubleClickInterval()) &&
        (point - m_doubleClickPoint).manhattanLength() < QApplication::startDragDistance();
    m_doubleClicked.invalidate();
    const auto position = positionAt(point);
    const auto extends = event->modifiers().testFlag(Qt::ShiftModifier);
    if (!clicksAgain && !extends && isSelectedAt(point)) {
        m_mayDrag = true;
        return;
    }
    if (clicksAgain || (point.x() < gutterWidth() && !extends)) {
        m_gesture.begin(buffer(), SelectionGesture::Unit::line, position);
    } else if (extends) {
        m_gesture.resume(m_selection);
    } else {
        m_gesture.begin(buffer(), SelectionGesture::Unit::character, position);
    }
    m_selecting = true;
    setSelection(m_gesture.to(buffer(), position));
}

void TextView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || event->position().x() < gutterWidth()) {
        mousePressEvent(event);
        return;
    }
    m_doubleClicked.start();
    m_doubleClickPoint = event->position();
    const auto position = positionAt(event->position());
    m_gesture.begin(buffer(), SelectionGesture::Unit::word, position);
    m_selecting = true;
    m_mayDrag = false;
    setSelection(m_gesture.to(buffer(), position));
}

void TextView::mouseMoveEvent(QMouseEvent* event) {
    m_pointer = event->position();
    if (m_mayDrag) {
        if ((m_pointer - m_pressed).manhattanLength() >= QApplication::startDragDistance()) {
            startDrag();
        }
        return;
    }
    if (!m_selecting) {
        viewport()->setCursor(m_pointer.x() < gutterWidth() || isSelectedAt(m_pointer) ? Qt::ArrowCursor
                                                                                       : Qt::IBeamCursor);
        return;
    }
    const auto inside = viewport()->rect().contains(m_pointer.toPoint());
    if (inside) {
        m_autoScroll.stop();
    } else if (!m_autoScroll.isActive()) {
        m_autoScroll.start(kAutoScrollInterval, this);
    }
    setSelection(m_gesture.to(buffer(), positionAt(m_pointer)));
}

void TextView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_autoScroll.timerId()) {
        QAbstractScrollArea::timerEvent(event);
        return;
    }
    // The farther outside, the faster.
    const auto beyond = [](double value, int length) {
        return static_cast<int>(value < 0 ? value : value > length ? value - length : 0);
    };
    verticalScrollBar()->setValue(verticalScrollBar()->value() + beyond(m_pointer.y(), viewport()->height()));
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() +
                                    beyond(m_pointer.x(), viewport()->width()));
    setSelection(m_gesture.to(buffer(), positionAt(m_pointer)));
}

void TextView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        QAbstractScrollArea::mouseReleaseEvent(event);
        return;
    }
    if (m_mayDrag) {
        // What looked like the start of a drag was a click.
        m_mayDrag = false;
        setSelection(TextSelection::at(positionAt(event->position())));
    }
    m_autoScroll.stop();
    if (std::exchange(m_selecting, false)) {
        offerSelection();
    }
}

// Where the platform pastes what is selected with the middle button.
void TextView::offerSelection() {
    auto* const clipboard = QApplication::clipboard();
    if (clipboard->supportsSelection() && !m_selection.isEmpty()) {
        clipboard->setMimeData(new TextMimeData(buffer(), m_selection.range()), QClipboard::Selection);
    }
}

void TextView::startDrag() {
    m_mayDrag = false;
    m_dragging = true;
    const QPointer<TextView> self(this);
    auto* const drag = new QDrag(this);
    drag->setMimeData(new TextMimeData(buffer(), m_selection.range()));
    const auto actions = m_readOnly ? Qt::CopyAction : Qt::CopyAction | Qt::MoveAction;
    const auto action = drag->exec(actions, m_readOnly ? Qt::CopyAction : Qt::MoveAction);
    if (!self) {
        return;
    }
    // A drop into this view has ended the drag itself.
    if (std::exchange(m_dragging, false) && action == Qt::MoveAction) {
        deleteSelection();
    }
}

void TextView::dropOwnDrag(std::size_t position, bool moves) {
    m_dragging = false;
    const auto range = m_selection.range();
    const auto text = buffer().text(range);
    if (!moves) {
        edit({.location = position, .length = 0}, text, {.anchor = position, .caret = position + text.size()},
             UndoHistory::Edit::other);
        return;
    }
    if (position >= range.location && position <= range.end()) {
        return;
    }
    // One edit from the selection to where it goes, so that it is one step to undo.
    if (position < range.location) {
        const TextRange between{.location = position, .length = range.location - position};
        edit({.location = position, .length = range.end() - position}, text + buffer().text(between),
             {.anchor = position, .caret = position + text.size()}, UndoHistory::Edit::other);
    } else {
        const TextRange between{.location = range.end(), .length = position - range.end()};
        edit({.location = range.location, .length = position - range.location}, buffer().text(between) + text,
             {.anchor = position - text.size(), .caret = position}, UndoHistory::Edit::other);
    }
}

void TextView::setDropPosition(std::optional<std::size_t> position) {
    m_dropPosition = position;
    viewport()->update();
}

void TextView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    m_wheel += event->angleDelta().y();
    const auto steps = m_wheel / kWheelStep;
    m_wheel -= steps * kWheelStep;
    setZoom(m_zoom + steps);
    event->accept();
}

void TextView::contextMenuEvent(QContextMenuEvent* event) {
    const auto fromKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    if (!fromKeyboard && !isSelectedAt(event->pos())) {
        setSelection(TextSelection::at(positionAt(event->pos())));
    }
    QMenu menu(this);
    const auto add = [&](const QString& title, auto key, void (TextView::*slot)(), bool enabled) {
        auto* const action = menu.addAction(title, this, slot);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setEnabled(enabled);
    };
    const auto* const held = QApplication::clipboard()->mimeData();
    const auto selected = hasSelectedText();
    if (!m_readOnly) {
        add(tr("Undo"), QKeySequence::Undo, &TextView::undo, m_history.canUndo());
        add(tr("Redo"), QKeySequence::Redo, &TextView::redo, m_history.canRedo());
        menu.addSeparator();
        add(tr("Cut"), QKeySequence::Cut, &TextView::cut, selected);
    }
    add(tr("Copy"), QKeySequence::Copy, &TextView::copy, selected);
    if (!m_readOnly) {
        add(tr("Paste"), QKeySequence::Paste, &TextView::paste, held != nullptr && held->hasText());
        add(tr("Delete"), QKeySequence::Delete, &TextView::deleteSelection, selected);
    }
    menu.addSeparator();
    add(tr("Select All"), QKeySequence::SelectAll, &TextView::selectAll, !buffer().isEmpty());
    menu.exec(fromKeyboard ? viewport()->mapToGlobal(caretRect(m_selection.caret).bottomLeft().toPoint())
                           : event->globalPos());
}

} // namespace tarnquill
