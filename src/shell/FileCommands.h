// The File menu.
#pragma once

#include <QMenu>

namespace tarnquill {

class AppShellView;

class FileCommands : public QMenu {
    Q_OBJECT

public:
    explicit FileCommands(AppShellView& window);

private:
    void updateOpen();
    void updateRecent();

    AppShellView& m_window;
    QAction* m_open;
    QMenu* m_recent;
};

} // namespace tarnquill
