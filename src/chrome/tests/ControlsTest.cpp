// Buttons, pickers and the search bar, worked by real keys and clicks.
#include "chrome/BadgeLabel.h"
#include "chrome/ComboBox.h"
#include "chrome/FindBar.h"
#include "chrome/FocusOrder.h"
#include "chrome/KeyNames.h"
#include "chrome/PaneButton.h"
#include "chrome/SearchBar.h"
#include "chrome/SegmentedPicker.h"
#include "chrome/Theme.h"
#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

QMenu* openMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

TEST(PaneButtonTest, KeepsItsWidthWhileItSaysCopiedAndComesBack) {
    PaneButton button(u"Copy"_s, u"doc.on.doc"_s);
    button.reserveCopied();
    const QSize before = button.sizeHint();
    button.resize(before);
    const QImage resting = button.grab().toImage();
    button.flashCopied();
    EXPECT_EQ(button.sizeHint(), before);
    EXPECT_NE(button.grab().toImage(), resting);
    EXPECT_TRUE(waitUntil([&] { return !button.isFlashing(); }, 3000));
    EXPECT_EQ(button.grab().toImage(), resting);
}

TEST(PaneButtonTest, IsPressedByEveryUsualKey) {
    PaneButton button(u"Clear"_s, u"trash"_s);
    QSignalSpy clicked(&button, &PaneButton::clicked);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(&button, key);
    }
    EXPECT_EQ(clicked.count(), 3);
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 3);
}

TEST(PaneButtonTest, OpensItsMenuBelowItselfByMouseAndKeyboard) {
    PaneButton button(u"Export"_s, u"share"_s, PaneButton::Look::outlined);
    QMenu menu;
    QSignalSpy chosen(menu.addAction(u"PNG"_s), &QAction::triggered);
    button.setMenu(&menu);
    button.show();
    QTest::mousePress(&button, Qt::LeftButton);
    ASSERT_EQ(openMenu(), &menu);
    EXPECT_GE(menu.actionGeometry(menu.actions().constFirst()).translated(menu.pos()).top(),
              button.mapToGlobal(QPoint(0, button.height())).y());
    menu.close();
    EXPECT_FALSE(button.isDown());
    QTest::keyClick(&button, Qt::Key_Down);
    ASSERT_EQ(openMenu(), &menu);
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_EQ(chosen.count(), 1);
}

TEST(PaneButtonTest, ShowsAToggleThatIsOn) {
    PaneButton button(u"Unpack"_s, u"shippingbox"_s, PaneButton::Look::outlined);
    button.setCheckable(true);
    button.resize(button.sizeHint());
    const auto fill = [&] { return button.grab().toImage().pixelColor(4, button.height() / 2); };
    EXPECT_EQ(fill(), themeColor(ColorRole::background));
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(fill(), themeColor(ColorRole::accentTint));
}

TEST(SegmentedPickerTest, FollowsArrowsAndClicksAndStopsAtItsEnds) {
    SegmentedPicker picker({u"Base64"_s, u"URL"_s, u"HTML"_s});
    picker.resize(picker.sizeHint());
    QSignalSpy changed(&picker, &SegmentedPicker::currentIndexChanged);
    QTest::keyClick(&picker, Qt::Key_Left);
    EXPECT_EQ(changed.count(), 0);
    QTest::keyClick(&picker, Qt::Key_Right);
    EXPECT_EQ(picker.currentIndex(), 1);
    QTest::keyClick(&picker, Qt::Key_End);
    QTest::keyClick(&picker, Qt::Key_Right);
    EXPECT_EQ(picker.currentIndex(), 2);
    QTest::mouseClick(&picker, Qt::LeftButton, {}, QPoint(10, 14));
    EXPECT_EQ(picker.currentIndex(), 0);
    EXPECT_EQ(changed.count(), 3);
}

TEST(ComboBoxTest, ChoosesFromAMenuAndIsNotChangedByTheWheel) {
    ComboBox combo;
    combo.addItems({u"2 spaces"_s, u"4 spaces"_s, u"Tabs"_s});
    combo.show();
    QTest::mousePress(&combo, Qt::LeftButton);
    QMenu* menu = openMenu();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->activeAction(), menu->actions().constFirst());
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ(combo.currentIndex(), 1);

    QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, QPoint(0, -120), Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&combo, &wheel);
    EXPECT_EQ(combo.currentIndex(), 1);
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(combo.currentIndex(), 2);
}

TEST(SearchBarTest, GoesToMatchesByKeysAndButtonsOnlyWhereThereAreAny) {
    SearchBar bar(SearchBar::Parts::withNavigation);
    bar.resize(400, 28);
    QSignalSpy next(&bar, &SearchBar::nextRequested);
    QSignalSpy previous(&bar, &SearchBar::previousRequested);
    QSignalSpy typed(&bar, &SearchBar::textChanged);
    QTest::keyClicks(&bar.field(), u"in"_s);
    EXPECT_EQ(typed.count(), 2);
    QTest::keyClick(&bar.field(), Qt::Key_Return);
    QTest::keyClick(&bar.field(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(next.count(), 1);
    EXPECT_EQ(previous.count(), 1);

    const auto buttons = bar.findChildren<PaneButton*>();
    const auto named = [&](const QString& name) {
        return *std::ranges::find(buttons, name,
                                  [](const PaneButton* each) { return each->accessibleName(); });
    };
    EXPECT_FALSE(named(u"Next match"_s)->isEnabled());
    bar.setCount(u"1 of 2 matches"_s, true);
    QTest::mouseClick(named(u"Next match"_s), Qt::LeftButton);
    EXPECT_EQ(next.count(), 2);
    QTest::mouseClick(named(u"Clear search"_s), Qt::LeftButton);
    EXPECT_TRUE(bar.text().isEmpty());
}

TEST(SearchBarTest, EmptiesItselfByEscapeAndThenGivesUp) {
    SearchBar bar(SearchBar::Parts::fieldOnly);
    QSignalSpy cancelled(&bar, &SearchBar::cancelled);
    bar.setText(u"in"_s);
    QTest::keyClick(&bar.field(), Qt::Key_Escape);
    EXPECT_TRUE(bar.text().isEmpty());
    EXPECT_EQ(cancelled.count(), 0);
    QTest::keyClick(&bar.field(), Qt::Key_Escape);
    EXPECT_EQ(cancelled.count(), 1);
}

TEST(SearchBarTest, TellsWhichScopeIsChosen) {
    SearchBar bar(SearchBar::Parts::withNavigation);
    bar.setScopes({u"All text"_s, u"Keys"_s, u"Values"_s}, u"Search all text, only keys, or only values"_s);
    bar.show();
    QSignalSpy changed(&bar, &SearchBar::scopeChanged);
    QTest::mousePress(bar.findChild<PaneButton*>(), Qt::LeftButton);
    ASSERT_NE(openMenu(), nullptr);
    openMenu()->actions().at(2)->trigger();
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(bar.scope(), 2);
    openMenu()->close();
}

TEST(FindBarTest, OpensWithTheKeyboardInItAndClosesByEscape) {
    QWidget window;
    FindBar bar(&window);
    window.show();
    window.activateWindow();
    QSignalSpy changed(&bar, &FindBar::openChanged);
    bar.open();
    bar.open();
    EXPECT_TRUE(waitUntil([&] { return bar.height() == 44 && bar.search().field().hasFocus(); }));
    QTest::keyClicks(&bar.search().field(), u"the"_s);
    QTest::keyClick(&bar.search().field(), Qt::Key_Escape);
    EXPECT_FALSE(bar.isOpen());
    EXPECT_TRUE(waitUntil([&] { return bar.isHidden(); }));
    EXPECT_EQ(bar.search().text(), u"the"_s) << "the next search starts from the last one";
    EXPECT_EQ(changed.count(), 2);
}

TEST(AccessibilityTest, ControlsSayWhatTheyAreAndWhatIsChosen) {
    const auto role = [](QWidget& widget) { return QAccessible::queryAccessibleInterface(&widget)->role(); };
    PaneButton button(u"Open"_s, u"folder-open"_s);
    button.setIconOnly(true);
    EXPECT_EQ(role(button), QAccessible::PushButton);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name), u"Open"_s);
    SegmentedPicker picker({u"Format"_s, u"Minify"_s});
    picker.setCurrentIndex(1);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&picker)->text(QAccessible::Value), u"Minify"_s);
    BadgeLabel badge(PaneBadge{u"VALID"_s});
    EXPECT_EQ(role(badge), QAccessible::StaticText);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&badge)->text(QAccessible::Name), u"VALID"_s);
}

TEST(FocusOrderTest, GoesFromRowToRowWhateverIsHiddenThere) {
    QWidget area;
    QLineEdit hidden(&area);
    hidden.setGeometry(0, 0, 10, 100);
    hidden.hide();
    QLineEdit upper(&area);
    upper.setGeometry(100, 10, 80, 20);
    QLineEdit lowerRight(&area);
    lowerRight.setGeometry(200, 40, 80, 20);
    QLineEdit lowerLeft(&area);
    lowerLeft.setGeometry(0, 40, 80, 20);
    area.show();
    QApplication::setActiveWindow(&area);
    upper.setFocus();
    for (const auto* const next : {&lowerLeft, &lowerRight, &upper}) {
        ASSERT_TRUE(FocusOrder::step(area, FocusOrder::Direction::next));
        EXPECT_TRUE(next->hasFocus());
    }
}

TEST(KeyNamesTest, WritesKeysByNameWhereTheyHaveNoSigns) {
    using KeyNames::Platform;
    const auto text = u"Open a JSON file (⌘O), go back with ⇧⌘G — or ⌥⌘F"_s;
    EXPECT_EQ(KeyNames::forPlatform(text, Platform::mac), text);
    EXPECT_EQ(KeyNames::forPlatform(text, Platform::other),
              u"Open a JSON file (Ctrl+O), go back with Ctrl+Shift+G — or Ctrl+Alt+F"_s);
}

} // namespace
} // namespace tarnquill
