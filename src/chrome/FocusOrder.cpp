#include "chrome/FocusOrder.h"

#include <QApplication>
#include <QScrollArea>
#include <QWidget>

#include <algorithm>

namespace tarnquill::FocusOrder {
namespace {

// What has the keyboard counts even if it has just been hidden or disabled, for that is where the way goes
// on.
bool isOnTheWay(const QWidget& child, const QWidget* focused) {
    return !child.isWindow() &&
           (&child == focused || child.isAncestorOf(focused) || (!child.isHidden() && child.isEnabled()));
}

// The others have no part in the rows: what is hidden may lie anywhere.
QList<QWidget*> childrenAsRead(const QWidget& parent, const QWidget* focused) {
    auto children = parent.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    children.removeIf([focused](const QWidget* child) { return !isOnTheWay(*child, focused); });
    std::ranges::stable_sort(children, {}, &QWidget::y);
    for (auto row = children.begin(); row != children.end();) {
        const auto bottom = (*row)->geometry().bottom();
        const auto end = std::find_if(row + 1, children.end(), [bottom](const QWidget* child) {
            return child->geometry().center().y() > bottom;
        });
        std::ranges::stable_sort(row, end, {}, &QWidget::x);
        row = end;
    }
    return children;
}

bool takesTab(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.focusProxy() == nullptr;
}

void collect(const QWidget& area, const QWidget* focused, QList<QWidget*>& stops) {
    for (auto* const child : childrenAsRead(area, focused)) {
        if (child == focused || takesTab(*child)) {
            stops.append(child);
        }
        collect(*child, focused, stops);
    }
}

// What is entered from outside may be scrolled out of sight.
void reveal(QWidget& control) {
    for (auto* parent = control.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (auto* const scroll = qobject_cast<QScrollArea*>(parent)) {
            scroll->ensureWidgetVisible(&control);
        }
    }
}

} // namespace

bool step(QWidget& area, Direction direction) {
    QWidget* const focused = QApplication::focusWidget();
    QList<QWidget*> stops;
    collect(area, focused, stops);
    const auto at = stops.indexOf(focused);
    const auto count = stops.size();
    if (count == 0 || (count == 1 && at == 0)) {
        return false;
    }
    const bool isNext = direction == Direction::next;
    const auto to = isNext ? (at + 1) % count : (std::max<qsizetype>(at, 0) + count - 1) % count;
    stops[to]->setFocus(isNext ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    reveal(*stops[to]);
    return true;
}

} // namespace tarnquill::FocusOrder
