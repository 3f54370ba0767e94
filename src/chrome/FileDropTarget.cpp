#include "chrome/FileDropTarget.h"

#include <QWidget>

namespace tarnquill {

FileDropTarget::FileDropTarget(QWidget* view, FileDrop drop) : QObject(view), m_drop(std::move(drop)) {
    view->setAcceptDrops(true);
    view->installEventFilter(this);
}

bool FileDropTarget::eventFilter(QObject*, QEvent* event) {
    return FileDrop::handle(*event, m_drop);
}

} // namespace tarnquill
