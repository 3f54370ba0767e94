// One month of the calendar, from which a day is picked by mouse or keyboard.
#pragma once

#include "common/CivilDate.h"

#include <QWidget>

namespace tarnquill {

class MonthGrid : public QWidget {
    Q_OBJECT

public:
    explicit MonthGrid(QWidget* parent = nullptr);

    [[nodiscard]] const CivilDate& date() const { return m_date; }
    void setDate(const CivilDate& date);

    // The same day of another month, or that month's last day. Stays within the years 1 to 9999.
    void moveByMonths(int months);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void datePicked(const CivilDate& date);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] std::int64_t firstDay() const;
    [[nodiscard]] QRect cell(int index) const;
    [[nodiscard]] int cellAt(const QPoint& place) const; // -1 outside
    void pick(std::int64_t day);
    void pickDate(const CivilDate& date);

    CivilDate m_date;
    int m_hovered = -1;
};

} // namespace tarnquill
