#include "shell/HelpCommands.h"

#include "chrome/Alert.h"
#include "chrome/MessageView.h"
#include "chrome/PaneButton.h"
#include "chrome/TextLabel.h"
#include "chrome/TextView.h"
#include "chrome/testing/Browser.h"
#include "common/Settings.h"
#include "common/testing/WaitUntil.h"
#include "shell/AcknowledgementsWindow.h"
#include "shell/AppShellView.h"
#include "shell/BuiltInTools.h"
#include "shell/ProductAddresses.h"
#include "shell/ShortcutsWindow.h"
#include "shell/ViewCommands.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

// Those of a user who left the program with the JSON tool.
class SettingsWithJSON : public Settings {
public:
    explicit SettingsWithJSON(const QString& path) : Settings(path) {
        setValue(u"main/selectedToolID"_s, u"json"_s);
    }
};

class HelpCommandsTest : public testing::Test {
protected:
    void choose(const QString& title) {
        for (auto* const action : help.actions()) {
            if (action->text() == title) {
                action->trigger();
                return;
            }
        }
        ADD_FAILURE() << "no item " << title.toStdString();
    }

    void press(Alert& alert, const QString& title) {
        for (auto* const button : alert.findChildren<PaneButton*>()) {
            if (button->text() == title) {
                QTest::mouseClick(button, Qt::LeftButton);
            }
        }
    }

    Alert* alert() { return window.findChild<Alert*>(); }

    void useForDays(int days) {
        SupportPromptController controller(settings);
        for (int day = 1; day <= days; ++day) {
            controller.recordLaunch(now.addDays(-day));
        }
    }

    QTemporaryDir folder;
    SettingsWithJSON settings{folder.filePath(u"settings.ini"_s)};
    QDateTime now{QDate(2026, 3, 1), QTime(12, 0)};
    Browser browser;
    AppShellView window{builtInTools(), settings, [this] { return now; }};
    ViewCommands view{window};
    HelpCommands help{window, {&view}};
};

TEST_F(HelpCommandsTest, LeadsToTheMakersAndTellsTheVersions) {
    choose(u"Tarnquill Support"_s);
    EXPECT_EQ(browser.opened(), QList<QUrl>{ProductAddresses::support()});
    EXPECT_EQ(alert(), nullptr);
    choose(u"Copy Email Address"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), ProductAddresses::email());
    window.show();
    choose(u"About Tarnquill"_s);
    ASSERT_NE(alert(), nullptr);
    press(*alert(), u"Copy Versions"_s);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QString::fromLatin1(qVersion())));
}

TEST_F(HelpCommandsTest, GivesTheAddressWhenNoProgramOpensIt) {
    QDesktopServices::unsetUrlHandler(u"https"_s); // as offscreen, where there is no desktop
    choose(u"Privacy Policy"_s);
    ASSERT_NE(alert(), nullptr);
    EXPECT_EQ(alert()->accessibleDescription(), ProductAddresses::privacy().toString());
}

TEST_F(HelpCommandsTest, ListsTheKeysOfTheMenus) {
    choose(u"Keyboard Shortcuts"_s);
    const auto* const list = window.findChild<ShortcutsWindow*>();
    ASSERT_NE(list, nullptr);
    QStringList texts;
    for (const auto* const label : list->findChildren<TextLabel*>()) {
        texts.append(label->text());
    }
    EXPECT_TRUE(texts.contains(u"JSON"_s));
    EXPECT_TRUE(texts.contains(u"Ctrl+3"_s));
    EXPECT_FALSE(texts.contains(QString())) << "keys that the platform cannot name";
    choose(u"Keyboard Shortcuts"_s);
    EXPECT_EQ(window.findChildren<ShortcutsWindow*>().size(), 1) << "one window of a kind";
}

TEST_F(HelpCommandsTest, ShowsTheNoticesOrThatThereAreNone) {
    const auto path = folder.filePath(u"notices.md"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("# Notices\n");
    file.close();
    AcknowledgementsWindow shown(&window, path);
    EXPECT_EQ(shown.windowTitle(), u"Acknowledgements"_s);
    auto* const text = shown.findChild<TextView*>();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->buffer().text(), u"# Notices\n");
    EXPECT_TRUE(text->isReadOnly());

    const AcknowledgementsWindow missing(&window, folder.filePath(u"no such file"_s));
    EXPECT_NE(missing.findChild<MessageView*>(), nullptr);
}

TEST_F(HelpCommandsTest, AsksForSupportASecondAfterTheWindowIsThere) {
    useForDays(13);
    window.show();
    EXPECT_EQ(alert(), nullptr);
    ASSERT_TRUE(waitUntil([&] { return alert() != nullptr; }));
    EXPECT_EQ(alert()->accessibleName(), u"Support Tarnquill"_s);
    EXPECT_EQ(settings.value(u"supportPromptLastShown"_s).toDateTime(), now) << "before it is answered";
    press(*alert(), u"Buy me a coffee"_s);
    EXPECT_EQ(browser.opened(), QList<QUrl>{ProductAddresses::donation()});
    EXPECT_FALSE(settings.value(u"supportPromptOptOut"_s).toBool());
}

TEST_F(HelpCommandsTest, StopsAskingWhenToldToAndNeverAsksInAWindowThatIsClosed) {
    useForDays(13);
    window.show();
    window.close();
    letEventsPass(1'200);
    EXPECT_EQ(alert(), nullptr);
    EXPECT_EQ(settings.value(u"supportPromptLaunchDays"_s).toStringList().size(), 13);
    window.show();
    ASSERT_TRUE(waitUntil([&] { return alert() != nullptr; }));
    press(*alert(), u"Don't show again"_s);
    EXPECT_TRUE(settings.value(u"supportPromptOptOut"_s).toBool());
}

} // namespace
} // namespace tarnquill
