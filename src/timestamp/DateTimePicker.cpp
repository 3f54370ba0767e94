#include "timestamp/DateTimePicker.h"

#include "chrome/PaneButton.h"
#include "chrome/TextLabel.h"
#include "timestamp/ClockFace.h"
#include "timestamp/MonthGrid.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 12;
constexpr int kGap = 16;
constexpr int kSmallGap = 4;

QString padded(int value, int digits) {
    return QString::number(value).rightJustified(digits, u'0');
}

} // namespace

DateTimePicker::DateTimePicker(QWidget* parent)
    : QWidget(parent),
      m_month(new TextLabel({}, FontRole::paneRole, ColorRole::text)),
      m_days(new MonthGrid),
      m_clock(new ClockFace),
      m_year(makeField(tr("Year"), 4)),
      m_hour(makeField(tr("Hours"), 2)),
      m_minute(makeField(tr("Minutes"), 2)),
      m_second(makeField(tr("Seconds"), 2)) {
    auto* date = new QVBoxLayout;
    date->setSpacing(kSmallGap);
    date->addWidget(makeMonthRow());
    date->addWidget(m_days);
    auto* time = new QVBoxLayout;
    time->setSpacing(kSmallGap);
    time->addWidget(makeClockRow());
    time->addWidget(m_clock, 1, Qt::AlignCenter);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    row->setSpacing(kGap);
    row->addLayout(date);
    row->addLayout(time);

    connect(m_days, &MonthGrid::datePicked, this, [this](const CivilDate& picked) {
        auto changed = m_time;
        changed.date = picked;
        pick(changed);
    });
    connect(m_clock, &ClockFace::timePicked, this, [this](int hour, int minute) {
        auto changed = m_time;
        changed.hour = hour;
        changed.minute = minute;
        pick(changed);
    });
    showTime();
}

QLineEdit* DateTimePicker::makeField(const QString& name, int digits) {
    static const QRegularExpression kDigits(u"[0-9]*"_s);
    auto* field = new QLineEdit;
    field->setValidator(new QRegularExpressionValidator(kDigits, field));
    field->setMaxLength(digits);
    field->setAlignment(Qt::AlignCenter);
    field->setFixedWidth(digits > 2 ? 56 : 44);
    field->setAccessibleName(name);
    field->setToolTip(name);
    field->installEventFilter(this);
    connect(field, &QLineEdit::textEdited, this, &DateTimePicker::pickFromFields);
    connect(field, &QLineEdit::editingFinished, this, &DateTimePicker::showTime);
    return field;
}

QWidget* DateTimePicker::makeMonthRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(kSmallGap, 0, 0, 0);
    layout->setSpacing(kSmallGap);
    layout->addWidget(m_month);
    layout->addStretch();
    layout->addWidget(m_year);
    const auto addStep = [&](const QString& title, const QString& symbol, int months) {
        auto* button = new PaneButton(title, symbol);
        button->setIconOnly(true);
        button->setToolTip(title);
        connect(button, &PaneButton::clicked, this, [this, months] { m_days->moveByMonths(months); });
        layout->addWidget(button);
    };
    addStep(tr("Previous month"), u"chevron-left"_s, -1);
    addStep(tr("Next month"), u"chevron-right"_s, 1);
    return row;
}

QWidget* DateTimePicker::makeClockRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSmallGap);
    layout->addStretch();
    for (auto* field : {m_hour, m_minute, m_second}) {
        if (field != m_hour) {
            layout->addWidget(new TextLabel(u":"_s, FontRole::paneRole, ColorRole::muted));
        }
        layout->addWidget(field);
    }
    layout->addStretch();
    return row;
}

void DateTimePicker::setTime(const CivilTime& time) {
    m_time = time;
    showTime();
}

void DateTimePicker::pick(const CivilTime& time) {
    if (isValid(time) && time != m_time) {
        setTime(time);
        Q_EMIT timePicked(time);
    }
}

// What is being typed is left alone, whatever it is; a value that no clock has changes nothing.
void DateTimePicker::pickFromFields() {
    auto time = m_time;
    time.date.year = m_year->text().toInt();
    time.hour = m_hour->text().toInt();
    time.minute = m_minute->text().toInt();
    time.second = m_second->text().toInt();
    if (time.date.year >= 1) {
        time.date.day = std::min(time.date.day, daysInMonth(time.date.year, time.date.month));
    }
    pick(time);
}

void DateTimePicker::stepField(const QObject* field, int step) {
    if (field == m_year) {
        m_days->moveByMonths(12 * step);
        return;
    }
    const std::int64_t seconds = field == m_hour ? 3'600 : field == m_minute ? 60 : 1;
    pick(civilFromSeconds(secondsFromCivil(m_time) + step * seconds));
}

bool DateTimePicker::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            stepField(object, key == Qt::Key_Up ? 1 : -1);
            return true;
        }
    }
    return QWidget::eventFilter(object, event);
}

void DateTimePicker::showTime() {
    m_month->setText(QLocale(QLocale::English).monthName(m_time.date.month));
    m_days->setDate(m_time.date);
    m_clock->setTime(m_time);
    const auto show = [](QLineEdit* field, int value, int digits) {
        if (!field->hasFocus() || field->text().toInt() != value) {
            field->setText(padded(value, digits));
        }
    };
    show(m_year, m_time.date.year, 4);
    show(m_hour, m_time.hour, 2);
    show(m_minute, m_time.minute, 2);
    show(m_second, m_time.second, 2);
}

} // namespace tarnquill
