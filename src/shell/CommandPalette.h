// Every command of the menus and of the shown tool that works now, the tools and the recent files, found by a
// few letters.
#pragma once

#include <QAction>
#include <QList>
#include <QObject>

class QMenu;

namespace tarnquill {

class AppShellView;
class ChoicePanel;
struct Choice;

class CommandPalette : public QObject {
    Q_OBJECT

public:
    // Belongs to the window. Lists the items of `menus`, and puts the one that opens it at the top of `home`.
    CommandPalette(AppShellView& window, const QList<QMenu*>& menus, QMenu& home);

    void open();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    AppShellView& m_window;
    QList<QMenu*> m_menus;
    ChoicePanel* m_panel;
    QAction m_open;
};

} // namespace tarnquill
