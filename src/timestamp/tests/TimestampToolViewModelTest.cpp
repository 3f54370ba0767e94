#include "timestamp/TimestampToolViewModel.h"

#include "common/Settings.h"
#include "common/testing/WaitUntil.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnquill {

using namespace Qt::StringLiterals;

using Timestamp::UnitChoice;

class TimestampToolViewModelTest : public testing::Test {
protected:
    Timestamp::Instant now{.seconds = 1'790'553'600, .nanoseconds = 250'000'000};
    std::optional<std::string> systemZone = "Europe/Berlin";
    QTemporaryDir folder;
    Settings settings{folder.filePath(u"settings.ini"_s)};

    [[nodiscard]] std::unique_ptr<TimestampToolViewModel> makeModel() {
        return std::make_unique<TimestampToolViewModel>(
            settings, [this] { return now; }, [this] { return systemZone; });
    }

    [[nodiscard]] static QString value(const TimestampToolViewModel& model, std::string_view label) {
        const auto rows = model.rows().value();
        for (const auto& row : rows) {
            if (row.label == label) {
                return QString::fromStdString(row.value);
            }
        }
        return {};
    }
};

TEST_F(TimestampToolViewModelTest, ShowsASampleFirst) {
    const auto model = makeModel();
    EXPECT_EQ(model->text(), u"1790380800"_s);
    EXPECT_EQ(model->formName(), u"Unix seconds"_s);
    EXPECT_EQ(model->note(),
              u"Unix seconds since 1970, judged by its size. Choose a unit to read it otherwise."_s);
    EXPECT_EQ(model->relativeText(), u"2 days ago"_s);
    EXPECT_EQ(value(*model, "ISO 8601, local"), u"2026-09-26T02:00:00+02:00"_s);
    ASSERT_EQ(model->otherZones().size(), 8U);
    const auto newYork = model->otherZones()[1];
    EXPECT_EQ(newYork.city, u"New York"_s);
    EXPECT_EQ(newYork.time->clock, "20:00:00");
    EXPECT_EQ(newYork.time->dayDifference, -1);
}

TEST_F(TimestampToolViewModelTest, ReadsWhatIsTypedAtOnce) {
    const auto model = makeModel();
    const QSignalSpy changed(model.get(), &TimestampToolViewModel::resultChanged);
    model->setText(u"2026-01-01 00:00"_s);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(value(*model, "ISO 8601, UTC"), u"2025-12-31T23:00:00Z"_s);
    model->setText(u"2026-01-01 00:0"_s);
    EXPECT_EQ(model->failure(), Timestamp::Failure::unrecognised);
    EXPECT_EQ(model->instant(), std::nullopt);
    EXPECT_EQ(model->rows(), std::nullopt);
    EXPECT_EQ(model->relativeText(), QString());
    EXPECT_EQ(model->otherZones().front().time, std::nullopt);
}

TEST_F(TimestampToolViewModelTest, WritesNowInTheChosenUnit) {
    const auto model = makeModel();
    const QSignalSpy replaced(model.get(), &TimestampToolViewModel::textReplaced);
    model->useNow();
    EXPECT_EQ(model->text(), u"1790553600"_s);
    EXPECT_EQ(model->relativeText(), u"now"_s);
    model->setUnit(UnitChoice::milliseconds);
    model->useNow();
    EXPECT_EQ(model->text(), u"1790553600250"_s);
    EXPECT_EQ(model->formName(), u"Unix milliseconds"_s);
    EXPECT_EQ(replaced.count(), 2);
    now.seconds += 90;
    model->refresh();
    EXPECT_EQ(model->relativeText(), u"2 minutes ago"_s);
}

TEST_F(TimestampToolViewModelTest, RemembersUnitAndZonesButNeverTheInput) {
    {
        const auto model = makeModel();
        model->setUnit(UnitChoice::microseconds);
        model->setLocalZone(u"Asia/Kathmandu"_s);
        model->addZone(u"Pacific/Auckland"_s);
        model->addZone(u"Pacific/Auckland"_s);
        model->addZone(u"Mars/Olympus"_s);
        model->moveZone(8, 0);
        model->removeZone(1);
        model->setText(u"987654321"_s);
    }
    const auto model = makeModel();
    EXPECT_EQ(model->unit(), UnitChoice::microseconds);
    EXPECT_EQ(model->localZone(), u"Asia/Kathmandu"_s);
    EXPECT_EQ(model->otherZoneNames().size(), 8);
    EXPECT_EQ(model->otherZoneNames().mid(0, 2), (QStringList{u"Pacific/Auckland"_s, u"America/New_York"_s}));
    for (const auto& key : settings.keys()) {
        EXPECT_FALSE(settings.value(key).toString().contains(u"987654321"_s)) << key.toStdString();
    }
}

TEST_F(TimestampToolViewModelTest, KeepsAnEmptyListOfZonesEmpty) {
    {
        const auto model = makeModel();
        while (!model->otherZoneNames().isEmpty()) {
            model->removeZone(0);
        }
    }
    EXPECT_TRUE(makeModel()->otherZoneNames().isEmpty());
}

TEST_F(TimestampToolViewModelTest, PassesOverSettingsThatAreGarbage) {
    settings.setValue(u"timestamp/unit"_s, u"fortnights"_s);
    settings.setValue(u"timestamp/localZone"_s, QByteArray("\xFF\0", 2));
    settings.setValue(u"timestamp/zones"_s, QStringList{u"Mars/Olympus"_s, u"UTC"_s, u"UTC"_s, QString()});
    const auto model = makeModel();
    EXPECT_EQ(model->unit(), UnitChoice::automatic);
    EXPECT_EQ(model->localZone(), u"Europe/Berlin"_s);
    EXPECT_EQ(model->otherZoneNames(), QStringList{u"UTC"_s});
}

TEST_F(TimestampToolViewModelTest, FollowsTheSystemsZoneUntilAnotherIsChosen) {
    const auto model = makeModel();
    const QSignalSpy changed(model.get(), &TimestampToolViewModel::localZoneChanged);
    systemZone = "Asia/Tokyo";
    model->refresh();
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(model->localOffset(), u"+09:00"_s);
    model->setLocalZone(u"Europe/London"_s);
    systemZone = "Europe/Berlin";
    model->refresh();
    EXPECT_EQ(model->localZone(), u"Europe/London"_s);
    model->setLocalZone({});
    EXPECT_TRUE(model->followsSystemZone());
    EXPECT_EQ(model->localZone(), u"Europe/Berlin"_s);

    EXPECT_TRUE(model->isLocalZoneKnown());
    systemZone.reset();
    model->refresh();
    EXPECT_FALSE(model->isLocalZoneKnown());
    EXPECT_EQ(model->localZone(), u"UTC"_s);
    const auto changes = changed.count();
    model->refresh();
    EXPECT_EQ(changed.count(), changes);
}

TEST_F(TimestampToolViewModelTest, BuildsATimeOnTheLocalClock) {
    const auto model = makeModel();
    auto time = model->localTime();
    EXPECT_EQ(time, (CivilTime{.date = {.year = 2026, .month = 9, .day = 26}, .hour = 2}));
    time.date = {.year = 1999, .month = 12, .day = 31};
    time.minute = 5;
    model->setLocalTime(time);
    EXPECT_EQ(model->text(), u"1999-12-31T02:05:00"_s);
    EXPECT_EQ(model->localTime(), time);
    EXPECT_EQ(value(*model, "ISO 8601, UTC"), u"1999-12-31T01:05:00Z"_s);
}

TEST_F(TimestampToolViewModelTest, ReadsAPastedListLineByLine) {
    const auto model = makeModel();
    const QAbstractItemModelTester tester(&model->lines(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QSignalSpy listed(model.get(), &TimestampToolViewModel::listChanged);
    model->take(u"0\nnonsense\n2026-09-26\n"_s);
    EXPECT_TRUE(model->isListShown());
    ASSERT_TRUE(waitUntil([&] { return listed.count() == 1; }));
    auto& lines = model->lines();
    ASSERT_EQ(lines.rowCount(), 3);
    EXPECT_EQ(lines.index(0, 2).data(), u"1970-01-01T00:00:00Z"_s);
    EXPECT_EQ(lines.index(1, 0).data(), u"nonsense"_s);
    EXPECT_EQ(lines.index(1, 0).data(LineTableModel::kIsFailureRole), true);
    EXPECT_EQ(lines.index(2, 3).data(), u"2026-09-26T00:00:00+02:00"_s);
    EXPECT_EQ(model->instant()->seconds, 0);

    model->setCurrentLine(2);
    EXPECT_EQ(model->formName(), u"ISO 8601"_s);
    model->setLocalZone(u"UTC"_s);
    ASSERT_TRUE(waitUntil([&] { return listed.count() == 2; }));
    EXPECT_EQ(lines.index(2, 3).data(), u"2026-09-26T00:00:00Z"_s);
    EXPECT_EQ(model->currentLine(), 2);
    EXPECT_EQ(model->instant()->seconds, 1'790'380'800);

    const QSignalSpy copied(model.get(), &TimestampToolViewModel::linesCopied);
    model->copyLines(2, 1);
    ASSERT_TRUE(waitUntil([&] { return copied.count() == 1; }));
    EXPECT_TRUE(copied[0][0].toString().endsWith(
        u"\n2026-09-26\tISO 8601\t2026-09-26T00:00:00Z\t2026-09-26T00:00:00Z\t1790380800\n"_s));
}

TEST_F(TimestampToolViewModelTest, GivesTheTextBackWhenTheListIsCleared) {
    const auto model = makeModel();
    model->take(u"1\n2"_s);
    model->setText(u"1790380801"_s); // the field may still change
    model->clear();
    EXPECT_FALSE(model->isListShown());
    EXPECT_EQ(model->lines().rowCount(), 0);
    EXPECT_EQ(model->text(), u"1790380801"_s);
    EXPECT_EQ(model->instant()->seconds, 1'790'380'801);
    letEventsPass(30);
    EXPECT_EQ(model->lines().rowCount(), 0);
    model->clear();
    EXPECT_EQ(model->failure(), Timestamp::Failure::empty);
}

TEST_F(TimestampToolViewModelTest, TakesAnOverlongLineAsAList) {
    const auto model = makeModel();
    model->take(QString(5'000'000, u'1'));
    ASSERT_TRUE(waitUntil([&] { return model->lines().rowCount() == 1; }));
    EXPECT_LT(model->lines().index(0, 0).data().toString().size(), 1'000);
    EXPECT_EQ(model->failure(), Timestamp::Failure::unrecognised);
    model->take(u" 5\n"_s);
    EXPECT_FALSE(model->isListShown());
    EXPECT_EQ(model->text(), u"5"_s);
}

} // namespace tarnquill
