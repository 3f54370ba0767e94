// What lies over a window: the focus ring, tooltips, popovers, alerts.
#include "chrome/Alert.h"
#include "chrome/FocusRing.h"
#include "chrome/PaneButton.h"
#include "chrome/Popover.h"
#include "chrome/Theme.h"
#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPointer>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

class OverlaysTest : public testing::Test {
protected:
    OverlaysTest() {
        Theme::instance().setReducedMotion(true);
        window.resize(800, 500);
        first = new PaneButton(u"First"_s, {}, PaneButton::Look::outlined, &window);
        second = new PaneButton(u"Second"_s, {}, PaneButton::Look::outlined, &window);
        first->setGeometry(100, 100, 80, 28);
        second->setGeometry(300, 100, 80, 28);
        window.show();
        window.activateWindow();
        waitUntil([&] { return window.isActiveWindow(); });
    }

    ~OverlaysTest() override { Theme::instance().setReducedMotion(false); }

    QColor pixel(const QPoint& place) {
        return window.grab(QRect(place, QSize(1, 1))).toImage().pixelColor(0, 0);
    }

    // Three pixels left of a control runs the line of its ring.
    bool hasRing(const QWidget* control) {
        letEventsPass(20);
        const QPoint edge(control->x() - 4, control->geometry().center().y());
        return pixel(edge) == themeColor(ColorRole::accent);
    }

    QWidget window;
    PaneButton* first;
    PaneButton* second;
};

TEST_F(OverlaysTest, TheRingGoesWithTheKeyboardAndNotWithTheMouse) {
    QTest::mouseClick(first, Qt::LeftButton);
    first->setFocus();
    EXPECT_FALSE(hasRing(first));
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(second->hasFocus());
    EXPECT_TRUE(hasRing(second));
    EXPECT_FALSE(hasRing(first));
    second->move(300, 200);
    EXPECT_TRUE(hasRing(second)) << "follows its control";
    second->hide();
    EXPECT_FALSE(hasRing(second));
}

TEST_F(OverlaysTest, ATextFieldHasItsHaloHoweverItWasReached) {
    QLineEdit field(&window);
    field.setGeometry(100, 300, 200, 28);
    field.show();
    field.setFocus(Qt::MouseFocusReason);
    letEventsPass(20);
    EXPECT_EQ(pixel({100, 314}), themeColor(ColorRole::accent));
    EXPECT_NE(pixel({99, 314}), themeColor(ColorRole::background));
    EXPECT_NE(pixel({99, 314}), themeColor(ColorRole::accent));
}

TEST_F(OverlaysTest, ATooltipStandsBelowItsControlInsideTheWindow) {
    second->move(window.width() - 90, 100);
    second->setToolTip(u"A text that is much wider than its control"_s);
    const QPoint inside(5, 5);
    QHelpEvent help(QEvent::ToolTip, inside, second->mapToGlobal(inside));
    QApplication::sendEvent(second, &help);
    EXPECT_EQ(pixel({window.width() - 20, 100 + 28 + 8 + 4}), themeColor(ColorRole::tooltip));
    EXPECT_NE(pixel({window.width() - 4, 100 + 28 + 8 + 4}), themeColor(ColorRole::tooltip));
    QTest::keyClick(second, Qt::Key_Shift);
    EXPECT_NE(pixel({window.width() - 20, 100 + 28 + 8 + 4}), themeColor(ColorRole::tooltip));
}

TEST_F(OverlaysTest, APopoverTakesTheKeyboardKeepsItAndGivesItBack) {
    auto* content = new QWidget;
    content->setFixedSize(200, 80);
    auto* one = new QLineEdit(content);
    auto* two = new QLineEdit(content);
    two->move(0, 40);
    Popover popover(u"Column Filters"_s, content, &window);
    QSignalSpy closed(&popover, &Popover::closed);
    first->setFocus();
    popover.openBelow(first);
    EXPECT_TRUE(one->hasFocus());
    QTest::keyClick(one, Qt::Key_Tab);
    EXPECT_TRUE(two->hasFocus());
    QTest::keyClick(two, Qt::Key_Tab);
    EXPECT_TRUE(one->hasFocus());
    QTest::keyClick(one, Qt::Key_Escape);
    EXPECT_FALSE(popover.isOpen());
    EXPECT_TRUE(first->hasFocus());

    popover.openBelow(first);
    QTest::mouseClick(one, Qt::LeftButton);
    EXPECT_TRUE(popover.isOpen());
    QSignalSpy pressed(second, &PaneButton::clicked);
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(700, 450));
    EXPECT_FALSE(popover.isOpen());
    EXPECT_EQ(closed.count(), 2);
}

class AlertTest : public OverlaysTest {
protected:
    void ask() {
        alert = new Alert(&window, {u"Support Tarnquill"_s,
                                    u"Tarnquill is free."_s,
                                    u"feather"_s,
                                    {{u"Buy me a coffee"_s, Alert::Role::main},
                                     {u"Not now"_s, Alert::Role::cancel},
                                     {u"Don't show again"_s, Alert::Role::optOut}}});
        QObject::connect(alert, &Alert::answered, [this](int index) { answers.append(index); });
    }

    QPointer<Alert> alert;
    QList<int> answers;
};

TEST_F(AlertTest, IsAnsweredByReturnEscapeAndItsButtons) {
    ask();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    ask();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    ask();
    QTest::mouseClick(alert->findChildren<PaneButton*>().at(2), Qt::LeftButton);
    EXPECT_EQ(answers, (QList<int>{0, 1, 2}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(alert.isNull());
}

TEST_F(AlertTest, LetsNothingElseBeDoneMeanwhile) {
    QShortcut shortcut(QKeySequence(u"Ctrl+O"_s), &window);
    QSignalSpy opened(&shortcut, &QShortcut::activated);
    QTest::keyClick(first, Qt::Key_O, Qt::ControlModifier);
    ASSERT_EQ(opened.count(), 1) << "the shortcut works without an alert";
    first->setFocus();
    ask();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(opened.count(), 1);
    EXPECT_EQ(window.childAt(first->geometry().center()), alert);
    for (int press = 0; press < 5; ++press) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(alert->isAncestorOf(QApplication::focusWidget()));
    }
    window.resize(900, 600);
    EXPECT_EQ(alert->size(), window.size());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(first->hasFocus());
}

} // namespace
} // namespace tarnquill
