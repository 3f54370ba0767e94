#include "timestamp/MonthGrid.h"

#include "chrome/FocusRing.h"
#include "chrome/Painting.h"
#include "common/DateText.h"

#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDays = 7;
constexpr int kWeeks = 6;
constexpr int kCellWidth = 36;
constexpr int kCellHeight = 28;
constexpr int kHeaderHeight = 24;
constexpr double kRadius = 6;
constexpr int kFirstYear = 1;
constexpr int kLastYear = 9999;

bool isInRange(std::int64_t day) {
    return daysFromCivil({.year = kFirstYear, .month = 1, .day = 1}) <= day &&
           day <= daysFromCivil({.year = kLastYear, .month = 12, .day = 31});
}

} // namespace

MonthGrid::MonthGrid(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleDescription(tr("Arrow keys move by days and weeks, Page Up and Page Down by months"));
    FocusRing::attach(this, kRadius);
}

void MonthGrid::setDate(const CivilDate& date) {
    m_date = date;
    setAccessibleName(QString::fromStdString(rfcDateText(daysFromCivil(date) * kSecondsPerDay)));
    update();
}

void MonthGrid::moveByMonths(int months) {
    const int index =
        std::clamp(m_date.year * 12 + m_date.month - 1 + months, kFirstYear * 12, kLastYear * 12 + 11);
    const int year = index / 12;
    const int month = index % 12 + 1;
    pickDate({.year = year, .month = month, .day = std::min(m_date.day, daysInMonth(year, month))});
}

QSize MonthGrid::sizeHint() const {
    return {kDays * kCellWidth, kHeaderHeight + kWeeks * kCellHeight};
}

// The Monday on or before the first of the month.
std::int64_t MonthGrid::firstDay() const {
    const auto first = daysFromCivil({.year = m_date.year, .month = m_date.month, .day = 1});
    return first - weekdayOfDay(first);
}

QRect MonthGrid::cell(int index) const {
    return {index % kDays * kCellWidth, kHeaderHeight + index / kDays * kCellHeight, kCellWidth, kCellHeight};
}

int MonthGrid::cellAt(const QPoint& place) const {
    for (int index = 0; index < kDays * kWeeks; ++index) {
        if (cell(index).contains(place) && isInRange(firstDay() + index)) {
            return index;
        }
    }
    return -1;
}

void MonthGrid::pick(std::int64_t day) {
    if (isInRange(day)) {
        pickDate(civilFromDays(day));
    }
}

void MonthGrid::pickDate(const CivilDate& date) {
    if (date != m_date) {
        setDate(date);
        Q_EMIT datePicked(date);
    }
}

void MonthGrid::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto locale = QLocale(QLocale::English);
    for (int day = 0; day < kDays; ++day) {
        Painting::text(painter, QRect(day * kCellWidth, 0, kCellWidth, kHeaderHeight),
                       locale.dayName(day + 1, QLocale::ShortFormat).left(2), FontRole::groupTitle,
                       themeColor(ColorRole::muted), Qt::AlignCenter);
    }
    const auto first = firstDay();
    const auto chosen = daysFromCivil(m_date);
    for (int index = 0; index < kDays * kWeeks; ++index) {
        const auto day = first + index;
        if (!isInRange(day)) {
            continue;
        }
        const auto date = civilFromDays(day);
        const auto isChosen = day == chosen;
        auto color = date.month == m_date.month ? ColorRole::text : ColorRole::faint;
        if (isChosen) {
            Painting::box(painter, cell(index).adjusted(2, 1, -2, -1), kRadius, themeColor(ColorRole::fill));
            color = ColorRole::fillText;
        } else if (index == m_hovered) {
            Painting::box(painter, cell(index).adjusted(2, 1, -2, -1), kRadius, themeColor(ColorRole::hover));
        }
        Painting::text(painter, cell(index), QString::number(date.day),
                       isChosen ? FontRole::controlSelected : FontRole::control, themeColor(color),
                       Qt::AlignCenter);
    }
}

void MonthGrid::mousePressEvent(QMouseEvent* event) {
    const auto index = cellAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index >= 0) {
        pick(firstDay() + index);
    }
}

void MonthGrid::mouseMoveEvent(QMouseEvent* event) {
    const auto index = cellAt(event->position().toPoint());
    if (std::exchange(m_hovered, index) != index) {
        update();
    }
}

void MonthGrid::leaveEvent(QEvent*) {
    m_hovered = -1;
    update();
}

void MonthGrid::keyPressEvent(QKeyEvent* event) {
    const auto day = daysFromCivil(m_date);
    const auto byYear = event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
    case Qt::Key_Left:
        pick(day - 1);
        break;
    case Qt::Key_Right:
        pick(day + 1);
        break;
    case Qt::Key_Up:
        pick(day - kDays);
        break;
    case Qt::Key_Down:
        pick(day + kDays);
        break;
    case Qt::Key_PageUp:
        moveByMonths(byYear ? -12 : -1);
        break;
    case Qt::Key_PageDown:
        moveByMonths(byYear ? 12 : 1);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void MonthGrid::wheelEvent(QWheelEvent* event) {
    if (event->angleDelta().y() != 0) {
        moveByMonths(event->angleDelta().y() > 0 ? -1 : 1);
    }
}

} // namespace tarnquill
