#include "chrome/CaretBlink.h"

#include <QGuiApplication>
#include <QStyleHints>

namespace tarnquill {

CaretBlink::CaretBlink(QObject* parent) : QObject(parent) {
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_visible = !m_visible;
        Q_EMIT blinked();
    });
}

void CaretBlink::start() {
    m_running = true;
    stir();
}

void CaretBlink::stop() {
    m_running = false;
    m_visible = false;
    m_timer.stop();
    Q_EMIT blinked();
}

void CaretBlink::stir() {
    if (!m_running) {
        return;
    }
    m_visible = true;
    if (const int flash = QGuiApplication::styleHints()->cursorFlashTime(); flash > 0) {
        m_timer.start(flash / 2);
    }
    Q_EMIT blinked();
}

} // namespace tarnquill
