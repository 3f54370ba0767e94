// The view of one tool, as the window sees it: what fills the detail column, and the menu commands that it
// answers.
#pragma once

#include <QWidget>

namespace tarnquill {

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
    using QWidget::QWidget;

    // Whether the command does something in this tool now. Asked each time before the menu is shown.
    [[nodiscard]] virtual bool canPerform(ToolCommand command) const;

    virtual void perform(ToolCommand command);

Q_SIGNALS:
    // The tool's toolbar asks the window to hide or show the sidebar.
    void sidebarToggleRequested();
};

} // namespace tarnquill
