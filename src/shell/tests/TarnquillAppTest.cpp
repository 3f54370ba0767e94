#include "shell/TarnquillApp.h"

#include "chrome/Alert.h"
#include "common/Settings.h"
#include "shell/LaunchRequest.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileOpenEvent>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

class TarnquillAppTest : public testing::Test {
protected:
    QTemporaryDir folder;
    Settings settings{folder.filePath(u"settings.ini"_s)};
    TarnquillApp app{settings};
};

TEST_F(TarnquillAppTest, ShowsTheWindowWithTheFilesOfARequest) {
    app.open({.files = {u"/tmp/table.csv"_s, u"/tmp/data.json"_s}});
    EXPECT_TRUE(app.mainWindow().isVisible());
    EXPECT_EQ(app.mainWindow().windowTitle(), u"Tarnquill"_s);
    EXPECT_EQ(app.mainWindow().selectedToolID(), u"json"_s);

    app.mainWindow().showMinimized();
    app.open({.files = {}});
    EXPECT_FALSE(app.mainWindow().isMinimized());
}

TEST_F(TarnquillAppTest, OpensWhatTheDesktopAsksItTo) {
    QFileOpenEvent event(u"/tmp/diagram.mmd"_s);
    QApplication::sendEvent(qApp, &event);
    EXPECT_TRUE(app.mainWindow().isVisible());
    EXPECT_EQ(app.mainWindow().selectedToolID(), u"mermaid"_s);
}

TEST(TarnquillAppStart, SaysThatSettingsAreGarbageAndGoesOn) {
    const QTemporaryDir folder;
    const auto path = folder.filePath(u"settings.ini"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("[main\n\x01 no settings\n");
    file.close();
    {
        Settings settings(path);
        TarnquillApp app(settings);
        app.open({.files = {}});
        const auto* const alert = app.mainWindow().findChild<Alert*>();
        ASSERT_NE(alert, nullptr);
        EXPECT_EQ(alert->accessibleName(), u"Not all settings could be read"_s);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&app.mainWindow()));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        EXPECT_FALSE(alert->isVisible());
        app.mainWindow().selectTool(u"json"_s);
    }
    const Settings later(path);
    EXPECT_EQ(later.value(u"main/selectedToolID"_s), u"json"_s);
    EXPECT_EQ(later.damagedFile(), QString());
}

TEST_F(TarnquillAppTest, PopsItsMenusByKeyboardWithAndWithoutTheSidebar) {
    app.open({.files = {}});
    ASSERT_TRUE(QTest::qWaitForWindowActive(&app.mainWindow()));
    for (const bool sidebarShown : {true, false}) {
        app.mainWindow().setSidebarShown(sidebarShown);
        QTest::keyClick(&app.mainWindow(), Qt::Key_F10);
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->actions().first()->text(), u"File"_s);
        menu->close();
    }
}

} // namespace
} // namespace tarnquill
