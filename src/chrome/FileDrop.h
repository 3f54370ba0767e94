// What a view does with files that are dragged over it and dropped on it.
#pragma once

#include <QList>
#include <QUrl>

#include <functional>

class QMimeData;

namespace tarnquill {

struct FileDrop {
    // Given the dropped file URLs (none, when the drop held no file); returns whether it took them.
    std::function<bool(const QList<QUrl>&)> open;
    // Told whether a drag is over the view.
    std::function<void(bool)> targeted;

    // Two drops are always equal, so that giving a view another one never counts as a change of the view.
    bool operator==(const FileDrop&) const { return true; }

    // The local files among what is dragged, in order.
    [[nodiscard]] static QList<QUrl> fileUrls(const QMimeData& data);
};

} // namespace tarnquill
