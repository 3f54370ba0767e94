// Keeps the Tab key inside an area, such as an alert or a popover.
#pragma once

class QWidget;

namespace tarnquill::FocusTrap {

enum class Direction { next, previous };

// Moves the keyboard to the neighbouring control of the area, going round at its ends.
void step(QWidget& area, Direction direction);

} // namespace tarnquill::FocusTrap
