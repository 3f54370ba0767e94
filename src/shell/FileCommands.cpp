#include "shell/FileCommands.h"

#include "chrome/ToolView.h"
#include "shell/AppShellView.h"
#include "shell/SettingsWindow.h"

#include <QCoreApplication>

namespace tarnquill {

FileCommands::FileCommands(AppShellView& window)
    : QMenu(tr("File"), &window), m_window(window), m_open(addAction(tr("Open…"))) {
    m_open->setShortcut(QKeySequence::Open);
    connect(m_open, &QAction::triggered, this, [this] {
        m_window.bringToFront();
        // A turn later, so that the window is there and its tool listens.
        QMetaObject::invokeMethod(
            &m_window, [this] { m_window.toolView().perform(ToolCommand::openFile); }, Qt::QueuedConnection);
    });
    connect(&m_window, &AppShellView::selectedToolChanged, this, &FileCommands::updateOpen);
    updateOpen();

    addSeparator();
    auto* const settings = addAction(tr("Settings…"), this, [this] {
        SecondaryWindow::present<SettingsWindow>(m_window, m_window.host().timestamp());
    });
    settings->setShortcut(Qt::CTRL | Qt::Key_Comma);
    settings->setMenuRole(QAction::PreferencesRole);
    addSeparator();
    auto* const close = addAction(tr("Close Window"), &m_window, &QWidget::close);
    close->setShortcut(QKeySequence::Close);
    auto* const quit = addAction(tr("Quit"), qApp, &QCoreApplication::quit);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setMenuRole(QAction::QuitRole);

    m_window.addActions(actions());
}

void FileCommands::updateOpen() {
    m_open->setEnabled(m_window.activeToolOpensFiles());
}

} // namespace tarnquill
