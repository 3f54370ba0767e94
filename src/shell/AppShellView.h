// The main window's content: the sidebar, the selected tool, and the way of files to the tools.
#pragma once

#include "shell/RecentFiles.h"
#include "shell/SupportPrompt.h"
#include "shell/ToolHost.h"

#include <QHash>
#include <QList>
#include <QUrl>
#include <QWidget>

class QMenu;
class QStackedWidget;

namespace tarnquill {

class Settings;
class SidebarView;
class Splitter;
class ToolView;

class AppShellView : public QWidget {
    Q_OBJECT

public:
    // Restores the window's place and selected tool from the settings and keeps them there. The catalogue and
    // the settings must outlive the view.
    AppShellView(const ToolCatalogue& catalogue, Settings& settings,
                 const SupportPrompt::Clock& clock = &QDateTime::currentDateTime);
    ~AppShellView() override;

    [[nodiscard]] const ToolCatalogue& catalogue() const { return m_catalogue; }
    [[nodiscard]] ToolHost& host() { return m_host; }

    // May name no tool at all, as one restored from another version does.
    [[nodiscard]] const QString& selectedToolID() const { return m_selectedToolID; }
    void selectTool(const QString& toolID);

    // Whether the selected tool opens files; false when no tool is selected.
    [[nodiscard]] bool activeToolOpensFiles() const;

    // The view of the selected tool, or the placeholder that asks to pick one.
    [[nodiscard]] ToolView& toolView() const;
    // Gives the keyboard to what the tool's view names as its focus proxy.
    void focusToolView();

    // Opens the files one after the other, each in the tool that accepts its extension. One that no tool
    // accepts is told in an alert, and those behind it wait until it is closed. What is not a file is passed
    // over.
    void open(const QList<QUrl>& urls);

    // The files that the tools have opened, also in earlier windows.
    [[nodiscard]] RecentFiles& recentFiles() { return m_recentFiles; }
    // Opens the file in the tool that it was opened in. One that is gone is forgotten, and the tool tells it.
    void openAgain(const RecentFiles::File& file);

    [[nodiscard]] bool isSidebarShown() const;
    void setSidebarShown(bool shown);

    // What the sidebar's menu button opens; none where the menus have a bar of their own.
    void setMenu(QMenu* menu);
    void showMenu();

    // Shows the window, in front of all others where the desktop lets it. `activationToken` is what the
    // desktop gave to the start that asks for it.
    void bringToFront(const QString& activationToken = {});

Q_SIGNALS:
    void selectedToolChanged();
    void sidebarShownChanged(bool shown);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void showSelectedTool();
    void openNext();
    void restore();
    void save();

    const ToolCatalogue& m_catalogue;
    Settings& m_settings;
    ToolHost m_host;
    RecentFiles m_recentFiles;
    SidebarView* m_sidebar;
    QStackedWidget* m_detail;
    Splitter* m_split;
    QMenu* m_menu = nullptr;
    QHash<QString, ToolView*> m_pages;
    QString m_selectedToolID;
    QList<QUrl> m_waiting;
    bool m_showsAlert = false;
};

} // namespace tarnquill
