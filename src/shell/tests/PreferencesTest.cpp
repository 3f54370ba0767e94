#include "shell/Preferences.h"

#include "chrome/CodeEditor.h"
#include "chrome/ComboBox.h"
#include "chrome/EditorOptions.h"
#include "chrome/SegmentedPicker.h"
#include "chrome/Theme.h"
#include "common/Settings.h"
#include "common/testing/WaitUntil.h"
#include "shell/SettingsWindow.h"
#include "timestamp/TimestampToolViewModel.h"
#include "timestamp/ZonePicker.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLayout>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

class PreferencesTest : public testing::Test {
protected:
    void TearDown() override { forget(); }

    // What a start without any settings finds.
    void forget() {
        Settings none(folder.filePath(u"none.ini"_s));
        const Preferences defaults(none);
        Theme::instance().setAppearance(Appearance::light);
    }

    template <typename Control>
    Control& control(QWidget& window, const QString& name) {
        for (auto* const each : window.findChildren<Control*>()) {
            if (each->accessibleName() == name) {
                return *each;
            }
        }
        throw std::runtime_error("no control " + name.toStdString());
    }

    QTemporaryDir folder;
    Settings settings{folder.filePath(u"settings.ini"_s)};
    EditorOptions& options = EditorOptions::instance();
};

TEST_F(PreferencesTest, ComeBackAtTheNextStart) {
    {
        const Preferences chosen(settings);
        Theme::instance().setAppearance(Appearance::dark);
        options.setLineNumbersVisible(false);
        options.setWrapsLines(false);
        options.setFontSize(20);
    }
    forget();
    ASSERT_TRUE(options.showsLineNumbers());
    const Preferences later(settings);
    EXPECT_EQ(Theme::instance().appearance(), Appearance::dark);
    EXPECT_FALSE(options.showsLineNumbers());
    EXPECT_FALSE(options.wrapsLines());
    EXPECT_EQ(options.fontSize(), 20);
}

TEST_F(PreferencesTest, SurviveSettingsThatAreGarbage) {
    settings.setValue(u"appearance"_s, u"sepia"_s);
    settings.setValue(u"editorFont"_s, u"No Such Typeface"_s);
    settings.setValue(u"editorFontSize"_s, u"enormous"_s);
    const Preferences preferences(settings);
    EXPECT_EQ(Theme::instance().appearance(), Appearance::light);
    EXPECT_EQ(options.fontFamily(), QString());
    EXPECT_EQ(options.fontSize(), EditorOptions::kUsualFontSize);
    settings.setValue(u"editorFontSize"_s, 4'000);
    const Preferences others(settings);
    EXPECT_EQ(options.fontSize(), EditorOptions::kLargestFontSize);
}

TEST_F(PreferencesTest, AreChosenInTheSettingsWindowAndHoldAtOnce) {
    TimestampToolViewModel zones(settings);
    QWidget mainWindow;
    SecondaryWindow::present<SettingsWindow>(mainWindow, zones);
    auto& window = *mainWindow.findChild<SettingsWindow*>();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));

    auto& appearance = control<SegmentedPicker>(window, u"Appearance"_s);
    appearance.setFocus();
    QTest::keyClick(&appearance, Qt::Key_Right);
    EXPECT_EQ(Theme::instance().appearance(), Appearance::dark);

    CodeEditor editor;
    const auto rowHeight = [&editor] { return editor.caretRect(0).height(); };
    const auto before = rowHeight();
    auto& size = control<ComboBox>(window, u"Font size"_s);
    size.setCurrentIndex(size.findData(26));
    EXPECT_NEAR(rowHeight(), before * 2, 2);

    for (auto* const check : window.findChildren<QCheckBox*>()) {
        QTest::mouseClick(check, Qt::LeftButton, {}, QPoint(8, check->height() / 2));
    }
    EXPECT_FALSE(options.showsLineNumbers() || options.wrapsLines());

    const auto press = [&window](const QString& title) {
        for (auto* const button : window.findChildren<QAbstractButton*>()) {
            if (button->text() == title) {
                QTest::mouseClick(button, Qt::LeftButton);
            }
        }
    };
    press(u"Add…"_s);
    const auto& picker = *window.findChild<ZonePicker*>();
    const auto box = picker.geometry().marginsRemoved(picker.layout()->contentsMargins());
    EXPECT_TRUE(window.rect().contains(box));
    EXPECT_GT(box.height(), 200) << "however low the window is";
    auto* const search = QApplication::focusWidget();
    ASSERT_TRUE(picker.isAncestorOf(search));
    QTest::keyClicks(search, u"longyear"_s);
    ASSERT_TRUE(waitUntil([&] {
        QTest::keyClick(search, Qt::Key_Return);
        return zones.otherZoneNames().contains(u"Arctic/Longyearbyen"_s);
    }));
    auto& list = control<QListWidget>(window, u"Time zones"_s);
    ASSERT_EQ(list.count(), zones.otherZoneNames().size());
    list.setCurrentRow(list.count() - 1);
    press(u"Move Up"_s);
    EXPECT_EQ(zones.otherZoneNames().indexOf(u"Arctic/Longyearbyen"_s), list.count() - 2);

    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

} // namespace
} // namespace tarnquill
