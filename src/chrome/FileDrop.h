// What a view does with files that are dragged over it and dropped on it.
#pragma once

#include <QList>
#include <QUrl>

#include <functional>
#include <optional>

class QEvent;

namespace tarnquill {

struct FileDrop {
    // Given the dropped file URLs (none, when the drop held no file); returns whether it took them.
    std::function<bool(const QList<QUrl>&)> open;
    // Told whether a drag is over the view.
    std::function<void(bool)> targeted;

    // Two drops are always equal, so that giving a view another one never counts as a change of the view.
    bool operator==(const FileDrop&) const { return true; }

    // Answers the drag events of a view: files are copied, a drag of anything else is left to the views
    // around it. Without a drop to hand them to, files may be dragged over the view but not be dropped.
    // Returns whether the event was one of a drag.
    static bool handle(QEvent& event, const std::optional<FileDrop>& drop);
};

} // namespace tarnquill
