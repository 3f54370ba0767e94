#include "shell/ViewCommands.h"

#include "chrome/EditorOptions.h"
#include "chrome/Theme.h"
#include "shell/AppShellView.h"
#include "shell/ToolCatalogue.h"
#include "shell/ToolCommandAction.h"

#include <QActionGroup>
#include <QSettings>

#include <array>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

const QString kAppearance = u"appearance"_s;
const QString kLineNumbers = u"lineNumbers"_s;
const QString kWrapLines = u"wrapLines"_s;

// Appearances by the name that the settings keep.
const std::array kAppearances{
    std::pair{u"system"_s, Appearance::system},
    std::pair{u"light"_s, Appearance::light},
    std::pair{u"dark"_s, Appearance::dark},
};

} // namespace

ViewCommands::ViewCommands(AppShellView& window, QSettings& settings)
    : QMenu(tr("View"), &window), m_window(window) {
    addTools();
    addSeparator();
    addSidebar();
    addSeparator();
    addEditors(settings);
    addSeparator();
    addAppearances(settings);
}

void ViewCommands::restoreAppearance(const QSettings& settings) {
    const auto stored = settings.value(kAppearance).toString();
    for (const auto& [name, appearance] : kAppearances) {
        if (name == stored) {
            Theme::instance().setAppearance(appearance);
        }
    }
}

void ViewCommands::addTools() {
    auto* const group = new QActionGroup(this);
    int number = 0;
    for (const auto* const tool : m_window.catalogue().inSidebarOrder()) {
        auto* const action = addAction(tool->name);
        action->setCheckable(true);
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

void ViewCommands::addEditors(QSettings& settings) {
    addToolCommand(*this, m_window, ToolCommand::zoomIn, tr("Zoom In"),
                   {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal});
    addToolCommand(*this, m_window, ToolCommand::zoomOut, tr("Zoom Out"), {Qt::CTRL | Qt::Key_Minus});
    addToolCommand(*this, m_window, ToolCommand::resetZoom, tr("Actual Size"), {Qt::CTRL | Qt::Key_0});
    const auto addOption = [&](const QString& title, const QString& key,
                               void (EditorOptions::*set)(bool isOn)) {
        auto* const action = addAction(title);
        const auto stored = settings.value(key, true).toBool();
        (EditorOptions::instance().*set)(stored);
        action->setCheckable(true);
        action->setChecked(stored);
        connect(action, &QAction::toggled, this, [&settings, key, set](bool isOn) {
            settings.setValue(key, isOn);
            (EditorOptions::instance().*set)(isOn);
        });
    };
    addOption(tr("Line Numbers"), kLineNumbers, &EditorOptions::setLineNumbersVisible);
    addOption(tr("Wrap Lines"), kWrapLines, &EditorOptions::setWrapsLines);
}

void ViewCommands::addAppearances(QSettings& settings) {
    auto* const menu = addMenu(tr("Appearance"));
    auto* const group = new QActionGroup(menu);
    const QStringList titles{tr("System"), tr("Light"), tr("Dark")};
    for (size_t index = 0; index < kAppearances.size(); ++index) {
        const auto& [name, appearance] = kAppearances[index];
        auto* const action = menu->addAction(titles.at(static_cast<int>(index)));
        action->setCheckable(true);
        action->setChecked(appearance == Theme::instance().appearance());
        group->addAction(action);
        connect(action, &QAction::triggered, this, [&settings, name, appearance] {
            settings.setValue(kAppearance, name);
            Theme::instance().setAppearance(appearance);
        });
    }
}

} // namespace tarnquill
