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

    AppShellView& m_window;
    QAction* m_open;
};

} // namespace tarnquill
