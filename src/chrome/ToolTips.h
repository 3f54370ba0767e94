// Shows every widget's tooltip in the program's own look, below the widget and inside its window.
#pragma once

namespace tarnquill::ToolTips {

// Takes over the tooltips of the application's widgets. Views that show one per item keep Qt's.
void install();

} // namespace tarnquill::ToolTips
