// A clock whose hands can be turned. The inner part of its face sets the hour of the present half of the day,
// the rim sets the minute.
#pragma once

#include "common/CivilDate.h"

#include <QWidget>

namespace tarnquill {

class ClockFace : public QWidget {
    Q_OBJECT

public:
    explicit ClockFace(QWidget* parent = nullptr);

    // Only the time of day counts.
    void setTime(const CivilTime& time);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void timePicked(int hour, int minute);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    enum class Hand : std::uint8_t { hour, minute };

    void turnTo(const QPointF& place);

    CivilTime m_time;
    Hand m_held = Hand::hour;
};

} // namespace tarnquill
