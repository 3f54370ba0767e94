#include "shell/FileCommands.h"

#include "chrome/ToolView.h"
#include "shell/AppShellView.h"
#include "shell/CommandNote.h"
#include "shell/SettingsWindow.h"
#include "shell/ToolCatalogue.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

FileCommands::FileCommands(AppShellView& window)
    : QMenu(tr("File"), &window),
      m_window(window),
      m_open(addAction(tr("Open…"))),
      m_recent(addMenu(tr("Open Recent"))) {
    m_open->setShortcut(QKeySequence::Open);
    connect(m_open, &QAction::triggered, this, [this] {
        m_window.bringToFront();
        // A turn later, so that the window is there and its tool listens.
        QMetaObject::invokeMethod(
            &m_window, [this] { m_window.toolView().perform(ToolCommand::openFile); }, Qt::QueuedConnection);
    });
    connect(&m_window, &AppShellView::selectedToolChanged, this, &FileCommands::updateOpen);
    updateOpen();
    connect(&m_window.recentFiles(), &RecentFiles::changed, this, &FileCommands::updateRecent);
    updateRecent();

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

void FileCommands::updateRecent() {
    const auto& files = m_window.recentFiles().files();
    m_recent->clear();
    m_recent->menuAction()->setEnabled(!files.isEmpty());
    for (const auto& file : files) {
        const QFileInfo info(file.path);
        const auto isNamesake = [&](const RecentFiles::File& other) {
            return other != file && QFileInfo(other.path).fileName() == info.fileName();
        };
        const auto title = std::ranges::any_of(files, isNamesake)
                               ? tr("%1 in %2").arg(info.fileName(), info.dir().dirName())
                               : info.fileName();
        auto* const action = m_recent->addAction(QString(title).replace(u'&', u"&&"_s), this,
                                                 [this, file] { m_window.openAgain(file); });
        const auto* const tool = m_window.catalogue().tool(file.toolID);
        action->setData(QVariant::fromValue(CommandNote{.kind = CommandNote::Kind::file,
                                                        .symbol = tool != nullptr ? tool->symbol : QString(),
                                                        .detail = info.path()}));
    }
    m_recent->addSeparator();
    m_recent->addAction(tr("Clear Recent Files"), &m_window.recentFiles(), &RecentFiles::clear);
}

} // namespace tarnquill
