// The View menu: which tool is shown, the sidebar, the look of the editors and the appearance.
#pragma once

#include <QMenu>

namespace tarnquill {

class AppShellView;

class ViewCommands : public QMenu {
    Q_OBJECT

public:
    explicit ViewCommands(AppShellView& window);

private:
    void addTools();
    void addSidebar();
    void addEditors();
    void addAppearances();

    AppShellView& m_window;
};

} // namespace tarnquill
