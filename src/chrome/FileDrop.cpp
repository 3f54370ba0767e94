#include "chrome/FileDrop.h"

#include <QMimeData>

namespace tarnquill {

QList<QUrl> FileDrop::fileUrls(const QMimeData& data) {
    QList<QUrl> files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) {
            files.append(url);
        }
    }
    return files;
}

} // namespace tarnquill
