#include "common/SavedFile.h"

#include <QFileInfo>
#include <QSaveFile>

namespace tarnquill {

using namespace Qt::StringLiterals;

QString saveFile(const QString& path, QByteArrayView bytes) {
    QSaveFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly) &&
                           file.write(bytes.data(), bytes.size()) == bytes.size() && file.commit();
    return isWritten ? QString()
                     : u"Could not write “%1”: %2."_s.arg(QFileInfo(path).fileName(), file.errorString());
}

} // namespace tarnquill
