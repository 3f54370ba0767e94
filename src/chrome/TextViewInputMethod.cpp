// How input methods compose text in a text view.
#include "chrome/TextView.h"

#include "common/TextNavigation.h"

#include <QInputMethodEvent>

#include <algorithm>

namespace tarnquill {

namespace {

// How much of a line input methods are shown on either side of the caret.
constexpr std::size_t kContext = 512;

} // namespace

TextRange TextView::surroundings() const {
    const auto caret = m_selection.caret;
    const auto line = buffer().lineAt(caret);
    const auto start = caret - std::min(caret - buffer().lineStart(line), kContext);
    const auto end = caret + std::min(TextNavigation::lineEnd(buffer(), line) - caret, kContext);
    return {.location = start, .length = end - start};
}

void TextView::inputMethodEvent(QInputMethodEvent* event) {
    if (m_readOnly) {
        event->ignore();
        return;
    }
    if (event->replacementLength() > 0) {
        const auto from = static_cast<std::ptrdiff_t>(m_selection.caret) + event->replacementStart();
        const auto start =
            std::min(static_cast<std::size_t>(std::max<std::ptrdiff_t>(from, 0)), buffer().length());
        const auto length =
            std::min(static_cast<std::size_t>(event->replacementLength()), buffer().length() - start);
        edit({.location = start, .length = length}, event->commitString().toStdU16String(),
             UndoHistory::Edit::typing);
    } else if (!event->commitString().isEmpty()) {
        type(event->commitString());
    } else if (!event->preeditString().isEmpty() && !m_selection.isEmpty()) {
        deleteSelection();
    }
    m_composition = {.text = event->preeditString(),
                     .formats = {},
                     .caret = static_cast<int>(event->preeditString().size()),
                     .caretShown = true};
    for (const auto& attribute : event->attributes()) {
        if (attribute.type == QInputMethodEvent::Cursor) {
            m_composition.caret = attribute.start;
            m_composition.caretShown = attribute.length != 0;
        } else if (attribute.type == QInputMethodEvent::TextFormat) {
            QTextLayout::FormatRange format;
            format.start = attribute.start;
            format.length = attribute.length;
            format.format = attribute.value.value<QTextFormat>().toCharFormat();
            m_composition.formats.append(format);
        } else if (attribute.type == QInputMethodEvent::Selection) {
            const auto start = surroundings().location;
            setSelection(
                {.anchor = start + static_cast<std::size_t>(std::max(attribute.start, 0)),
                 .caret = start + static_cast<std::size_t>(std::max(attribute.start + attribute.length, 0))});
        }
    }
    scrollToCaret();
    viewport()->update();
    event->accept();
}

QVariant TextView::inputMethodQuery(Qt::InputMethodQuery query) const {
    const auto around = surroundings();
    switch (query) {
    case Qt::ImCursorRectangle:
        return caretRect(m_selection.caret).translated(viewport()->pos());
    case Qt::ImFont:
        return m_font;
    case Qt::ImCursorPosition:
        return static_cast<int>(m_selection.caret - around.location);
    case Qt::ImAnchorPosition:
        return static_cast<int>(std::clamp(m_selection.anchor, around.location, around.end()) -
                                around.location);
    case Qt::ImSurroundingText:
        return QString::fromStdU16String(buffer().text(around));
    case Qt::ImCurrentSelection:
        return QString::fromStdU16String(buffer().text(
            {.location = selection().location, .length = std::min(selection().length, kContext)}));
    default:
        return QAbstractScrollArea::inputMethodQuery(query);
    }
}

} // namespace tarnquill
