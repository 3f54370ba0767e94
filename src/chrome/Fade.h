// A number that glides to its next value and repaints its widget on the way.
#pragma once

#include <QVariantAnimation>

class QWidget;

namespace tarnquill {

class Fade : public QVariantAnimation {
    Q_OBJECT

public:
    Fade(QWidget* widget, int milliseconds, double initial = 0);

    // Goes there over the time given at construction, or at once when motion is reduced or the widget is not
    // shown.
    void glideTo(double target);
    void jumpTo(double value);
    [[nodiscard]] double value() const { return m_value; }

private:
    QWidget* m_widget;
    int m_milliseconds;
    double m_value;
    double m_target;
};

// Lets a widget that has just been shown appear gradually.
void fadeIn(QWidget* widget, int milliseconds);

} // namespace tarnquill
