// The View menu: which tool is shown, the sidebar, the look of the editors and the appearance.
#pragma once

#include <QMenu>

class QSettings;

namespace tarnquill {

class AppShellView;

class ViewCommands : public QMenu {
    Q_OBJECT

public:
    // What is chosen is kept in the settings, which must outlive the menu.
    ViewCommands(AppShellView& window, QSettings& settings);

    // Gives the theme the appearance that was chosen last.
    static void restoreAppearance(const QSettings& settings);

private:
    void addTools();
    void addSidebar();
    void addEditors(QSettings& settings);
    void addAppearances(QSettings& settings);

    AppShellView& m_window;
};

} // namespace tarnquill
