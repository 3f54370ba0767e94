#include "timestamp/ClockFace.h"

#include "chrome/Painting.h"
#include "common/DateText.h"

#include <QMouseEvent>

#include <cmath>
#include <numbers>

namespace tarnquill {

namespace {

constexpr int kSide = 168;
constexpr double kRadius = kSide / 2.0;
constexpr double kHourHand = 36;
constexpr double kMinuteHand = 56;
constexpr double kSecondHand = 56;
constexpr double kNumerals = 70;
constexpr double kRim = 48; // the minute is set from here on

// The point at a part of a turn from twelve o'clock.
QPointF onFace(double turn, double distance) {
    const auto angle = turn * 2 * std::numbers::pi;
    return {kRadius + distance * std::sin(angle), kRadius - distance * std::cos(angle)};
}

void drawHand(QPainter& painter, double turn, double length, double width, ColorRole color) {
    painter.setPen(QPen(themeColor(color), width, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(onFace(turn, 0), onFace(turn, length));
}

} // namespace

ClockFace::ClockFace(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
    setToolTip(tr("Drag inside to set the hour, along the rim to set the minute"));
}

void ClockFace::setTime(const CivilTime& time) {
    m_time = time;
    setAccessibleName(QString::fromStdString(clockText(secondsFromCivil(time))));
    update();
}

QSize ClockFace::sizeHint() const {
    return {kSide, kSide};
}

void ClockFace::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(themeColor(ColorRole::border), 1));
    painter.setBrush(themeColor(ColorRole::background));
    painter.drawEllipse(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    for (int hour = 1; hour <= 12; ++hour) {
        const auto place = onFace(hour / 12.0, kNumerals);
        Painting::text(painter, QRectF(place.x() - 10, place.y() - 8, 20, 16).toRect(), QString::number(hour),
                       FontRole::note, themeColor(ColorRole::muted), Qt::AlignCenter);
    }
    const auto minutes = m_time.minute + m_time.second / 60.0;
    drawHand(painter, (m_time.hour + minutes / 60.0) / 12.0, kHourHand, 4, ColorRole::text);
    drawHand(painter, minutes / 60.0, kMinuteHand, 2.5, ColorRole::text);
    drawHand(painter, m_time.second / 60.0, kSecondHand, 1, ColorRole::accent);
    painter.setPen(Qt::NoPen);
    painter.setBrush(themeColor(ColorRole::accent));
    painter.drawEllipse(onFace(0, 0), 3.5, 3.5);
}

void ClockFace::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        const auto offset = event->position() - onFace(0, 0);
        m_held = std::hypot(offset.x(), offset.y()) < kRim ? Hand::hour : Hand::minute;
        turnTo(event->position());
    }
}

void ClockFace::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton)) {
        turnTo(event->position());
    }
}

void ClockFace::turnTo(const QPointF& place) {
    const auto offset = place - onFace(0, 0);
    const auto turn = std::atan2(offset.x(), -offset.y()) / (2 * std::numbers::pi) + 1; // 0.5 to 1.5
    auto time = m_time;
    if (m_held == Hand::hour) {
        time.hour = m_time.hour / 12 * 12 + static_cast<int>(std::lround(turn * 12)) % 12;
    } else {
        time.minute = static_cast<int>(std::lround(turn * 60)) % 60;
    }
    if (time != m_time) {
        setTime(time);
        Q_EMIT timePicked(time.hour, time.minute);
    }
}

} // namespace tarnquill
