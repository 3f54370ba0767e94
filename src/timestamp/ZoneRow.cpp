#include "timestamp/ZoneRow.h"

#include "chrome/PaneButton.h"
#include "common/DateText.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

QString differenceText(int days) {
    if (days == 0) {
        return {};
    }
    const auto sign = days > 0 ? u"+"_s : u"-"_s;
    return sign + ZoneRow::tr(days == 1 || days == -1 ? "%1 day" : "%1 days").arg(std::abs(days));
}

} // namespace

ZoneRow::ZoneRow(QWidget* parent) : DetailRow(parent), m_remove(new PaneButton(tr("Remove zone"), u"x"_s)) {
    setAccessibleDescription(tr("Alt+Up and Alt+Down move the zone, Delete removes it"));
    m_remove->setIconOnly(true);
    m_remove->setToolTip(tr("Remove zone"));
    addButton(m_remove);
    connect(m_remove, &PaneButton::clicked, this, &ZoneRow::removeRequested);
    for (auto* button : findChildren<PaneButton*>()) {
        button->installEventFilter(this);
    }
    updateRemoveButton();
}

void ZoneRow::setZone(const TimestampToolViewModel::OtherZone& zone) {
    m_remove->setAccessibleName(tr("Remove %1").arg(zone.city));
    if (!zone.time) {
        setTexts({.title = zone.city, .note = zone.name, .value = u"–"_s, .detail = {}});
        setContent(zone.city, {});
        setToolTip(zone.name);
        return;
    }
    const auto offset = QString::fromStdString(offsetText(zone.time->offset.seconds));
    const auto clock = QString::fromStdString(zone.time->clock);
    const auto date = QString::fromStdString(zone.time->date);
    const auto summerTime = zone.time->offset.isSummerTime ? tr("summer time") : QString();
    setTexts({.title = zone.city,
              .remark = summerTime,
              .shortRemark = summerTime.isEmpty() ? QString() : tr("DST"),
              .note = zone.name,
              .noteEnd = u" · "_s + offset,
              .value = clock,
              .valueRemark = differenceText(zone.time->dayDifference),
              .detail = date});
    setContent(zone.city, date + u' ' + clock + u' ' + offset);
    setToolTip(zone.name + u" · "_s + offset + (summerTime.isEmpty() ? QString() : u" · "_s + summerTime));
}

void ZoneRow::takeFocus() {
    findChild<PaneButton*>()->setFocus(Qt::OtherFocusReason);
}

// Removing is offered where the pointer or the keyboard is, so that the list is quiet elsewhere.
void ZoneRow::updateRemoveButton() {
    const auto* const focused = QApplication::focusWidget();
    m_remove->setVisible(underMouse() || (focused != nullptr && isAncestorOf(focused)));
}

bool ZoneRow::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        updateRemoveButton();
    }
    return DetailRow::event(event);
}

bool ZoneRow::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        // Once the focus is where it goes to.
        QMetaObject::invokeMethod(this, &ZoneRow::updateRemoveButton, Qt::QueuedConnection);
        break;
    case QEvent::KeyPress:
        // Before the button sees it, to which any arrow key means going to a neighbour.
        return handleKey(*static_cast<QKeyEvent*>(event));
    default:
        break;
    }
    return DetailRow::eventFilter(object, event);
}

bool ZoneRow::handleKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace) {
        Q_EMIT removeRequested();
        return true;
    }
    const auto isStep = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
    if (isStep && event.modifiers().testFlag(Qt::AltModifier)) {
        Q_EMIT moveRequested(event.key() == Qt::Key_Up ? -1 : 1);
        return true;
    }
    return false;
}

void ZoneRow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_pressed = event->position().toPoint();
    }
}

void ZoneRow::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        return;
    }
    const auto distance = (event->position().toPoint() - m_pressed).manhattanLength();
    if (m_dragging || distance >= QApplication::startDragDistance()) {
        m_dragging = true;
        setCursor(Qt::ClosedHandCursor);
        Q_EMIT dragged(event->globalPosition().toPoint());
    }
}

void ZoneRow::mouseReleaseEvent(QMouseEvent*) {
    if (std::exchange(m_dragging, false)) {
        unsetCursor();
        Q_EMIT dropped();
    }
}

void ZoneRow::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Copy"), this, &CopyRow::copy)->setEnabled(!copied().isEmpty());
    menu->addSeparator();
    menu->addAction(tr("Move Up"), this, [this] { Q_EMIT moveRequested(-1); });
    menu->addAction(tr("Move Down"), this, [this] { Q_EMIT moveRequested(1); });
    menu->addAction(tr("Remove"), this, &ZoneRow::removeRequested);
    menu->popup(event->globalPos());
}

} // namespace tarnquill
