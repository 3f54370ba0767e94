#include "chrome/FocusTrap.h"

#include <QApplication>
#include <QWidget>

namespace tarnquill::FocusTrap {
namespace {

bool takesTab(const QWidget& widget, const QWidget& area) {
    return area.isAncestorOf(&widget) && widget.isVisibleTo(&area) && widget.isEnabled() &&
           (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.focusProxy() == nullptr;
}

} // namespace

void step(QWidget& area, Direction direction) {
    const bool next = direction == Direction::next;
    QWidget* focused = QApplication::focusWidget();
    QWidget* start = focused != nullptr && area.isAncestorOf(focused) ? focused : &area;
    QWidget* candidate = start;
    do {
        candidate = next ? candidate->nextInFocusChain() : candidate->previousInFocusChain();
        if (takesTab(*candidate, area)) {
            candidate->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return;
        }
    } while (candidate != start);
}

} // namespace tarnquill::FocusTrap
