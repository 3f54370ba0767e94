#include "shell/TarnquillApp.h"

#include "chrome/Alert.h"
#include "common/Settings.h"
#include "shell/BuiltInTools.h"
#include "shell/CommandPalette.h"
#include "shell/EditCommands.h"
#include "shell/FileCommands.h"
#include "shell/HelpCommands.h"
#include "shell/LaunchRequest.h"
#include "shell/ViewCommands.h"

#include <QApplication>
#include <QFileOpenEvent>
#include <QMenuBar>

namespace tarnquill {

TarnquillApp::TarnquillApp(Settings& settings) : m_preferences(settings), m_window(builtInTools(), settings) {
    addMenus();
    if (const auto& file = settings.damagedFile(); !file.isEmpty()) {
        Alert::say(&m_window, tr("Not all settings could be read"),
                   tr("What is missing from “%1” is as it was at the beginning.").arg(file));
    }
    qApp->installEventFilter(this);
}

// Where the desktop shows the menus of the active window in one place, they go there; elsewhere the sidebar
// has a button for them.
void TarnquillApp::addMenus() {
    auto* const view = new ViewCommands(m_window);
    QList<QMenu*> menus{new FileCommands(m_window), new EditCommands(m_window), view};
    menus.append(new HelpCommands(m_window, menus));
    new CommandPalette(m_window, menus, *view);
    auto* const bar = new QMenuBar(&m_window);
    if (bar->isNativeMenuBar()) {
        for (auto* const menu : menus) {
            bar->addMenu(menu);
        }
        m_window.setMenu(nullptr);
        return;
    }
    delete bar;
    for (auto* const menu : menus) {
        m_menu.addMenu(menu);
    }
    m_window.setMenu(&m_menu);
    auto* const showMenu = new QAction(&m_window);
    showMenu->setShortcut(Qt::Key_F10);
    connect(showMenu, &QAction::triggered, &m_window, &AppShellView::showMenu);
    m_window.addAction(showMenu);
}

void TarnquillApp::open(const LaunchRequest& request) {
    m_window.bringToFront(request.activationToken);
    QList<QUrl> urls;
    for (const auto& file : request.files) {
        urls.append(QUrl::fromLocalFile(file));
    }
    m_window.open(urls);
}

bool TarnquillApp::eventFilter(QObject* object, QEvent* event) {
    if (object == qApp && event->type() == QEvent::FileOpen) {
        m_window.bringToFront();
        m_window.open({static_cast<QFileOpenEvent*>(event)->url()});
        return true;
    }
    return QObject::eventFilter(object, event);
}

} // namespace tarnquill
