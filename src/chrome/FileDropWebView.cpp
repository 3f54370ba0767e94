#include "chrome/FileDropWebView.h"

#include <QDropEvent>
#include <QMimeData>

namespace tarnquill {
namespace {

// Only drags of files are for this view; everything else passes it by.
bool offerCopy(QDropEvent& event) {
    const bool hasFiles = !FileDrop::fileUrls(*event.mimeData()).isEmpty();
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(hasFiles);
    return hasFiles;
}

} // namespace

void FileDropWebView::tell(bool targeted) const {
    if (m_fileDrop) {
        m_fileDrop->targeted(targeted);
    }
}

void FileDropWebView::dragEnterEvent(QDragEnterEvent* event) {
    if (offerCopy(*event)) {
        tell(true);
    }
}

void FileDropWebView::dragMoveEvent(QDragMoveEvent* event) {
    offerCopy(*event);
}

void FileDropWebView::dragLeaveEvent(QDragLeaveEvent*) {
    tell(false);
}

void FileDropWebView::dropEvent(QDropEvent* event) {
    tell(false);
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(m_fileDrop && m_fileDrop->open(FileDrop::fileUrls(*event->mimeData())));
}

} // namespace tarnquill
