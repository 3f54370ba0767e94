#include "shell/ShortcutsWindow.h"

#include "chrome/TextLabel.h"

#include <QGridLayout>
#include <QMenu>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include <array>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHeight = 560;

QString keysOf(const QAction& action) {
    QStringList keys;
    for (const auto& key : action.shortcuts()) {
        keys.append(key.toString(QKeySequence::NativeText));
    }
    return keys.join(u", "_s);
}

QString native(const QString& key) {
    return QKeySequence(key).toString(QKeySequence::NativeText);
}

// A column of names and one of keys, in groups.
class Table : public QWidget {
public:
    Table() : m_grid(new QGridLayout(this)) {
        m_grid->setContentsMargins(24, 12, 24, 20);
        m_grid->setHorizontalSpacing(32);
        m_grid->setVerticalSpacing(4);
        m_grid->setColumnStretch(0, 1);
        setBackgroundRole(QPalette::Base);
        setAutoFillBackground(true);
    }

    void addGroup(const QString& title) {
        m_grid->addItem(new QSpacerItem(0, 8), m_grid->rowCount(), 0);
        m_grid->addWidget(new TextLabel(title, FontRole::groupTitle, ColorRole::muted), m_grid->rowCount(),
                          0);
    }

    void add(const QString& name, const QString& keys) {
        const auto row = m_grid->rowCount();
        m_grid->addWidget(new TextLabel(name, FontRole::body, ColorRole::text), row, 0);
        m_grid->addWidget(new TextLabel(keys, FontRole::body, ColorRole::muted), row, 1);
    }

    void addMenu(const QMenu& menu) {
        for (const auto* const action : menu.actions()) {
            if (const auto keys = keysOf(*action); !keys.isEmpty()) {
                add(action->text(), keys);
            }
        }
    }

private:
    QGridLayout* m_grid;
};

} // namespace

ShortcutsWindow::ShortcutsWindow(QWidget* mainWindow, const QList<QMenu*>& menus)
    : SecondaryWindow(tr("Keyboard Shortcuts"), mainWindow) {
    auto* const table = new Table;
    for (const auto* const menu : menus) {
        table->addGroup(menu->title());
        table->addMenu(*menu);
    }
    // What has keys and no menu item.
    using Rows = QList<std::pair<QString, QString>>;
    const std::array kGroups{
        std::pair{tr("In an Editor"), Rows{{tr("Indent the selected lines"), native(u"Tab"_s)},
                                           {tr("Take back an indentation"), native(u"Shift+Tab"_s)},
                                           {tr("Leave the editor"), native(u"Ctrl+Tab"_s)}}},
        std::pair{tr("In Markdown"), Rows{{tr("Show or hide the source"), native(u"Ctrl+Alt+P"_s)}}},
        std::pair{tr("In a Table"), Rows{{tr("Show the whole value"), native(u"Return"_s)},
                                         {tr("Select the row"), native(u"Shift+Space"_s)}}},
        std::pair{tr("In the List of Zones"), Rows{{tr("Move the zone"), native(u"Alt+Up, Alt+Down"_s)},
                                                   {tr("Remove the zone"), native(u"Delete"_s)}}},
        std::pair{tr("Anywhere"), Rows{{tr("Open the menus"), native(u"F10"_s)},
                                       {tr("Go to the next control"), native(u"Tab"_s)},
                                       {tr("Open the menu of what is selected"), native(u"Menu"_s)}}},
    };
    for (const auto& [title, rows] : kGroups) {
        table->addGroup(title);
        for (const auto& [name, keys] : rows) {
            table->add(name, keys);
        }
    }

    auto* const scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setAccessibleName(windowTitle());
    scroll->setWidget(table);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroll);
    resize(table->sizeHint().width() + style()->pixelMetric(QStyle::PM_ScrollBarExtent), kHeight);
}

} // namespace tarnquill
