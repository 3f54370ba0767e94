// Writes a file that the user has named: as a whole, or not at all.
#pragma once

#include <QByteArray>
#include <QString>

namespace tarnquill {

// Replaces what the file held before only once everything is on the disk. Returns why it could not be
// written, as a sentence for the user, and nothing when it is.
[[nodiscard]] QString saveFile(const QString& path, QByteArrayView bytes);

} // namespace tarnquill
