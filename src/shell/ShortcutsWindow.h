// All keys of the program's commands.
#pragma once

#include "shell/SecondaryWindow.h"

#include <QList>

class QMenu;

namespace tarnquill {

class ShortcutsWindow : public SecondaryWindow {
    Q_OBJECT

public:
    // The commands of these menus that have keys, and the keys that work inside the tools.
    ShortcutsWindow(QWidget* mainWindow, const QList<QMenu*>& menus);
};

} // namespace tarnquill
