#include "shell/TarnquillApp.h"

#include "common/Settings.h"
#include "shell/LaunchRequest.h"

#include <gtest/gtest.h>

#include <QApplication>
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
