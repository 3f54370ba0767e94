#include "shell/ToolChoices.h"

#include "chrome/ComboBox.h"
#include "chrome/KeyNames.h"
#include "chrome/PaneButton.h"
#include "chrome/SegmentedPicker.h"
#include "chrome/ToolView.h"
#include "chrome/Toolbar.h"

#include <QAction>
#include <QPointer>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

void press(PaneButton& button) {
    if (button.menu() != nullptr) {
        button.showMenu();
    } else {
        button.click();
    }
}

template <typename Picker>
void addValues(Picker& picker, const QStringList& titles, const QString& toolName, QList<Choice>& choices) {
    for (int index = 0; index < titles.size(); ++index) {
        choices.append({.title = picker.accessibleName() + u": "_s + titles[index],
                        .detail = toolName,
                        .symbol = index == picker.currentIndex() ? u"checkmark"_s : QString(),
                        .shortcut = {},
                        .choose = [picker = QPointer(&picker), index] {
                            if (picker != nullptr) {
                                picker->setCurrentIndex(index);
                            }
                        }});
    }
}

QStringList titlesOf(const ComboBox& box) {
    QStringList titles;
    for (int index = 0; index < box.count(); ++index) {
        titles.append(box.itemText(index));
    }
    return titles;
}

} // namespace

QList<Choice> toolChoices(const ToolView& tool, const QString& toolName) {
    const auto anyKey = KeyNames::forPlatform(u"⌘"_s);
    QList<Choice> choices;
    for (auto* const action : tool.actions()) {
        choices.append({.title = action->text(),
                        .detail = toolName,
                        .symbol = {},
                        .shortcut = action->shortcut().toString(QKeySequence::NativeText),
                        .choose = [action = QPointer(action)] {
                            if (action != nullptr) {
                                action->trigger();
                            }
                        }});
    }
    for (auto* const control : tool.findChildren<QWidget*>()) {
        const auto help = control->toolTip();
        if (!control->isVisible() || !control->isEnabled() || help.contains(anyKey) ||
            control == &tool.toolbar().sidebarButton()) {
            continue;
        }
        if (auto* const button = qobject_cast<PaneButton*>(control)) {
            choices.append({.title = button->text(),
                            .detail = help.isEmpty() || help == button->text() ? toolName : help,
                            .symbol = button->symbol(),
                            .shortcut = {},
                            .choose = [button = QPointer(button)] {
                                if (button != nullptr) {
                                    press(*button);
                                }
                            }});
        } else if (auto* const picker = qobject_cast<SegmentedPicker*>(control)) {
            addValues(*picker, picker->titles(), toolName, choices);
        } else if (auto* const box = qobject_cast<ComboBox*>(control)) {
            addValues(*box, titlesOf(*box), toolName, choices);
        }
    }
    return choices;
}

} // namespace tarnquill
