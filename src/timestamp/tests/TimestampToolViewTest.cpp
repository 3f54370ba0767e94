#include "timestamp/TimestampToolView.h"

#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/SegmentedPicker.h"
#include "chrome/TextLabel.h"
#include "common/Settings.h"
#include "common/testing/WaitUntil.h"
#include "timestamp/LineTable.h"
#include "timestamp/TimestampField.h"
#include "timestamp/ValueRow.h"
#include "timestamp/ZoneButton.h"
#include "timestamp/ZonePicker.h"
#include "timestamp/ZoneRow.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace tarnquill {

using namespace Qt::StringLiterals;

class TimestampToolViewTest : public testing::Test {
protected:
    std::optional<std::string> systemZone = "Europe/Berlin";
    QTemporaryDir folder;
    Settings settings{folder.filePath(u"settings.ini"_s)};
    TimestampToolViewModel model{settings, [] { return Timestamp::Instant{.seconds = 1'790'553'600}; },
                                 [this] { return systemZone; }};
    TimestampToolView view{model};
    TimestampField* field = view.findChild<TimestampField*>();

    void SetUp() override {
        view.resize(1'050, 800);
        view.show();
        QApplication::setActiveWindow(&view);
        field->setFocus();
    }

    [[nodiscard]] PaneButton* button(const QString& title) {
        for (auto* candidate : view.findChildren<PaneButton*>()) {
            if (candidate->text() == title && candidate->isVisible()) {
                return candidate;
            }
        }
        return nullptr;
    }

    void paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    }

    [[nodiscard]] std::vector<ZoneRow*> zoneRows() {
        std::vector<ZoneRow*> rows;
        for (auto* row : view.findChildren<ZoneRow*>()) {
            if (row->isVisible()) {
                rows.push_back(row);
            }
        }
        std::ranges::sort(rows, {}, [](const ZoneRow* row) { return row->y(); });
        return rows;
    }

    [[nodiscard]] QString clipboard() const { return QGuiApplication::clipboard()->text(); }
};

TEST_F(TimestampToolViewTest, ReadsWhatIsTypedAndCopiesARow) {
    field->selectAll();
    QTest::keyClicks(field, u"-1.5"_s);
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(model.text(), u"-1.5"_s);
    auto* row = view.findChildren<ValueRow*>().at(4);
    EXPECT_EQ(row->accessibleName(), u"ISO 8601, UTC: 1969-12-31T23:59:58.500Z"_s);
    auto* copy = row->findChild<PaneButton*>();
    EXPECT_EQ(copy->accessibleName(), u"Copy ISO 8601, UTC"_s);
    QTest::mouseClick(copy, Qt::LeftButton);
    EXPECT_EQ(clipboard(), u"1969-12-31T23:59:58.500Z"_s);
    QTest::mouseClick(button(u"Copy All"_s), Qt::LeftButton);
    EXPECT_TRUE(clipboard().startsWith(u"Unix seconds\t-1.5\nUnix milliseconds\t-1500\n"_s));
}

TEST_F(TimestampToolViewTest, TakesBackWhatNowHasReplaced) {
    QTest::mouseClick(button(u"Now"_s), Qt::LeftButton);
    EXPECT_EQ(field->text(), u"1790553600"_s);
    field->undo();
    EXPECT_EQ(model.text(), u"1790380800"_s);
    QTest::mouseClick(button(u"Clear"_s), Qt::LeftButton);
    EXPECT_EQ(model.failure(), Timestamp::Failure::empty);
    EXPECT_FALSE(button(u"Clear"_s)->isEnabled());
    field->undo();
    EXPECT_EQ(model.text(), u"1790380800"_s);
}

TEST_F(TimestampToolViewTest, ReadsTheNumberInThePickedUnit) {
    auto* unit = view.findChild<SegmentedPicker*>();
    unit->setFocus();
    QTest::keyClick(unit, Qt::Key_Right);
    QTest::keyClick(unit, Qt::Key_Right);
    EXPECT_EQ(model.unit(), Timestamp::UnitChoice::milliseconds);
    EXPECT_EQ(model.instant()->seconds, 1'790'380);
}

TEST_F(TimestampToolViewTest, ShowsAPastedListAsATableUntilItIsCleared) {
    paste(u"0\nnonsense\n2026-09-26T00:00:00Z\n"_s);
    auto* table = view.findChild<LineTable*>();
    ASSERT_TRUE(waitUntil([&] { return model.lines().rowCount() == 3 && table->isVisible(); }));
    EXPECT_EQ(model.instant()->seconds, 0);
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Down);
    EXPECT_EQ(model.failure(), Timestamp::Failure::unrecognised);
    QTest::keyClick(table, Qt::Key_Down);
    EXPECT_EQ(model.instant()->seconds, 1'790'380'800);
    const QSignalSpy copied(&model, &TimestampToolViewModel::linesCopied);
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    ASSERT_TRUE(waitUntil([&] { return copied.count() == 1; }));
    EXPECT_TRUE(clipboard().contains(u"2026-09-26T02:00:00+02:00"_s));

    QTest::mouseClick(button(u"Clear"_s), Qt::LeftButton);
    EXPECT_FALSE(table->isVisible());
    EXPECT_TRUE(field->isVisible());
    EXPECT_EQ(field->text(), u"1790380800"_s);
}

TEST_F(TimestampToolViewTest, PastesASingleTimeIntoTheText) {
    field->selectAll();
    paste(u" 2026-09-26\n"_s);
    EXPECT_EQ(field->text(), u"2026-09-26"_s);
    EXPECT_FALSE(model.isListShown());
}

TEST_F(TimestampToolViewTest, SaysWhenThereIsNothingToPaste) {
    const auto says = [&](const QString& sentence) {
        return std::ranges::any_of(view.findChildren<TextLabel*>(), [&](const TextLabel* label) {
            return label->isVisible() && label->text() == sentence;
        });
    };
    QGuiApplication::clipboard()->clear();
    QTest::mouseClick(button(u"Paste"_s), Qt::LeftButton);
    EXPECT_TRUE(says(u"There is no text on the clipboard."_s));
    EXPECT_EQ(model.text(), u"1790380800"_s);
    QTest::mouseClick(button(u"Now"_s), Qt::LeftButton);
    EXPECT_FALSE(says(u"There is no text on the clipboard."_s));
}

TEST_F(TimestampToolViewTest, AddsAZoneFoundByTyping) {
    QTest::mouseClick(button(u"Add Zone"_s), Qt::LeftButton);
    ZonePicker* picker = nullptr;
    for (auto* candidate : view.findChildren<ZonePicker*>()) {
        picker = candidate->isOpen() ? candidate : picker;
    }
    ASSERT_NE(picker, nullptr);
    auto* search = picker->findChild<QLineEdit*>();
    EXPECT_TRUE(search->hasFocus());
    QTest::keyClicks(search, u"kathm"_s);
    ASSERT_TRUE(waitUntil([&] {
        QTest::keyClick(search, Qt::Key_Return); // does nothing before the zones have been read
        return !picker->isOpen();
    }));
    EXPECT_EQ(model.otherZoneNames().last(), u"Asia/Kathmandu"_s);
    EXPECT_EQ(zoneRows().back()->texts().title, u"Kathmandu"_s);
    EXPECT_EQ(zoneRows().back()->texts().value, u"05:45:00"_s);
}

TEST_F(TimestampToolViewTest, PicksTheLocalZoneAndGoesBackToTheSystems) {
    auto* zone = view.findChild<ZoneButton*>();
    zone->showPopup();
    auto* search = view.findChildren<QLineEdit*>().first();
    for (auto* candidate : view.findChildren<QLineEdit*>()) {
        search = candidate->hasFocus() ? candidate : search;
    }
    QTest::keyClicks(search, u"tokyo"_s);
    ASSERT_TRUE(waitUntil([&] {
        QTest::keyClick(search, Qt::Key_Return);
        return model.localZone() == u"Asia/Tokyo"_s;
    }));
    EXPECT_EQ(zone->currentText(), u"Asia/Tokyo"_s);
    zone->showPopup();
    QTest::mouseClick(button(u"Use System Zone"_s), Qt::LeftButton);
    EXPECT_EQ(model.localZone(), u"Europe/Berlin"_s);

    systemZone.reset();
    model.refresh();
    const auto footers = view.findChildren<PaneFooter*>();
    EXPECT_TRUE(std::ranges::any_of(footers, [](const PaneFooter* footer) {
        return footer->accessibleName().endsWith(
            u"The system's time zone is unknown: local times are in UTC"_s);
    }));
}

TEST_F(TimestampToolViewTest, MovesAndRemovesZonesByKeyboardAndMouse) {
    const auto newYork = zoneRows()[1];
    EXPECT_EQ(newYork->texts().valueRemark, u"-1 day"_s);
    EXPECT_EQ(newYork->texts().remark, u"summer time"_s);
    EXPECT_EQ(newYork->toolTip(), u"America/New_York · -04:00 · summer time"_s);
    newYork->takeFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(model.otherZoneNames().mid(0, 2), (QStringList{u"America/New_York"_s, u"Europe/London"_s}));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
    EXPECT_EQ(model.otherZoneNames().first(), u"Europe/London"_s);

    const auto rows = zoneRows();
    const auto below = QPoint(20, rows[2]->y() - rows[0]->y() + 20);
    QTest::mousePress(rows[0], Qt::LeftButton, {}, QPoint(20, 20));
    QTest::mouseMove(rows[0], below);
    QTest::mouseRelease(rows[0], Qt::LeftButton, {}, below);
    EXPECT_EQ(model.otherZoneNames().mid(0, 3),
              (QStringList{u"America/Los_Angeles"_s, u"America/Sao_Paulo"_s, u"Europe/London"_s}));
    EXPECT_EQ(zoneRows()[2]->texts().title, u"London"_s);
}

} // namespace tarnquill
