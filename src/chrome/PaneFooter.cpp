#include "chrome/PaneFooter.h"

#include "chrome/Painting.h"
#include "chrome/Symbols.h"

#include <chrono>

namespace tarnquill {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kHeight = 28;
constexpr int kSide = 12;
constexpr int kGap = 10;
constexpr int kIcon = 12;
constexpr int kIconGap = 6;
constexpr int kDividerHeight = 12;
constexpr int kSpinSteps = 12;

} // namespace

PaneFooter::PaneFooter(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_spin.setInterval(80ms);
    connect(&m_spin, &QTimer::timeout, this, [this] {
        m_angle = (m_angle + 360 / kSpinSteps) % 360;
        update();
    });
}

void PaneFooter::setMetrics(const QList<Metric>& metrics) {
    if (m_metrics == metrics) {
        return;
    }
    m_metrics = metrics;
    updateAccessibleName();
    update();
}

void PaneFooter::setBusy(const QString& verb) {
    m_busy = verb;
    if (verb.isEmpty() || Theme::instance().duration(1) == 0) {
        m_spin.stop();
    } else {
        m_spin.start();
    }
    updateAccessibleName();
    update();
}

void PaneFooter::updateAccessibleName() {
    QStringList texts;
    for (const Metric& metric : m_metrics) {
        texts.append(metric.text);
    }
    setAccessibleName(m_busy.isEmpty() ? texts.join(u", "_s) : m_busy);
}

QSize PaneFooter::sizeHint() const {
    return {0, kHeight};
}

QSize PaneFooter::minimumSizeHint() const {
    return sizeHint();
}

void PaneFooter::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ColorRole::background));
    painter.fillRect(0, 0, width(), 1, themeColor(ColorRole::hairline));
    if (m_busy.isEmpty()) {
        paintMetrics(painter);
    } else {
        paintBusy(painter);
    }
}

void PaneFooter::paintMetrics(QPainter& painter) const {
    const int end = width() - kSide;
    int x = kSide;
    for (qsizetype index = 0; index < m_metrics.size() && x < end; ++index) {
        const Metric& metric = m_metrics[index];
        if (index > 0) {
            painter.fillRect(x + kGap, 1 + (kHeight - 1 - kDividerHeight) / 2, 1, kDividerHeight,
                             themeColor(ColorRole::border));
            x += 2 * kGap + 1;
        }
        if (!metric.symbol.isEmpty()) {
            Painting::symbol(painter, QRect(x, 1, kIcon, kHeight), metric.symbol, kIcon,
                             themeColor(metric.color));
            x += kIcon + kIconGap;
        }
        const int width = std::min(Painting::textWidth(metric.text, FontRole::note), std::max(0, end - x));
        Painting::text(painter, QRect(x, 1, width, kHeight - 1), metric.text, FontRole::note,
                       themeColor(metric.color));
        x += width;
    }
}

void PaneFooter::paintBusy(QPainter& painter) const {
    const QColor ink = themeColor(ColorRole::muted);
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(kSide + kIcon / 2.0, 1 + (kHeight - 1) / 2.0);
    painter.rotate(m_angle);
    Symbols::draw(painter, QRectF(-kIcon / 2.0, -kIcon / 2.0, kIcon, kIcon), u"loader-circle"_s, ink);
    painter.restore();
    const int x = kSide + kIcon + kIconGap;
    Painting::text(painter, QRect(x, 1, width() - x - kSide, kHeight - 1), m_busy, FontRole::note, ink);
}

} // namespace tarnquill
