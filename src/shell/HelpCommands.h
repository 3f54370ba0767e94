// The Help menu: the keys, where the product and its makers are found, and what the program is made of.
#pragma once

#include <QMenu>

namespace tarnquill {

class AppShellView;

class HelpCommands : public QMenu {
    Q_OBJECT

public:
    // The other menus, whose keys it shows, live as long as the window.
    HelpCommands(AppShellView& window, const QList<QMenu*>& menus);

private:
    void showAbout();

    AppShellView& m_window;
};

} // namespace tarnquill
