#include "common/InstalledFile.h"

#include <QCoreApplication>
#include <QDir>

namespace tarnquill {

using namespace Qt::StringLiterals;

QString installedFile(QStringView name) {
    return QDir::cleanPath(u"%1/../%2"_s.arg(QCoreApplication::applicationDirPath(), name));
}

QString noticesFile() {
    return installedFile(u"share/doc/tarnquill/THIRD-PARTY-NOTICES.md");
}

} // namespace tarnquill
