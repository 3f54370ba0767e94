// Shows every widget's tooltip in the program's own look, below the widget and inside its window.
#pragma once

class QRect;
class QString;
class QWidget;

namespace tarnquill::ToolTips {

// Takes over the tooltips of the application's widgets.
void install();

// For views that show one per item, in answer to QEvent::ToolTip: shows the text below that part of the view
// until the pointer leaves it. The view must track the mouse.
void showForPart(QWidget& view, const QRect& part, const QString& text);

} // namespace tarnquill::ToolTips
