#include "chrome/Fade.h"

#include "chrome/Theme.h"

#include <QGraphicsOpacityEffect>
#include <QPropertyAnimation>
#include <QWidget>

namespace tarnquill {

Fade::Fade(QWidget* widget, int milliseconds, double initial)
    : QVariantAnimation(widget),
      m_widget(widget),
      m_milliseconds(milliseconds),
      m_value(initial),
      m_target(initial) {
    setEasingCurve(QEasingCurve::OutCubic);
    connect(this, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_value = value.toDouble();
        m_widget->update();
    });
}

void Fade::glideTo(double target) {
    if (target == m_target) {
        return;
    }
    const int duration = Theme::instance().duration(m_milliseconds);
    if (duration == 0 || !m_widget->isVisible()) {
        jumpTo(target);
        return;
    }
    stop();
    m_target = target;
    setDuration(duration);
    setStartValue(m_value);
    setEndValue(target);
    start();
}

void Fade::jumpTo(double value) {
    stop();
    m_target = value;
    m_value = value;
    m_widget->update();
}

void fadeIn(QWidget* widget, int milliseconds) {
    const int duration = Theme::instance().duration(milliseconds);
    if (duration == 0) {
        return;
    }
    // The effect costs a copy of the widget with every paint, so it goes when it has done its work.
    auto* effect = new QGraphicsOpacityEffect(widget);
    widget->setGraphicsEffect(effect);
    auto* animation = new QPropertyAnimation(effect, "opacity", effect);
    animation->setDuration(duration);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    QObject::connect(animation, &QAbstractAnimation::finished, widget,
                     [widget] { widget->setGraphicsEffect(nullptr); });
    animation->start();
}

} // namespace tarnquill
