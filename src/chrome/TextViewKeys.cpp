// What a text view does with keys and the clipboard.
#include "chrome/TextMimeData.h"
#include "chrome/TextView.h"

#include "chrome/Theme.h"
#include "common/TextNavigation.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <utility>

namespace tarnquill {

namespace {

constexpr std::array kEditingKeys{QKeySequence::Undo,
                                  QKeySequence::Redo,
                                  QKeySequence::Cut,
                                  QKeySequence::Paste,
                                  QKeySequence::Delete,
                                  QKeySequence::Backspace,
                                  QKeySequence::DeleteStartOfWord,
                                  QKeySequence::DeleteEndOfWord,
                                  QKeySequence::DeleteEndOfLine,
                                  QKeySequence::DeleteCompleteLine};
constexpr std::array kReadingKeys{QKeySequence::Copy,
                                  QKeySequence::SelectAll,
                                  QKeySequence::MoveToNextChar,
                                  QKeySequence::MoveToPreviousChar,
                                  QKeySequence::MoveToNextWord,
                                  QKeySequence::MoveToPreviousWord,
                                  QKeySequence::MoveToStartOfDocument,
                                  QKeySequence::MoveToEndOfDocument,
                                  QKeySequence::SelectNextChar,
                                  QKeySequence::SelectPreviousChar,
                                  QKeySequence::SelectNextWord,
                                  QKeySequence::SelectPreviousWord,
                                  QKeySequence::SelectStartOfDocument,
                                  QKeySequence::SelectEndOfDocument};

bool matchesAny(const QKeyEvent& event, const auto& keys) {
    return std::ranges::any_of(keys, [&](auto key) { return event.matches(key); });
}

// Whether the key types its text, rather than being one of a command.
bool typesText(const QKeyEvent& event) {
    const auto text = event.text();
    if (text.isEmpty()) {
        return false;
    }
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ControlModifier || modifiers == (Qt::ShiftModifier | Qt::ControlModifier)) {
        return false;
    }
    const auto first = text.front();
    return first.isPrint() || first.category() == QChar::Other_PrivateUse ||
           first.category() == QChar::Other_Format || first.isSurrogate();
}

} // namespace

bool TextView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // Keys that mean something to the text are not for the window's commands.
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (matchesAny(key, kReadingKeys) ||
            (!m_readOnly && (matchesAny(key, kEditingKeys) || typesText(key)))) {
            event->accept();
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

bool TextView::focusNextPrevChild(bool next) {
    // Tab comes in as a key, unless there is nothing that it could be typed into.
    return m_readOnly && QAbstractScrollArea::focusNextPrevChild(next);
}

void TextView::keyPressEvent(QKeyEvent* event) {
    const auto isTab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (isTab && event->modifiers().testFlag(Qt::ControlModifier)) {
        const auto back = event->key() == Qt::Key_Backtab || event->modifiers().testFlag(Qt::ShiftModifier);
        QAbstractScrollArea::focusNextPrevChild(!back);
        return;
    }
    if (handleMove(*event) || handleCommand(*event) || (!m_readOnly && handleEditing(*event))) {
        event->accept();
    } else {
        event->ignore();
    }
}

bool TextView::handleMove(const QKeyEvent& event) {
    const auto caret = m_selection.caret;
    const auto& text = buffer();
    const auto line = text.lineAt(caret);
    const auto page = std::max(viewport()->height() / m_rows.rowHeight() - 1, 1);
    const auto move = [&](QKeySequence::StandardKey moving, QKeySequence::StandardKey selecting,
                          auto target) {
        if (!event.matches(moving) && !event.matches(selecting)) {
            return false;
        }
        moveCaret(target(), event.matches(selecting));
        return true;
    };
    const auto moveRows = [&](QKeySequence::StandardKey moving, QKeySequence::StandardKey selecting,
                              int rows) {
        if (!event.matches(moving) && !event.matches(selecting)) {
            return false;
        }
        moveByRows(rows, event.matches(selecting));
        return true;
    };
    const auto selected = m_selection.range();
    using Key = QKeySequence;
    return move(Key::MoveToNextChar, Key::SelectNextChar,
                [&] {
                    const auto leaves = !m_selection.isEmpty() && !event.matches(Key::SelectNextChar);
                    return leaves ? selected.end() : TextNavigation::nextCharacter(text, caret);
                }) ||
           move(Key::MoveToPreviousChar, Key::SelectPreviousChar,
                [&] {
                    const auto leaves = !m_selection.isEmpty() && !event.matches(Key::SelectPreviousChar);
                    return leaves ? selected.location : TextNavigation::previousCharacter(text, caret);
                }) ||
           move(Key::MoveToNextWord, Key::SelectNextWord,
                [&] { return TextNavigation::nextWord(text, caret); }) ||
           move(Key::MoveToPreviousWord, Key::SelectPreviousWord,
                [&] { return TextNavigation::previousWord(text, caret); }) ||
           move(Key::MoveToStartOfLine, Key::SelectStartOfLine, [&] { return rowStart(); }) ||
           move(Key::MoveToEndOfLine, Key::SelectEndOfLine, [&] { return rowEnd(); }) ||
           move(Key::MoveToStartOfBlock, Key::SelectStartOfBlock, [&] { return text.lineStart(line); }) ||
           move(Key::MoveToEndOfBlock, Key::SelectEndOfBlock,
                [&] { return TextNavigation::lineEnd(text, line); }) ||
           move(Key::MoveToStartOfDocument, Key::SelectStartOfDocument, [] { return std::size_t{0}; }) ||
           move(Key::MoveToEndOfDocument, Key::SelectEndOfDocument, [&] { return text.length(); }) ||
           moveRows(Key::MoveToNextLine, Key::SelectNextLine, 1) ||
           moveRows(Key::MoveToPreviousLine, Key::SelectPreviousLine, -1) ||
           moveRows(Key::MoveToNextPage, Key::SelectNextPage, page) ||
           moveRows(Key::MoveToPreviousPage, Key::SelectPreviousPage, -page);
}

void TextView::moveCaret(std::size_t position, bool selecting) {
    setSelection({.anchor = selecting ? m_selection.anchor : position, .caret = position});
    scrollToCaret();
}

void TextView::moveByRows(std::ptrdiff_t rows, bool selecting) {
    const auto from = m_rows.rowOf(m_selection.caret);
    const auto x = m_wantedX.value_or(caretX(from.row, rowText(from.row, {}), m_selection.caret) +
                                      horizontalScrollBar()->value());
    auto row = from.row;
    std::ptrdiff_t moved = 0;
    while (moved != rows) {
        const auto next = rows > 0 ? m_rows.layout().next(row) : m_rows.layout().previous(row);
        if (!next) {
            break;
        }
        row = *next;
        moved += rows > 0 ? 1 : -1;
    }
    const auto end = rows > 0 ? buffer().length() : 0;
    const auto position = moved == 0 ? end : positionInRow(row, x - horizontalScrollBar()->value());
    if (std::abs(rows) > 1) {
        m_rows.scrollTo(m_rows.offset() + moved * m_rows.rowHeight());
        updateScrollBars();
        viewport()->update();
        Q_EMIT scrolled();
    }
    select({.anchor = selecting ? m_selection.anchor : position, .caret = position});
    scrollToCaret();
    m_wantedX = x;
}

// The row's start; from there the end of the line's indentation, and from there the line's start.
std::size_t TextView::rowStart() const {
    const auto caret = m_selection.caret;
    const auto row = m_rows.rowOf(caret).row;
    const auto line = buffer().lineAt(caret);
    const auto indent = TextNavigation::lineIndentEnd(buffer(), line);
    if (row.startsLine) {
        return caret == indent || indent > row.range.end() ? row.range.location : indent;
    }
    return caret == row.range.location ? indent : row.range.location;
}

// The row's end, which in front of a break is its last character; from there the line's end.
std::size_t TextView::rowEnd() const {
    const auto caret = m_selection.caret;
    const auto row = m_rows.rowOf(caret).row;
    const auto lineEnd = TextNavigation::lineEnd(buffer(), buffer().lineAt(caret));
    if (row.endsLine) {
        return lineEnd;
    }
    const auto last = TextNavigation::previousCharacter(buffer(), row.range.end());
    return caret == last ? lineEnd : last;
}

bool TextView::handleCommand(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Copy)) {
        copy();
    } else if (event.matches(QKeySequence::SelectAll)) {
        selectAll();
    } else if (event.matches(QKeySequence::ZoomIn) ||
               (event.modifiers().testFlag(Qt::ControlModifier) && event.key() == Qt::Key_Equal)) {
        setZoom(m_zoom + 1);
    } else if (event.matches(QKeySequence::ZoomOut)) {
        setZoom(m_zoom - 1);
    } else if (event.key() == Qt::Key_0 && (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier) {
        setZoom(0);
    } else if (event.modifiers() == Qt::ControlModifier && event.key() == Qt::Key_Up) {
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
    } else if (event.modifiers() == Qt::ControlModifier && event.key() == Qt::Key_Down) {
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    } else {
        return false;
    }
    return true;
}

bool TextView::handleEditing(const QKeyEvent& event) {
    using Edit = UndoHistory::Edit;
    const auto caret = m_selection.caret;
    const auto& text = buffer();
    const auto plain = (event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::NoModifier;
    if (event.matches(QKeySequence::Undo)) {
        undo();
    } else if (event.matches(QKeySequence::Redo)) {
        redo();
    } else if (event.matches(QKeySequence::Cut)) {
        cut();
    } else if (event.matches(QKeySequence::Paste)) {
        paste();
    } else if (event.key() == Qt::Key_Backspace && plain) {
        deleteTo(TextNavigation::previousCharacter(text, caret), Edit::deletingBackward);
    } else if (event.matches(QKeySequence::Delete)) {
        deleteTo(TextNavigation::nextCharacter(text, caret), Edit::deletingForward);
    } else if (event.matches(QKeySequence::DeleteStartOfWord)) {
        deleteTo(TextNavigation::previousWord(text, caret), Edit::other);
    } else if (event.matches(QKeySequence::DeleteEndOfWord)) {
        deleteTo(TextNavigation::nextWord(text, caret), Edit::other);
    } else if (event.matches(QKeySequence::DeleteEndOfLine)) {
        const auto end = TextNavigation::lineEnd(text, text.lineAt(caret));
        deleteTo(caret == end ? TextNavigation::nextCharacter(text, caret) : end, Edit::other);
    } else if (event.matches(QKeySequence::DeleteCompleteLine)) {
        edit(text.fullLineRange(text.lineAt(caret)), {});
    } else if ((event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) && plain) {
        insertLineBreak();
    } else if (event.key() == Qt::Key_Tab && plain) {
        insertTab();
    } else if (event.key() == Qt::Key_Backtab) {
        removeTab();
    } else if (typesText(event)) {
        type(event.text());
    } else {
        return false;
    }
    return true;
}

void TextView::deleteTo(std::size_t position, UndoHistory::Edit kind) {
    if (!m_selection.isEmpty()) {
        deleteSelection();
        return;
    }
    const auto [first, last] = std::minmax(position, m_selection.caret);
    edit({.location = first, .length = last - first}, {}, kind);
}

void TextView::type(const QString& text) {
    const auto caret = m_selection.caret;
    const auto isSpace = [](char16_t unit) { return unit == u' ' || unit == u'\t' || unit == u'\n'; };
    if (!m_selection.isEmpty() ||
        (caret > 0 && isSpace(buffer().unitAt(caret - 1)) && !isSpace(text.front().unicode()))) {
        m_history.endStep(); // Undo goes word by word.
    }
    edit(m_selection.range(), text.toStdU16String(), UndoHistory::Edit::typing);
}

void TextView::insertLineBreak() {
    edit(m_selection.range(), u"\n");
}

void TextView::insertTab() {
    edit(m_selection.range(), u"\t", UndoHistory::Edit::typing);
}

void TextView::deleteSelection() {
    if (!m_readOnly && !m_selection.isEmpty()) {
        edit(m_selection.range(), {});
    }
}

void TextView::cut() {
    copy();
    deleteSelection();
}

void TextView::copy() {
    if (!m_selection.isEmpty()) {
        QGuiApplication::clipboard()->setMimeData(new TextMimeData(buffer(), m_selection.range()));
    }
}

void TextView::setPasteFilter(std::function<QString(const QString& text)> filter) {
    m_pasteFilter = std::move(filter);
}

void TextView::paste() {
    const auto* const held = QGuiApplication::clipboard()->mimeData();
    if (!m_readOnly && held != nullptr && held->hasText()) {
        const auto text = m_pasteFilter ? m_pasteFilter(held->text()) : held->text();
        edit(m_selection.range(),
             {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())});
    }
}

void TextView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    m_blink.start();
    viewport()->update();
    Q_EMIT focusChanged(true);
}

void TextView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    m_blink.stop();
    m_composition = {};
    viewport()->update();
    Q_EMIT focusChanged(false);
}

} // namespace tarnquill
