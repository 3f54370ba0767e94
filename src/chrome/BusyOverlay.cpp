#include "chrome/BusyOverlay.h"

#include "chrome/Painting.h"

namespace tarnquill {
namespace {

constexpr int kBarHeight = 2;
constexpr double kBarShare = 0.36; // of the width
constexpr int kPassMilliseconds = 1200;

} // namespace

BusyOverlay::BusyOverlay(QWidget* area) : Overlay(area, 120) {
    m_pass.setDuration(kPassMilliseconds);
    m_pass.setStartValue(0.0);
    m_pass.setEndValue(1.0);
    m_pass.setLoopCount(-1);
    connect(&m_pass, &QVariantAnimation::valueChanged, this, [this] { update(0, 0, width(), kBarHeight); });
}

void BusyOverlay::setBusy(bool busy) {
    setShown(busy);
    if (busy && Theme::instance().duration(kPassMilliseconds) > 0) {
        m_pass.start();
    } else {
        m_pass.stop();
    }
}

void BusyOverlay::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(presence());
    painter.fillRect(rect(), Painting::faded(themeColor(ColorRole::background), 0.55));
    painter.fillRect(0, 0, width(), kBarHeight, themeColor(ColorRole::track));
    const double bar = width() * kBarShare;
    // Without motion the bar rests in the middle.
    const bool moves = m_pass.state() == QAbstractAnimation::Running;
    const double left =
        moves ? m_pass.currentValue().toDouble() * (width() + bar) - bar : (width() - bar) / 2;
    painter.fillRect(QRectF(left, 0, bar, kBarHeight), themeColor(ColorRole::accent));
}

} // namespace tarnquill
