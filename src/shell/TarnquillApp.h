// The application: its window, its menus, and what the desktop and later starts ask of it.
#pragma once

#include "shell/AppShellView.h"
#include "shell/Preferences.h"

#include <QMenu>
#include <QObject>

namespace tarnquill {

class Settings;

struct LaunchRequest;

class TarnquillApp : public QObject {
    Q_OBJECT

public:
    // The settings must outlive the application. Needs a QApplication that has its look already.
    explicit TarnquillApp(Settings& settings);

    [[nodiscard]] AppShellView& mainWindow() { return m_window; }

    // Brings the window to the front and opens the files in it.
    void open(const LaunchRequest& request);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void addMenus();

    Preferences m_preferences;
    AppShellView m_window;
    QMenu m_menu;
};

} // namespace tarnquill
