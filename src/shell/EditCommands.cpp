#include "shell/EditCommands.h"

#include "shell/AppShellView.h"
#include "shell/ChoicePanel.h"
#include "shell/PasteAnywhere.h"
#include "shell/ToolCommandAction.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

namespace tarnquill {

namespace {

bool is(const QWidget& textView, const char* property) {
    return textView.property(property).toBool();
}

// A table has nothing to cut, for example.
bool has(const QWidget& textView, const char* slot) {
    return textView.metaObject()->indexOfSlot(QByteArray(slot) + "()") >= 0;
}

bool isTextView(const QWidget& widget) {
    return has(widget, "selectAll") && widget.property("readOnly").isValid();
}

} // namespace

EditCommands::EditCommands(AppShellView& window) : QMenu(tr("Edit"), &window) {
    connect(qApp, &QApplication::focusChanged, this,
            [this, &window](const QWidget* /*before*/, QWidget* now) {
                if (now != nullptr && window.isAncestorOf(now) && isTextView(*now) &&
                    !ChoicePanel::encloses(*now)) {
                    m_textView = now;
                }
            });

    add(tr("Undo"), QKeySequence::Undo, "undo",
        [](const QWidget& view) { return !is(view, "readOnly") && is(view, "undoAvailable"); });
    add(tr("Redo"), QKeySequence::Redo, "redo",
        [](const QWidget& view) { return !is(view, "readOnly") && is(view, "redoAvailable"); });
    addSeparator();
    add(tr("Cut"), QKeySequence::Cut, "cut",
        [](const QWidget& view) { return !is(view, "readOnly") && is(view, "hasSelectedText"); });
    add(tr("Copy"), QKeySequence::Copy, "copy",
        [](const QWidget& view) { return is(view, "hasSelectedText"); });
    add(tr("Paste"), QKeySequence::Paste, "paste", [](const QWidget& view) {
        const auto* const held = QApplication::clipboard()->mimeData();
        return !is(view, "readOnly") && held != nullptr && held->hasText();
    });
    auto* const pasteAnywhere = new PasteAnywhere(window);
    auto* const offer = addAction(tr("Paste Anywhere…"), pasteAnywhere, &PasteAnywhere::offer);
    offer->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_V);
    window.addAction(offer);
    add(tr("Select All"), QKeySequence::SelectAll, "selectAll", [](const QWidget& /*view*/) { return true; });
    addSeparator();
    addToolCommand(*this, window, ToolCommand::find, tr("Find…"), {QKeySequence::Find});
    addToolCommand(*this, window, ToolCommand::findNext, tr("Find Next"),
                   {Qt::CTRL | Qt::Key_G, QKeySequence(Qt::Key_F3)});
    addToolCommand(*this, window, ToolCommand::findPrevious, tr("Find Previous"),
                   {Qt::SHIFT | Qt::CTRL | Qt::Key_G, Qt::SHIFT | Qt::Key_F3});
}

void EditCommands::add(const QString& title, QKeySequence::StandardKey key, const char* slot,
                       bool (*isPossible)(const QWidget&)) {
    auto* const action = addAction(title);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, [this, slot] {
        if (m_textView != nullptr) {
            QMetaObject::invokeMethod(m_textView, slot);
        }
    });
    connect(this, &QMenu::aboutToShow, action, [this, action, slot, isPossible] {
        action->setEnabled(m_textView != nullptr && m_textView->isVisible() && has(*m_textView, slot) &&
                           isPossible(*m_textView));
    });
}

} // namespace tarnquill
