// Stands in the detail column where there is no tool's own view to show.
#pragma once

#include "chrome/ToolView.h"

namespace tarnquill {

class Tool;

class PlaceholderView : public ToolView {
    Q_OBJECT

public:
    // Asks the user to pick a tool.
    PlaceholderView();

    // Says that this version does not have the tool yet.
    explicit PlaceholderView(const Tool& tool);

private:
    void setMessage(const QString& title, const QString& text, const QString& symbol);
};

} // namespace tarnquill
