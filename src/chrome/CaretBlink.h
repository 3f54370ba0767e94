// Makes a caret blink at the system's pace: visible for a while after every stir, steady where the system
// says so.
#pragma once

#include <QObject>
#include <QTimer>

namespace tarnquill {

class CaretBlink : public QObject {
    Q_OBJECT

public:
    explicit CaretBlink(QObject* parent = nullptr);

    void start();
    void stop();
    // The caret has moved: it shows, and blinks anew.
    void stir();
    [[nodiscard]] bool isVisible() const { return m_visible; }

Q_SIGNALS:
    void blinked();

private:
    QTimer m_timer;
    bool m_running = false;
    bool m_visible = false;
};

} // namespace tarnquill
