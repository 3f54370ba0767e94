#include "shell/SupportPromptController.h"

#include "common/Settings.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QTemporaryDir>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

class SupportPromptControllerTest : public testing::Test {
protected:
    void useForDays(int days) {
        for (int day = 0; day < days; ++day) {
            now = now.addDays(1);
            controller.recordLaunch(now);
        }
    }

    QTemporaryDir folder;
    Settings settings{folder.filePath(u"settings.ini"_s)};
    SupportPromptController controller{settings};
    QDateTime now{QDate(2026, 3, 1), QTime(23, 59)};
};

TEST_F(SupportPromptControllerTest, AsksOnTheFourteenthDayOfUse) {
    useForDays(13);
    controller.recordLaunch(now.addSecs(-60));
    EXPECT_FALSE(controller.shouldShow(now)) << "thirteen days, one of them twice";
    useForDays(1);
    EXPECT_TRUE(controller.shouldShow(now));
    useForDays(5);
    EXPECT_EQ(settings.value(u"supportPromptLaunchDays"_s).toStringList().size(), 14);
    EXPECT_EQ(settings.value(u"supportPromptLaunchDays"_s).toStringList().first(), u"2026-03-02"_s);
}

TEST_F(SupportPromptControllerTest, AsksAtMostOnceAMonthWhateverTheClockDoes) {
    useForDays(14);
    controller.recordShown(now);
    EXPECT_FALSE(controller.shouldShow(now.addSecs(2'592'000 - 1)));
    EXPECT_TRUE(controller.shouldShow(now.addSecs(2'592'000)));
    EXPECT_FALSE(controller.shouldShow(now.addDays(-400))) << "the clock was set back";
    settings.setValue(u"supportPromptLastShown"_s, u"garbage"_s);
    EXPECT_TRUE(controller.shouldShow(now)) << "no date";
}

TEST_F(SupportPromptControllerTest, NeverAsksAgainOnceToldSo) {
    useForDays(14);
    controller.optOut();
    EXPECT_FALSE(controller.shouldShow(now.addYears(5)));
}

} // namespace
} // namespace tarnquill
