// A small calendar and a clock by which a date and a time are put together by hand.
#pragma once

#include "common/CivilDate.h"

#include <QWidget>

class QLineEdit;

namespace tarnquill {

class ClockFace;
class MonthGrid;
class TextLabel;

class DateTimePicker : public QWidget {
    Q_OBJECT

public:
    explicit DateTimePicker(QWidget* parent = nullptr);

    void setTime(const CivilTime& time);

Q_SIGNALS:
    // After every change, however small.
    void timePicked(const CivilTime& time);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    [[nodiscard]] QLineEdit* makeField(const QString& name, int digits);
    [[nodiscard]] QWidget* makeMonthRow();
    [[nodiscard]] QWidget* makeClockRow();
    void pick(const CivilTime& time);
    void pickFromFields();
    void stepField(const QObject* field, int step);
    void showTime();

    CivilTime m_time;
    TextLabel* m_month;
    MonthGrid* m_days;
    ClockFace* m_clock;
    QLineEdit* m_year;
    QLineEdit* m_hour;
    QLineEdit* m_minute;
    QLineEdit* m_second;
};

} // namespace tarnquill
