#include "shell/ApplicationIcon.h"

#include <QDir>

namespace tarnquill {

using namespace Qt::StringLiterals;

QIcon applicationIcon() {
    QIcon icon;
    const QDir pictures(u":/icon"_s);
    for (const auto& name : pictures.entryList()) {
        icon.addFile(pictures.filePath(name));
    }
    return icon;
}

} // namespace tarnquill
