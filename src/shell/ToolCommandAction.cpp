#include "shell/ToolCommandAction.h"

#include "shell/AppShellView.h"

#include <QMenu>

namespace tarnquill {

void addToolCommand(QMenu& menu, AppShellView& window, ToolCommand command, const QString& title,
                    const QList<QKeySequence>& shortcuts) {
    auto* const action =
        menu.addAction(title, &window, [&window, command] { window.toolView().perform(command); });
    action->setShortcuts(shortcuts);
    window.addAction(action);
    QObject::connect(&menu, &QMenu::aboutToShow, action, [&window, action, command] {
        action->setEnabled(window.toolView().canPerform(command));
    });
    QObject::connect(&menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
}

} // namespace tarnquill
