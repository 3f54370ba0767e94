#include "chrome/FileDropTarget.h"

#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

namespace tarnquill {

FileDropTarget::FileDropTarget(QWidget* view, FileDrop drop) : QObject(view), m_drop(std::move(drop)) {
    view->setAcceptDrops(true);
    view->installEventFilter(this);
}

bool FileDropTarget::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto* drag = static_cast<QDragMoveEvent*>(event);
        if (FileDrop::fileUrls(*drag->mimeData()).isEmpty()) {
            drag->ignore();
            return true;
        }
        drag->setDropAction(Qt::CopyAction);
        drag->accept();
        if (event->type() == QEvent::DragEnter) {
            m_drop.targeted(true);
        }
        return true;
    }
    case QEvent::DragLeave:
        m_drop.targeted(false);
        return true;
    case QEvent::Drop: {
        auto* drop = static_cast<QDropEvent*>(event);
        m_drop.targeted(false);
        drop->setDropAction(Qt::CopyAction);
        drop->setAccepted(m_drop.open(FileDrop::fileUrls(*drop->mimeData())));
        return true;
    }
    default:
        return false;
    }
}

} // namespace tarnquill
