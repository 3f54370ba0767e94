#include "chrome/TextDropTextView.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

TextDropTextView::TextDropTextView(QWidget* parent) : TextView(parent) {
    viewport()->setAcceptDrops(true);
}

bool TextDropTextView::accepts(const QMimeData& dragged) const {
    // Files are offered as text too, which would be their names.
    return !isReadOnly() && dragged.hasFormat(u"text/plain"_s) &&
           std::ranges::none_of(dragged.urls(), &QUrl::isLocalFile);
}

void TextDropTextView::dragEnterEvent(QDragEnterEvent* event) {
    if (accepts(*event->mimeData())) {
        event->acceptProposedAction();
    } else {
        event->ignore();
    }
}

void TextDropTextView::dragMoveEvent(QDragMoveEvent* event) {
    if (accepts(*event->mimeData())) {
        setDropPosition(positionAt(event->position()));
        event->acceptProposedAction();
    } else {
        event->ignore();
    }
}

void TextDropTextView::dragLeaveEvent(QDragLeaveEvent* /*event*/) {
    setDropPosition(std::nullopt);
}

void TextDropTextView::dropEvent(QDropEvent* event) {
    setDropPosition(std::nullopt);
    if (!accepts(*event->mimeData())) {
        event->ignore();
        return;
    }
    const auto position = positionAt(event->position());
    if (isDragging()) {
        dropOwnDrag(position, event->dropAction() == Qt::MoveAction);
    } else {
        const auto text = event->mimeData()->text().toStdU16String();
        edit({.location = position, .length = 0}, text, {.anchor = position, .caret = position + text.size()},
             UndoHistory::Edit::other);
    }
    setFocus();
    event->acceptProposedAction();
}

} // namespace tarnquill
