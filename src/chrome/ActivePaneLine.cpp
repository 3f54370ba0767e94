#include "chrome/ActivePaneLine.h"

#include "chrome/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace tarnquill {
namespace {

constexpr int kHeight = 2;

} // namespace

ActivePaneLine::ActivePaneLine(QWidget* tool) : QWidget(tool) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    tool->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) {
        for (QWidget* pane : std::as_const(m_panes)) {
            if (pane != nullptr && now != nullptr && (pane == now || pane->isAncestorOf(now))) {
                setActivePane(pane);
            }
        }
    });
}

void ActivePaneLine::addPane(QWidget* pane) {
    m_panes.append(pane);
    pane->installEventFilter(this);
    if (m_active == nullptr) {
        setActivePane(pane);
    }
}

void ActivePaneLine::setActivePane(QWidget* pane) {
    if (pane == m_active) {
        return;
    }
    m_active = pane;
    place();
    Q_EMIT activePaneChanged(pane);
}

void ActivePaneLine::place() {
    const bool shown = m_active && m_active->isVisibleTo(parentWidget());
    setVisible(shown);
    if (shown) {
        // Over the line above the pane, so that the pane itself loses only one pixel.
        const QPoint corner = m_active->mapTo(parentWidget(), QPoint(0, -1));
        setGeometry(corner.x(), corner.y(), m_active->width(), kHeight);
        raise();
    }
}

bool ActivePaneLine::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::Move:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::LayoutRequest:
        // Panes may lie in splitters of splitters: the place is known when all of them have been laid out.
        QMetaObject::invokeMethod(this, &ActivePaneLine::place, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return QWidget::eventFilter(object, event);
}

void ActivePaneLine::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), themeColor(ColorRole::accent));
}

} // namespace tarnquill
