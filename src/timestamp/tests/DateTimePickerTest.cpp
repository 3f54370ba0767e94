#include "timestamp/DateTimePicker.h"

#include "timestamp/ClockFace.h"
#include "timestamp/MonthGrid.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace tarnquill {

class DateTimePickerTest : public testing::Test {
protected:
    DateTimePicker picker;
    MonthGrid* days = picker.findChild<MonthGrid*>();
    ClockFace* clock = picker.findChild<ClockFace*>();
    CivilTime picked;

    void SetUp() override {
        QObject::connect(&picker, &DateTimePicker::timePicked,
                         [this](const CivilTime& time) { picked = time; });
        picker.setTime(
            {.date = {.year = 2024, .month = 1, .day = 31}, .hour = 14, .minute = 30, .second = 59});
        picker.resize(picker.sizeHint());
        picker.show();
        QApplication::setActiveWindow(&picker);
    }

    [[nodiscard]] QLineEdit* field(const QString& name) {
        for (auto* candidate : picker.findChildren<QLineEdit*>()) {
            if (candidate->accessibleName() == name) {
                return candidate;
            }
        }
        return nullptr;
    }
};

using namespace Qt::StringLiterals;

TEST_F(DateTimePickerTest, MovesThroughTheCalendarByKeyboard) {
    QTest::keyClick(days, Qt::Key_PageDown);
    EXPECT_EQ(picked.date, (CivilDate{.year = 2024, .month = 2, .day = 29})); // as far as the month goes
    QTest::keyClick(days, Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(picked.date, (CivilDate{.year = 2025, .month = 2, .day = 28}));
    QTest::keyClick(days, Qt::Key_Right);
    QTest::keyClick(days, Qt::Key_Up);
    EXPECT_EQ(picked.date, (CivilDate{.year = 2025, .month = 2, .day = 22}));
    EXPECT_EQ(picked.hour, 14);
    EXPECT_EQ(field(u"Year"_s)->text(), u"2025"_s);
}

TEST_F(DateTimePickerTest, StaysWithinTheYearsThatCanBeRead) {
    picker.setTime({.date = {.year = 1, .month = 1, .day = 1}});
    QTest::keyClick(days, Qt::Key_Left);
    QTest::keyClick(days, Qt::Key_PageUp);
    EXPECT_EQ(days->date(), (CivilDate{.year = 1, .month = 1, .day = 1}));
    picker.setTime({.date = {.year = 9999, .month = 12, .day = 31}, .hour = 23, .minute = 59, .second = 59});
    QTest::keyClick(days, Qt::Key_Down);
    QTest::keyClick(days, Qt::Key_PageDown);
    QTest::keyClick(field(u"Seconds"_s), Qt::Key_Up);
    EXPECT_EQ(days->date(), (CivilDate{.year = 9999, .month = 12, .day = 31}));
}

TEST_F(DateTimePickerTest, PicksADayByMouse) {
    // The last day of the first week is the first Sunday, 7 January 2024.
    QTest::mouseClick(days, Qt::LeftButton, {}, QPoint(days->sizeHint().width() - 5, 30));
    EXPECT_EQ(picked.date, (CivilDate{.year = 2024, .month = 1, .day = 7}));
}

TEST_F(DateTimePickerTest, TurnsTheHandsOfTheClock) {
    const auto middle = clock->rect().center();
    QTest::mouseClick(clock, Qt::LeftButton, {}, middle + QPoint(40, 0)); // inside, at three
    EXPECT_EQ(picked.hour, 15);
    QTest::mouseClick(clock, Qt::LeftButton, {}, middle + QPoint(0, 75)); // on the rim, at six
    EXPECT_EQ(picked.minute, 30);
    EXPECT_EQ(picked.hour, 15);
    EXPECT_EQ(picked.second, 59);
}

TEST_F(DateTimePickerTest, TakesTypedValuesThatAClockHas) {
    auto* hours = field(u"Hours"_s);
    hours->setFocus();
    hours->selectAll();
    QTest::keyClicks(hours, u"9"_s);
    EXPECT_EQ(picked.hour, 9);
    hours->selectAll();
    QTest::keyClicks(hours, u"77x"_s);
    EXPECT_EQ(picked.hour, 7); // on the way to 77
    QTest::keyClick(field(u"Minutes"_s), Qt::Key_Down);
    EXPECT_EQ(picked.minute, 29);
    QTest::keyClick(field(u"Seconds"_s), Qt::Key_Up);
    EXPECT_EQ(picked.minute, 30);
    EXPECT_EQ(picked.second, 0);
    auto* year = field(u"Year"_s);
    picker.setTime({.date = {.year = 2024, .month = 2, .day = 29}});
    year->setFocus();
    year->selectAll();
    QTest::keyClicks(year, u"1900"_s);
    EXPECT_EQ(picked.date, (CivilDate{.year = 1900, .month = 2, .day = 28}));
}

} // namespace tarnquill
