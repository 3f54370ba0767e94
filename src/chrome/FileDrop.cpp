#include "chrome/FileDrop.h"

#include <QDropEvent>
#include <QMimeData>

namespace tarnquill {
namespace {

QList<QUrl> fileUrls(const QMimeData& data) {
    QList<QUrl> files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) {
            files.append(url);
        }
    }
    return files;
}

} // namespace

bool FileDrop::handle(QEvent& event, const std::optional<FileDrop>& drop) {
    const auto tell = [&](bool isTarget) {
        if (drop) {
            drop->targeted(isTarget);
        }
    };
    switch (event.type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto& drag = static_cast<QDragMoveEvent&>(event);
        drag.setDropAction(Qt::CopyAction);
        drag.setAccepted(!fileUrls(*drag.mimeData()).isEmpty());
        if (event.type() == QEvent::DragEnter && drag.isAccepted()) {
            tell(true);
        }
        return true;
    }
    case QEvent::DragLeave:
        tell(false);
        return true;
    case QEvent::Drop: {
        auto& dropped = static_cast<QDropEvent&>(event);
        tell(false);
        dropped.setDropAction(Qt::CopyAction);
        dropped.setAccepted(drop && drop->open(fileUrls(*dropped.mimeData())));
        return true;
    }
    default:
        return false;
    }
}

} // namespace tarnquill
