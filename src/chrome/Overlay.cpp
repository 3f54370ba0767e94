#include "chrome/Overlay.h"

#include "chrome/Fade.h"

#include <QEvent>

namespace tarnquill {

Overlay::Overlay(QWidget* area, int fade) : QWidget(area), m_fade(new Fade(this, fade)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    area->installEventFilter(this);
    connect(m_fade, &QVariantAnimation::finished, this, [this] { setVisible(m_shown); });
}

void Overlay::setShown(bool shown) {
    m_shown = shown;
    if (shown) {
        setGeometry(parentWidget()->rect());
        show();
        raise();
    }
    m_fade->glideTo(shown ? 1 : 0);
    if (m_fade->state() != QAbstractAnimation::Running) {
        setVisible(shown);
    }
}

double Overlay::presence() const {
    return m_fade->value();
}

bool Overlay::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    }
    return QWidget::eventFilter(object, event);
}

} // namespace tarnquill
