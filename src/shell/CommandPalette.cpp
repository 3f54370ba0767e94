#include "shell/CommandPalette.h"

#include "chrome/ToolView.h"
#include "shell/AppShellView.h"
#include "shell/ChoicePanel.h"
#include "shell/CommandNote.h"
#include "shell/ToolCatalogue.h"
#include "shell/ToolChoices.h"

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

#include <algorithm>
#include <iterator>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr QKeyCombination kKeys = Qt::CTRL | Qt::Key_K;

struct Command {
    QAction* action;
    QStringList menus; // from the outermost one
    CommandNote note;
};

// "Save && Close" reads "Save & Close", and "&Save" reads "Save".
QString withoutMnemonic(QString text) {
    for (qsizetype at = text.indexOf(u'&'); at >= 0; at = text.indexOf(u'&', at + 1)) {
        text.remove(at, 1);
    }
    return text;
}

// Menus learn what can be done when they are about to be shown.
void collect(QMenu& menu, const QStringList& path, QList<Command>& commands) {
    Q_EMIT menu.aboutToShow();
    for (auto* const action : menu.actions()) {
        if (action->isSeparator() || !action->isEnabled() || !action->isVisible()) {
            continue;
        }
        if (action->menu() != nullptr) {
            collect(*action->menu(), path + QStringList(withoutMnemonic(action->text())), commands);
        } else {
            commands.append({.action = action, .menus = path, .note = action->data().value<CommandNote>()});
        }
    }
    Q_EMIT menu.aboutToHide();
}

QString inHome(const QString& path) {
    const auto home = QDir::homePath();
    return path == home || path.startsWith(home + u'/') ? u'~' + path.sliced(home.size()) : path;
}

Choice choiceOf(const Command& command) {
    const auto& [action, menus, note] = command;
    auto title = withoutMnemonic(action->text());
    if (note.kind == CommandNote::Kind::command) {
        title = (menus.sliced(1) + QStringList(title)).join(u": "_s);
    }
    return {.title = title,
            .detail = note.kind == CommandNote::Kind::command ? menus.first() : inHome(note.detail),
            .symbol = note.symbol.isEmpty() && action->isChecked() ? u"checkmark"_s : note.symbol,
            .shortcut = action->shortcut().toString(QKeySequence::NativeText),
            .choose = [action = QPointer(action)] {
                if (action != nullptr) {
                    action->trigger();
                }
            }};
}

} // namespace

CommandPalette::CommandPalette(AppShellView& window, const QList<QMenu*>& menus, QMenu& home)
    : QObject(&window),
      m_window(window),
      m_menus(menus),
      m_panel(
          new ChoicePanel(tr("Command Palette"), tr("Search for tools, commands and recent files"), window)),
      m_open(tr("Command Palette…")) {
    m_open.setShortcut(kKeys);
    connect(&m_open, &QAction::triggered, this, &CommandPalette::open);
    auto* const first = home.actions().value(0);
    home.insertAction(first, &m_open);
    home.insertSeparator(first);
    window.addAction(&m_open);
    qApp->installEventFilter(this);
}

void CommandPalette::open() {
    QList<Command> commands;
    for (auto* const menu : m_menus) {
        collect(*menu, {withoutMnemonic(menu->title())}, commands);
    }
    commands.removeIf([this](const Command& command) { return command.action == &m_open; });
    std::ranges::stable_sort(commands, {}, [](const Command& command) { return command.note.kind; });
    const auto menuItems = std::ranges::find(commands, CommandNote::Kind::command,
                                             [](const auto& each) { return each.note.kind; });
    QList<Choice> choices;
    std::transform(commands.begin(), menuItems, std::back_inserter(choices), choiceOf);
    if (const auto* const tool = m_window.catalogue().tool(m_window.selectedToolID())) {
        choices += toolChoices(m_window.toolView(), tool->name);
    }
    std::transform(menuItems, commands.end(), std::back_inserter(choices), choiceOf);
    m_panel->offer(choices);
}

// Some desktops give text fields these keys for deleting the rest of the line.
bool CommandPalette::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && object->isWidgetType() &&
        static_cast<QKeyEvent*>(event)->keyCombination() == kKeys) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(object, event);
}

} // namespace tarnquill
