// The Edit menu: acts on the text view that has the keyboard, or had it last.
//
// A text view is any widget with a line edit's slots (undo(), cut(), …) and properties (readOnly,
// undoAvailable, …). It handles the keys by itself; the menu only names them.
#pragma once

#include <QMenu>
#include <QPointer>

namespace tarnquill {

class AppShellView;

class EditCommands : public QMenu {
    Q_OBJECT

public:
    explicit EditCommands(AppShellView& window);

private:
    // `isPossible` tells whether the command does something in a text view that has the slot.
    void add(const QString& title, QKeySequence::StandardKey key, const char* slot,
             bool (*isPossible)(const QWidget&));

    QPointer<QWidget> m_textView;
};

} // namespace tarnquill
