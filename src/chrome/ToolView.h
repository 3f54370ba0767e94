// The view of one tool, as the window sees it: a toolbar over the tool's content, and the menu commands that
// it answers.
#pragma once

#include <QUrl>
#include <QWidget>

namespace tarnquill {

class ActivePaneLine;
class DropOverlay;
class ToolPane;
class Toolbar;

// Commands of the menu bar that act on the tool that is shown.
enum class ToolCommand {
    openFile, // presents the tool's open panel
    find,     // puts the caret into the tool's search field
    findNext,
    findPrevious,
    zoomIn,
    zoomOut,
    resetZoom,
};

class ToolView : public QWidget {
    Q_OBJECT

public:
    // The title stands in the toolbar.
    explicit ToolView(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] Toolbar& toolbar() const { return *m_toolbar; }

    // Whether the command does something in this tool now. Asked each time before a menu is shown.
    [[nodiscard]] virtual bool canPerform(ToolCommand command) const;

    // Does nothing when the command cannot be performed.
    virtual void perform(ToolCommand command);

    // Files are dragged over the window, or no more. Marks the content as a whole; a tool with several panes
    // may mark the one that takes the file instead.
    virtual void setDropTarget(bool isTarget);

    // Whether the tool still works on something that will change what it shows.
    [[nodiscard]] virtual bool isWorking() const;

Q_SIGNALS:
    // The tool's toolbar asks the window to hide or show the sidebar.
    void sidebarToggleRequested();
    // Files were dropped on a part of the tool that hears of drags itself. The window opens them.
    void filesDropped(const QList<QUrl>& urls);

protected:
    // What fills the view below the toolbar. Call once; the view takes it over.
    void setContent(QWidget* content);
    // Two panes side by side that share the width as its content, and the line that marks the active one. The
    // left one's content is the first focus.
    ActivePaneLine* setPanes(ToolPane* left, ToolPane* right);
    // The part that takes the keyboard when the view is given it.
    void setFirstFocus(QWidget* part) { m_firstFocus = part; }

    void focusInEvent(QFocusEvent* event) override;

private:
    Toolbar* m_toolbar;
    QWidget* m_body;
    DropOverlay* m_drop;
    QWidget* m_firstFocus = nullptr;
};

} // namespace tarnquill
