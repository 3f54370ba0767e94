#include "chrome/CodeEditor.h"
#include "chrome/WebPageView.h"
#include "common/testing/WaitUntil.h"
#include "shell/ToolCatalogue.h"
#include "shell/tests/ShellWindowFixture.h"

#include <QAccessible>

#include <set>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

class AccessibilityTest : public ShellWindowTest {
protected:
    // Every thing that is seen and that a user can do something with, from the window down. Pages describe
    // themselves.
    static void collect(QAccessibleInterface* thing, QList<QAccessibleInterface*>& found) {
        if (thing == nullptr || !thing->isValid() || thing->state().invisible) {
            return;
        }
        static const std::set kControls{
            QAccessible::PushButton,  QAccessible::CheckBox,     QAccessible::RadioButton,
            QAccessible::ComboBox,    QAccessible::EditableText, QAccessible::List,
            QAccessible::Table,       QAccessible::ButtonMenu,   QAccessible::ButtonDropDown,
            QAccessible::PageTabList, QAccessible::Slider,       QAccessible::SpinBox};
        if (kControls.contains(thing->role()) || thing->state().focusable) {
            found.append(thing);
        }
        if (qobject_cast<WebPageView*>(thing->object()) == nullptr) {
            for (int index = 0; index < thing->childCount() && index < 200; ++index) {
                collect(thing->child(index), found);
            }
        }
    }

    // Without a desktop nobody gives the window the keyboard back once another one has come and gone.
    QWidget* keyboard() {
        window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        return QApplication::focusWidget();
    }

    // An editor takes Tab for itself, and a page for what is in it.
    static void pressTab(QWidget& focused, Qt::Key key) {
        auto* page = &focused;
        while (page != nullptr && qobject_cast<WebPageView*>(page) == nullptr) {
            page = page->parentWidget();
        }
        const bool isEditor = qobject_cast<CodeEditor*>(&focused) != nullptr;
        QTest::keyClick(page != nullptr ? page : &focused, key,
                        isEditor ? Qt::ControlModifier : Qt::NoModifier);
    }

    // The stops on the way from where the keyboard is, until one comes again.
    QList<const QWidget*> walk(Qt::Key key) {
        QList<const QWidget*> stops;
        for (auto* stop = keyboard(); !stops.contains(stop); stop = keyboard()) {
            EXPECT_TRUE(window().rect().contains(stop->mapTo(&window(), stop->rect().center())))
                << "“" << stop->accessibleName().toStdString() << "” is scrolled out of sight";
            stops.append(stop);
            pressTab(*stop, key);
        }
        return stops;
    }

    static std::string describe(const QAccessibleInterface& thing) {
        const auto* const object = thing.object();
        return (object != nullptr ? object->metaObject()->className() : "a part") + std::string(" in ") +
               (object != nullptr && object->parent() != nullptr ? object->parent()->metaObject()->className()
                                                                 : "nothing");
    }
};

TEST_F(AccessibilityTest, EveryControlOfEveryToolHasANameAndARole) {
    for (const auto* const tool : window().catalogue().inSidebarOrder()) {
        window().selectTool(tool->id);
        waitUntil([&] { return !window().toolView().isWorking(); });
        QList<QAccessibleInterface*> controls;
        collect(QAccessible::queryAccessibleInterface(&window()), controls);
        EXPECT_GT(controls.size(), 5) << tool->id.toStdString();
        for (auto* const control : controls) {
            const auto where = tool->id.toStdString() + ": " + describe(*control);
            EXPECT_FALSE(control->text(QAccessible::Name).isEmpty()) << where;
            EXPECT_NE(control->role(), QAccessible::NoRole) << where;
            if (control->role() == QAccessible::ComboBox) {
                EXPECT_NE(control->text(QAccessible::Name), control->text(QAccessible::Value)) << where;
            }
        }
    }
}

// Beside each other from left to right, and below each other from top to bottom, as seen from what holds
// both.
bool isReadBefore(const QWidget& one, const QWidget& other) {
    constexpr int kOverlap = 4; // of a divider's grab area
    const auto* holder = one.parentWidget();
    while (!holder->isAncestorOf(&other)) {
        holder = holder->parentWidget();
    }
    const auto partWith = [holder](const QWidget* widget) {
        while (widget->parentWidget() != holder) {
            widget = widget->parentWidget();
        }
        return widget->geometry();
    };
    const auto before = partWith(&one);
    const auto after = partWith(&other);
    return before.right() - kOverlap <= after.left() || before.bottom() - kOverlap <= after.top();
}

TEST_F(AccessibilityTest, TabGoesThroughAllControlsInTheOrderOfReading) {
    window().resize(window().minimumSize());
    for (const auto* const tool : window().catalogue().inSidebarOrder()) {
        window().selectTool(tool->id);
        window().focusToolView();
        waitUntil([&] { return !window().toolView().isWorking(); });
        walk(Qt::Key_Backtab);
        const auto stops = walk(Qt::Key_Tab);
        EXPECT_EQ(stops.first(), keyboard()) << tool->id.toStdString() << ": a round";
        int turns = 0; // to the beginning
        for (qsizetype index = 0; index < stops.size(); ++index) {
            const auto* const next = stops.at((index + 1) % stops.size());
            if (!isReadBefore(*stops.at(index), *next)) {
                EXPECT_LT(turns++, 1)
                    << tool->id.toStdString() << ": “" << stops.at(index)->accessibleName().toStdString()
                    << "” before “" << next->accessibleName().toStdString() << "”";
            }
        }
        for (const auto* const widget : window().findChildren<QWidget*>()) {
            if (widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0 &&
                widget->focusProxy() == nullptr) {
                EXPECT_TRUE(stops.contains(widget))
                    << tool->id.toStdString() << ": “" << widget->accessibleName().toStdString() << "”";
            }
        }
    }
}

} // namespace
} // namespace tarnquill
