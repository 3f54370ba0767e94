// Ends a program as soon as its window has been painted, so that its start can be measured from outside.
#pragma once

class QWidget;

namespace tarnquill {

// The process ends with status 0 once the first whole picture of the window went to the screen; nothing is
// cleaned up.
void endAfterFirstPaint(QWidget& window);

} // namespace tarnquill
