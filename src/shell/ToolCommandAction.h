// A menu item that passes its command to the tool that is shown.
#pragma once

#include "chrome/ToolView.h"

#include <QKeySequence>
#include <QList>

class QMenu;

namespace tarnquill {

class AppShellView;

// Adds the item to the menu, and its keys to the window. It is disabled while the menu shows that the tool
// cannot perform it; its keys always reach the tool.
void addToolCommand(QMenu& menu, AppShellView& window, ToolCommand command, const QString& title,
                    const QList<QKeySequence>& shortcuts);

} // namespace tarnquill
