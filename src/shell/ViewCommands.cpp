#include "shell/ViewCommands.h"

#include "chrome/EditorOptions.h"
#include "chrome/Theme.h"
#include "shell/AppShellView.h"
#include "shell/CommandNote.h"
#include "shell/ToolCatalogue.h"
#include "shell/ToolCommandAction.h"

#include <QActionGroup>

namespace tarnquill {

ViewCommands::ViewCommands(AppShellView& window) : QMenu(tr("View"), &window), m_window(window) {
    addTools();
    addSeparator();
    addSidebar();
    addSeparator();
    addEditors();
    addSeparator();
    addAppearances();
}

void ViewCommands::addTools() {
    auto* const group = new QActionGroup(this);
    int number = 0;
    for (const auto* const tool : m_window.catalogue().inSidebarOrder()) {
        auto* const action = addAction(tool->name);
        action->setCheckable(true);
        action->setData(QVariant::fromValue(
            CommandNote{.kind = CommandNote::Kind::tool, .symbol = tool->symbol, .detail = {}}));
        action->setShortcut(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + number++));
        group->addAction(action);
        m_window.addAction(action);
        connect(action, &QAction::triggered, this, [this, tool] {
            m_window.selectTool(tool->id);
            m_window.focusToolView();
        });
        const auto update = [this, action, tool] {
            action->setChecked(m_window.selectedToolID() == tool->id);
        };
        connect(&m_window, &AppShellView::selectedToolChanged, action, update);
        update();
    }
}

void ViewCommands::addSidebar() {
    auto* const action =
        addAction({}, &m_window, [this] { m_window.setSidebarShown(!m_window.isSidebarShown()); });
#ifdef Q_OS_MACOS
    action->setShortcut(Qt::CTRL | Qt::META | Qt::Key_S);
#else
    action->setShortcut(Qt::Key_F9);
#endif
    m_window.addAction(action);
    const auto update = [action](bool shown) {
        action->setText(shown ? tr("Hide Sidebar") : tr("Show Sidebar"));
    };
    connect(&m_window, &AppShellView::sidebarShownChanged, action, update);
    update(m_window.isSidebarShown());
}

void ViewCommands::addEditors() {
    addToolCommand(*this, m_window, ToolCommand::zoomIn, tr("Zoom In"),
                   {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal});
    addToolCommand(*this, m_window, ToolCommand::zoomOut, tr("Zoom Out"), {Qt::CTRL | Qt::Key_Minus});
    addToolCommand(*this, m_window, ToolCommand::resetZoom, tr("Actual Size"), {Qt::CTRL | Qt::Key_0});
    const auto addOption = [this](const QString& title, bool (EditorOptions::*isOn)() const,
                                  void (EditorOptions::*set)(bool)) {
        auto* const action = addAction(title);
        action->setCheckable(true);
        const auto show = [action, isOn] { action->setChecked((EditorOptions::instance().*isOn)()); };
        connect(&EditorOptions::instance(), &EditorOptions::changed, action, show);
        connect(action, &QAction::toggled, action,
                [set](bool checked) { (EditorOptions::instance().*set)(checked); });
        show();
    };
    addOption(tr("Line Numbers"), &EditorOptions::showsLineNumbers, &EditorOptions::setLineNumbersVisible);
    addOption(tr("Wrap Lines"), &EditorOptions::wrapsLines, &EditorOptions::setWrapsLines);
}

void ViewCommands::addAppearances() {
    auto* const menu = addMenu(tr("Appearance"));
    auto* const group = new QActionGroup(menu);
    const auto add = [&](const QString& title, Appearance appearance) {
        auto* const action = menu->addAction(title);
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, action,
                [appearance] { Theme::instance().setAppearance(appearance); });
        const auto show = [action, appearance] {
            action->setChecked(appearance == Theme::instance().appearance());
        };
        connect(&Theme::instance(), &Theme::appearanceChanged, action, show);
        show();
    };
    add(tr("System"), Appearance::system);
    add(tr("Light"), Appearance::light);
    add(tr("Dark"), Appearance::dark);
}

} // namespace tarnquill
