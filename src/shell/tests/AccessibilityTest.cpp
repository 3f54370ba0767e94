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
        }
    }
}

// Beside each other from left to right, and below each other from top to bottom.
TEST_F(AccessibilityTest, TabGoesThroughTheControlsInTheOrderOfReading) {
    for (const auto* const tool : window().catalogue().inSidebarOrder()) {
        window().selectTool(tool->id);
        waitUntil([&] { return !window().toolView().isWorking(); });
        auto* const start = window().toolView().nextInFocusChain();
        const QWidget* before = nullptr;
        for (auto* widget = start; widget != &window() && window().toolView().isAncestorOf(widget);
             widget = widget->nextInFocusChain()) {
            if (!widget->isVisible() || !widget->isEnabled() || (widget->focusPolicy() & Qt::TabFocus) == 0) {
                continue;
            }
            if (before != nullptr && before->parentWidget() == widget->parentWidget()) {
                const auto one = before->geometry();
                const auto other = widget->geometry();
                EXPECT_TRUE(other.left() >= one.right() || other.top() >= one.bottom())
                    << tool->id.toStdString() << ": " << before->metaObject()->className() << " “"
                    << before->accessibleName().toStdString() << "” before "
                    << widget->metaObject()->className() << " “" << widget->accessibleName().toStdString()
                    << "”";
            }
            before = widget;
        }
    }
}

} // namespace
} // namespace tarnquill
